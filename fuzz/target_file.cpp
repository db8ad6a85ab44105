// SPDX-License-Identifier: MIT
// kovctl's target files: any bytes give a target that makes sense, or a sentence that refuses them
// and names the file.
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "failure.h"
#include "fuzz/require.h"
#include "target/target_request.h"
#include "tests/real/system.h"

namespace {

namespace fs = std::filesystem;

class Scratch {
 public:
  ~Scratch() { fs::remove_all(root); }
  std::string file() const { return (root / "target.json").string(); }

 private:
  const fs::path root = realtest::system::makeFolder();
};

void checkTarget(const kovctl::TargetInfo& target) {
  require(target.levels >= 0 && target.levels <= 256, "a number of levels");
  require(std::isfinite(target.lmax) && std::isfinite(target.lmin), "finite luminances");
  require(target.whiteName == "OFF" || target.white.has_value(), "a white for its name");
  if (target.function == kovctl::DisplayFunction::kExp) {
    require(target.exponent.has_value(), "an exponent");
  }
  if (target.function == kovctl::DisplayFunction::kUserDefine) {
    require(!target.userCurve.empty(), "a curve");
  }
  require(!kovctl::describe(target).empty(), "words for it");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Scratch scratch;
  std::ofstream(scratch.file(), std::ios::binary | std::ios::trunc)
      << std::string(reinterpret_cast<const char*>(data), size);
  kovctl::TargetFlags flags;
  flags.file = scratch.file();
  try {
    checkTarget(kovctl::makeTarget(flags).target);
  } catch (const kovctl::Failure& failure) {
    require(failure.code == kovctl::ExitCode::kUsage, "refused as wrong use");
    require(failure.what()[0] != '\0', "a sentence");
  }
  return 0;
}
