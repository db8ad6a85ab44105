// SPDX-License-Identifier: MIT
#include "tests/support/fake_vendor.h"

#include <algorithm>
#include <cstring>

namespace kovtest {

std::optional<int32_t> FakeChroma::temperatureOf(const Input& input) {
  constexpr std::size_t kTemperatureAt = 96;
  int32_t temperature = 0;
  std::memcpy(&temperature, input.data() + kTemperatureAt, sizeof temperature);
  Input rest = input;
  std::fill_n(rest.begin() + kTemperatureAt, sizeof temperature, static_cast<unsigned char>(0));
  const bool zero = std::all_of(rest.begin(), rest.end(), [](unsigned char b) { return b == 0; });
  return zero ? std::optional<int32_t>(temperature) : std::nullopt;
}

void resetFakeVendors() {
  fakeMeter() = FakeMeter();
  fakeChroma() = FakeChroma();
}

}  // namespace kovtest
