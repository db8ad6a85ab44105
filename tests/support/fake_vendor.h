// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_SUPPORT_FAKE_VENDOR_H_
#define L5KOV_TESTS_SUPPORT_FAKE_VENDOR_H_

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kovtest {

// The stand-in for the measurement-device library (target fake_meter, file libmeter_x64).
struct FakeMeter {
  uint32_t deviceId = 163;
  std::optional<std::string> serialNumber = "METER-01";  // absent: the null pointer
  // "MDGetDeviceID", "MDGetSerialNumber" in the order of the calls, and the handles they got.
  std::vector<std::string> calls;
  std::vector<void*> handles;
};

// The stand-in for the colour library (target fake_chroma, file libchroma_x64).
struct FakeChroma {
  double x = 0.3127;
  double y = 0.3290;
  // One per Colour_tmp2xy call: the 144 bytes of its input record, as they were.
  std::vector<std::array<unsigned char, 144>> inputs;

  // The temperature of an input record; empty when a byte outside it is not zero.
  static std::optional<int32_t> temperatureOf(const std::array<unsigned char, 144>& input);
};

// The instances in the loaded libraries, one per process; not thread-safe.
FakeMeter& fakeMeter();
FakeChroma& fakeChroma();
// Both back to their initial values.
void resetFakeVendors();

}  // namespace kovtest

#endif  // L5KOV_TESTS_SUPPORT_FAKE_VENDOR_H_
