// SPDX-License-Identifier: MIT
#include "target/white_point.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "failure.h"
#include "system/files.h"
#include "system/shared_library.h"

namespace kovctl {
namespace {

// The parts of the colour library's records that are known, in bytes. The output's true size is
// not: there is room for more than it can be.
constexpr std::size_t kInputSize = 144;
constexpr std::size_t kInputKelvin = 96;
constexpr std::size_t kOutputRoom = 4096;
constexpr std::size_t kOutputX = 80;
constexpr std::size_t kOutputY = 88;

}  // namespace

Chromaticity whitePointOf(int kelvin) {
  using Function = int (*)(void* out, const void* in);
  Function toColour = nullptr;
  try {
    toColour = sys::SharedLibrary(sys::chromaLibraryName()).function<Function>("Colour_tmp2xy");
  } catch (const std::runtime_error& reason) {
    throw Failure(ExitCode::kRuntime, std::string("the colour library: ") + reason.what());
  }
  if (toColour == nullptr) {
    throw Failure(ExitCode::kRuntime, "the colour library has no Colour_tmp2xy");
  }
  alignas(16) std::array<unsigned char, kInputSize> in{};
  alignas(16) std::array<unsigned char, kOutputRoom> out{};
  const std::int32_t temperature = kelvin;
  std::memcpy(in.data() + kInputKelvin, &temperature, sizeof temperature);
  toColour(out.data(), in.data());
  Chromaticity colour;
  std::memcpy(&colour.x, out.data() + kOutputX, sizeof colour.x);
  std::memcpy(&colour.y, out.data() + kOutputY, sizeof colour.y);
  return colour;
}

}  // namespace kovctl
