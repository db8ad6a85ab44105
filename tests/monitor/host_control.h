// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_MONITOR_HOST_CONTROL_H_
#define L5KOV_TESTS_MONITOR_HOST_CONTROL_H_

#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "l5kov.h"

namespace kovtest {

// What became of a HostControl; outlives it.
struct HostControlRecord {
  std::vector<std::string> calls;
  int destroyed = 0;
  const char* textData = nullptr;  // where the text of performCalibration lay
  std::exception_ptr toThrow;      // by every operation, when set
};

// A host's own control: records the calls, answers with a number or text per operation.
class HostControl : public lumora::MonitorControl {
 public:
  explicit HostControl(HostControlRecord& shared) : record(shared) {}
  ~HostControl() override { ++record.destroyed; }

  std::string getModelName() override { return note("getModelName"); }
  std::string getSerialNumber() override { return note("getSerialNumber"); }
  std::string getPackageName() override { return note("getPackageName"); }
  std::string getEdidModelName() override { return note("getEdidModelName"); }
  std::string getEdidSerialNumber() override { return note("getEdidSerialNumber"); }
  long getEdidProductYear() override { return note("getEdidProductYear"), 2019; }
  std::string getConnectionType() override { return note("getConnectionType"); }
  pocketjson::Value getCalibrationTargetData(unsigned int lutNumber) override {
    return pocketjson::Value(note("getCalibrationTargetData " + std::to_string(lutNumber)));
  }
  OMC_USAGETIME getUsageTime() override { return note("getUsageTime"), OMC_USAGETIME{77, 0}; }
  unsigned int getCalModeValue() override { return note("getCalModeValue"), 4000000000U; }
  void setCalModeValue(unsigned int position) override {
    note("setCalModeValue " + std::to_string(position));
  }
  std::vector<lumora::kov::KovCalibrationHisInfo> getExtractCalibrationData() override {
    note("getExtractCalibrationData");
    return std::vector<lumora::kov::KovCalibrationHisInfo>(3);
  }
  OmCtrlPanelType getMonitorColorType() override {
    return note("getMonitorColorType"), OmCtrlPanelColor;
  }
  bool isKeyLockSupported() override { return note("isKeyLockSupported"), true; }
  OmCtrlKeyLockState getKeyLockState() override {
    return note("getKeyLockState"), OmCtrlKeyLockLocked;
  }
  void setKeyLockState(OmCtrlKeyLockState state) override {
    note("setKeyLockState " + std::to_string(static_cast<int>(state)));
  }
  std::string getGammaModelTag(unsigned int index) override {
    return note("getGammaModelTag " + std::to_string(index));
  }
  void abortCalibration() override { note("abortCalibration"); }
  void performCalibration(jobject targets, bool useExternalSensors, int graylevelCount,
                          bool measureBacklightResponse, std::string calibrationText,
                          long long handle) override {
    record.textData = calibrationText.data();
    note("performCalibration " + std::to_string(reinterpret_cast<std::uintptr_t>(targets)) + " " +
         std::to_string(useExternalSensors) + " " + std::to_string(graylevelCount) + " " +
         std::to_string(measureBacklightResponse) + " " + calibrationText + " " +
         std::to_string(handle));
  }

 private:
  std::string note(std::string call) {
    record.calls.push_back(call);
    if (record.toThrow) std::rethrow_exception(record.toThrow);
    return call;
  }

  HostControlRecord& record;
};

}  // namespace kovtest

#endif  // L5KOV_TESTS_MONITOR_HOST_CONTROL_H_
