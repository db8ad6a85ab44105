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
  using Input = std::array<unsigned char, 144>;

  double x = 0.3127;
  double y = 0.3290;
  int result = 0;  // of Colour_tmp2xy
  // One per Colour_tmp2xy call: its input record, as it was.
  std::vector<Input> inputs;

  // The temperature (at byte 96) of an input record; empty when any other byte is not zero.
  static std::optional<int32_t> temperatureOf(const Input& input);
};

// The instances in the loaded libraries, one per process; not thread-safe.
extern "C" FakeMeter* l5kov_fake_meter();
extern "C" FakeChroma* l5kov_fake_chroma();
inline FakeMeter& fakeMeter() { return *l5kov_fake_meter(); }
inline FakeChroma& fakeChroma() { return *l5kov_fake_chroma(); }
// Both back to their initial values.
void resetFakeVendors();

}  // namespace kovtest

#endif  // L5KOV_TESTS_SUPPORT_FAKE_VENDOR_H_
