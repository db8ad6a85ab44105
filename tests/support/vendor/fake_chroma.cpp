// SPDX-License-Identifier: MIT
// libchroma_x64 for tests: answers as scripted and records what it was given.
#include <cstring>

#include "tests/support/fake_vendor.h"

namespace kovtest {

extern "C" FakeChroma* l5kov_fake_chroma() {
  static FakeChroma chroma;
  return &chroma;
}

}  // namespace kovtest

// Writes the two numbers that libl5kov reads and nothing else of `out`.
extern "C" int Colour_tmp2xy(void* out, const void* in) {
  kovtest::FakeChroma& chroma = kovtest::fakeChroma();
  std::memcpy(chroma.inputs.emplace_back().data(), in, sizeof(kovtest::FakeChroma::Input));
  std::memcpy(static_cast<char*>(out) + 80, &chroma.x, sizeof chroma.x);
  std::memcpy(static_cast<char*>(out) + 88, &chroma.y, sizeof chroma.y);
  return chroma.result;
}
