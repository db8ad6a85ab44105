// SPDX-License-Identifier: MIT
// The order of the virtual operations, which is binary interface. Itanium layout: two slots for the
// destructor, then the operations as declared.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "l5kov.h"
#include "tests/monitor/host_control.h"

namespace {

using kovtest::HostControl;
using kovtest::HostControlRecord;
using lumora::MonitorControl;
using lumora::kov::KovCalibratorDelegate;

// A pointer to a virtual member function holds 1 + the byte offset of its slot.
template <class PointerToMember>
std::intptr_t slotOf(PointerToMember member) {
  std::intptr_t words[2] = {};
  static_assert(sizeof member == sizeof words);
  std::memcpy(words, &member, sizeof words);
  return (words[0] - 1) / static_cast<std::intptr_t>(sizeof(void*));
}

TEST(SlotOrder, MonitorControlDeclaresItsOperationsInTheExportedOrder) {
  EXPECT_EQ(slotOf(&MonitorControl::getModelName), 2);
  EXPECT_EQ(slotOf(&MonitorControl::getSerialNumber), 3);
  EXPECT_EQ(slotOf(&MonitorControl::getPackageName), 4);
  EXPECT_EQ(slotOf(&MonitorControl::getEdidModelName), 5);
  EXPECT_EQ(slotOf(&MonitorControl::getEdidSerialNumber), 6);
  EXPECT_EQ(slotOf(&MonitorControl::getEdidProductYear), 7);
  EXPECT_EQ(slotOf(&MonitorControl::getConnectionType), 8);
  EXPECT_EQ(slotOf(&MonitorControl::getCalibrationTargetData), 9);
  EXPECT_EQ(slotOf(&MonitorControl::getUsageTime), 10);
  EXPECT_EQ(slotOf(&MonitorControl::getCalModeValue), 11);
  EXPECT_EQ(slotOf(&MonitorControl::setCalModeValue), 12);
  EXPECT_EQ(slotOf(&MonitorControl::getExtractCalibrationData), 13);
  EXPECT_EQ(slotOf(&MonitorControl::getMonitorColorType), 14);
  EXPECT_EQ(slotOf(&MonitorControl::isKeyLockSupported), 15);
  EXPECT_EQ(slotOf(&MonitorControl::getKeyLockState), 16);
  EXPECT_EQ(slotOf(&MonitorControl::setKeyLockState), 17);
  EXPECT_EQ(slotOf(&MonitorControl::getGammaModelTag), 18);
  EXPECT_EQ(slotOf(&MonitorControl::abortCalibration), 19);
  EXPECT_EQ(slotOf(&MonitorControl::performCalibration), 20);
}

TEST(SlotOrder, DelegateDeclaresItsOperationsInTheExportedOrder) {
  EXPECT_EQ(slotOf(&KovCalibratorDelegate::showColorPatch), 2);
  EXPECT_EQ(slotOf(&KovCalibratorDelegate::measure), 3);
  EXPECT_EQ(slotOf(&KovCalibratorDelegate::progress), 4);
  EXPECT_EQ(slotOf(&KovCalibratorDelegate::notifyEvent), 5);
}

// Calls what lies in the slot, as a caller that was compiled against another header would.
template <class Result, class... Arguments>
Result callSlot(MonitorControl& control, std::size_t slot, Arguments... arguments) {
  void** const table = *reinterpret_cast<void***>(&control);
  return reinterpret_cast<Result (*)(MonitorControl*, Arguments...)>(table[slot])(&control,
                                                                                  arguments...);
}

TEST(SlotOrder, SlotsOfAControlAnswerInTheExportedOrder) {
  HostControlRecord record;
  auto* const made = new HostControl(record);
  MonitorControl& control = *made;
  for (std::size_t slot = 2; slot <= 6; ++slot) callSlot<std::string>(control, slot);
  callSlot<long>(control, 7);
  callSlot<std::string>(control, 8);
  callSlot<pocketjson::Value>(control, 9, 1U);
  callSlot<OMC_USAGETIME>(control, 10);
  callSlot<unsigned int>(control, 11);
  callSlot<void>(control, 12, 2U);
  callSlot<std::vector<lumora::kov::KovCalibrationHisInfo>>(control, 13);
  callSlot<OmCtrlPanelType>(control, 14);
  callSlot<bool>(control, 15);
  callSlot<OmCtrlKeyLockState>(control, 16);
  callSlot<void>(control, 17, OmCtrlKeyLockLocked);
  callSlot<std::string>(control, 18, 3U);
  callSlot<void>(control, 19);
  callSlot<void>(control, 20, static_cast<jobject>(nullptr), true, 4, false, std::string("t"), 5LL);
  EXPECT_EQ(record.calls,
            (std::vector<std::string>{
                "getModelName", "getSerialNumber", "getPackageName", "getEdidModelName",
                "getEdidSerialNumber", "getEdidProductYear", "getConnectionType",
                "getCalibrationTargetData 1", "getUsageTime", "getCalModeValue",
                "setCalModeValue 2", "getExtractCalibrationData", "getMonitorColorType",
                "isKeyLockSupported", "getKeyLockState", "setKeyLockState 10", "getGammaModelTag 3",
                "abortCalibration", "performCalibration 0 1 4 0 t 5"}));
  callSlot<void>(control, 1);  // the deleting destructor
  EXPECT_EQ(record.destroyed, 1);
}

}  // namespace
