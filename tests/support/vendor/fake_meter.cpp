// SPDX-License-Identifier: MIT
// libmeter_x64 for tests: answers as scripted and records who asked.
#include "tests/support/fake_vendor.h"

namespace kovtest {

extern "C" FakeMeter* l5kov_fake_meter() {
  static FakeMeter meter;
  return &meter;
}

}  // namespace kovtest

extern "C" {

std::uint32_t MDGetDeviceID(void* device) {
  kovtest::FakeMeter& meter = kovtest::fakeMeter();
  meter.calls.push_back("MDGetDeviceID");
  meter.handles.push_back(device);
  return meter.deviceId;
}

const char* MDGetSerialNumber(void* device) {
  kovtest::FakeMeter& meter = kovtest::fakeMeter();
  meter.calls.push_back("MDGetSerialNumber");
  meter.handles.push_back(device);
  return meter.serialNumber ? meter.serialNumber->c_str() : nullptr;
}
}
