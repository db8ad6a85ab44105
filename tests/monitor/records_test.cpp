// SPDX-License-Identifier: MIT
// Field order, widths and numbers of the exported records and enumerations.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "l5kov.h"

namespace {

using lumora::kov::KovCalibrationHisInfo;
using lumora::kov::KovCalibrationRunInfo;
using lumora::kov::KovCalibrationTargetInfo;
using lumora::kov::PatchRecord;

template <class Expected, class Record, class Found>
constexpr bool is(Found Record::*) {
  return std::is_same_v<Expected, Found>;
}

using His = KovCalibrationHisInfo;
static_assert(is<std::uint16_t>(&His::lutNumber) && is<KovCalibrationTargetInfo>(&His::target) &&
              is<std::uint16_t>(&His::backlightSensorValue) &&
              is<KovCalibrationRunInfo>(&His::run) &&
              is<std::uint16_t>(&His::horizontalResolution) &&
              is<std::uint16_t>(&His::verticalResolution) &&
              is<std::int32_t>(&His::horizontalFrequency) &&
              is<std::uint16_t>(&His::verticalFrequency) && is<std::uint16_t>(&His::colorDepth));

using Target = KovCalibrationTargetInfo;
static_assert(is<std::uint8_t>(&Target::deviceKind) && is<std::string>(&Target::calibrationKind) &&
              is<double>(&Target::maxLuminance) && is<double>(&Target::minLuminance) &&
              is<bool>(&Target::reservedFlag) && is<std::string>(&Target::colorMode) &&
              is<double>(&Target::colorX) && is<double>(&Target::colorY) &&
              is<std::int32_t>(&Target::displayFunction) && is<double>(&Target::gammaValue) &&
              is<bool>(&Target::validFlag) && is<double>(&Target::ambientLight) &&
              is<std::int32_t>(&Target::deviceId) && is<std::string>(&Target::deviceSerialNumber));

using Run = KovCalibrationRunInfo;
static_assert(is<std::string>(&Run::executeDate) && is<std::string>(&Run::performer) &&
              is<std::int32_t>(&Run::workingHours) && is<std::string>(&Run::computerName));

static_assert(is<std::int32_t>(&OMC_USAGETIME::workingHours) &&
              is<std::int32_t>(&OMC_USAGETIME::reserved));
static_assert(offsetof(OMC_USAGETIME, workingHours) == 0 && offsetof(OMC_USAGETIME, reserved) == 4);

static_assert(sizeof(OmCtrlPanelType) == 4 && OmCtrlPanelMonochrome == 0 && OmCtrlPanelColor == 1);
static_assert(sizeof(OmCtrlKeyLockState) == 4 && OmCtrlKeyLockUnlocked == 0);
static_assert(OmCtrlKeyLockLocked == 10, "hosts store this number");
static_assert(std::is_same_v<std::underlying_type_t<OmError>, std::int32_t>);
static_assert(static_cast<std::uint32_t>(OM_OK) == 0x00000000U);
static_assert(static_cast<std::uint32_t>(OM_ERR_JAVA) == 0x80000000U);
static_assert(static_cast<std::uint32_t>(OM_ERR_CANCELED) == 0x8000000CU);
static_assert(static_cast<std::uint32_t>(OM_ERR_COMMUNICATION) == 0x80010001U);

static_assert(sizeof(PatchRecord) == 144 && std::is_trivial_v<PatchRecord> &&
              std::is_standard_layout_v<PatchRecord>);

using Offsets = std::vector<std::size_t>;

// The distance of a field from the beginning of its record, also where offsetof is not promised.
template <class Record, class Field>
std::size_t at(const Record& record, const Field& field) {
  return static_cast<std::size_t>(reinterpret_cast<const char*>(&field) -
                                  reinterpret_cast<const char*>(&record));
}

Offsets offsetsOf(const His& h) {
  return {at(h, h.lutNumber),
          at(h, h.target),
          at(h, h.backlightSensorValue),
          at(h, h.run),
          at(h, h.horizontalResolution),
          at(h, h.verticalResolution),
          at(h, h.horizontalFrequency),
          at(h, h.verticalFrequency),
          at(h, h.colorDepth),
          sizeof h};
}

Offsets offsetsOf(const Target& t) {
  return {at(t, t.deviceKind),
          at(t, t.calibrationKind),
          at(t, t.maxLuminance),
          at(t, t.minLuminance),
          at(t, t.reservedFlag),
          at(t, t.colorMode),
          at(t, t.colorX),
          at(t, t.colorY),
          at(t, t.displayFunction),
          at(t, t.gammaValue),
          at(t, t.validFlag),
          at(t, t.ambientLight),
          at(t, t.deviceId),
          at(t, t.deviceSerialNumber),
          sizeof t};
}

Offsets offsetsOf(const Run& r) {
  return {at(r, r.executeDate), at(r, r.performer), at(r, r.workingHours), at(r, r.computerName),
          sizeof r};
}

// With a text of 32 bytes, as the standard libraries of GCC and MSVC (release) have it.
TEST(Records, FieldsLieInTheExportedOrder) {
  if (sizeof(std::string) != 32) GTEST_SKIP() << "texts of another size";
  EXPECT_EQ(offsetsOf(KovCalibrationRunInfo{}), (Offsets{0, 32, 64, 72, 104}));
  EXPECT_EQ(offsetsOf(Target{}),
            (Offsets{0, 8, 40, 48, 56, 64, 96, 104, 112, 120, 128, 136, 144, 152, 184}));
  EXPECT_EQ(offsetsOf(His{}), (Offsets{0, 8, 192, 200, 304, 306, 308, 312, 314, 320}));
}

TEST(Records, NewHistoryRecordIsZero) {
  const His info;
  EXPECT_EQ(info.lutNumber, 0);
  EXPECT_EQ(info.target.gammaValue, 0.0);
  EXPECT_EQ(info.target.colorX, 0.0);
  EXPECT_FALSE(info.target.validFlag);
  EXPECT_EQ(info.horizontalFrequency, 0);
}

TEST(Records, PatchRecordIsIndexedByTheNumbersOfItsDoubles) {
  PatchRecord record = {};
  double numbers[18] = {};
  for (std::size_t i = 0; i < 18; ++i) record[i] = numbers[i] = static_cast<double>(i) + 0.5;
  EXPECT_EQ(std::memcmp(&record, numbers, sizeof record), 0);
  const PatchRecord& read = record;
  EXPECT_EQ(read[17], 17.5);
}

}  // namespace
