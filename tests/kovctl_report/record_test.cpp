// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "record/patch_roles.h"
#include "record/run_record_json.h"
#include "record/text_form.h"
#include "sample_record.h"

namespace kovctl {
namespace {

using Json = nlohmann::ordered_json;

Json good() {
  return toJson(test::completeRecord());
}

std::string complaintAbout(const Json& json) {
  try {
    runRecordFromJson(json);
  } catch (const RunRecordError& e) {
    return e.what();
  }
  return "none";
}

std::string complaintAfter(const std::string& pointer, const Json& value) {
  Json json = good();
  json[Json::json_pointer(pointer)] = value;
  return complaintAbout(json);
}

TEST(RunRecord, ReadsBackWhatItWrites) {
  for (const char* name : {"calibration", "verification", "canceled", "complete"}) {
    const RunRecord record = test::sampleByName(name);
    EXPECT_EQ(readRunRecord(writeRunRecord(record)), record) << name;
  }
  EXPECT_EQ(complaintAfter("/startTime", "2026-11-21T08:25:49.125Z"), "none");
}

TEST(RunRecord, TextThatIsNotUtf8StillMakesAFile) {
  const RunRecord read = readRunRecord(writeRunRecord(test::hostileRecord()));
  EXPECT_EQ(read.monitor.model, test::hostileRecord().monitor.model);
  EXPECT_NE(read.monitor.lutName.find("\xEF\xBF\xBD"), std::string::npos);
}

TEST(RunRecord, AbsentIsNotZero) {
  Json json = good();
  json["monitor"].erase("workingHours");
  json["target"].erase("ambient");
  json["patches"][0].erase("chromaticity");
  const RunRecord record = runRecordFromJson(json);
  EXPECT_FALSE(record.monitor.workingHours);
  EXPECT_FALSE(record.target.ambient);
  EXPECT_FALSE(record.patches[0].chromaticity);
}

TEST(RunRecord, SaysWhereABadMemberIs) {
  EXPECT_EQ(complaintAfter("/patches/3/r", 300),
            "patches[3].r: expected a whole number from 0 to 255, found 300");
  EXPECT_EQ(complaintAfter("/patches/3/luminance", "bright"),
            "patches[3].luminance: expected a number, found \"bright\"");
  EXPECT_EQ(complaintAfter("/monitor/workingHours", 1.5),
            "monitor.workingHours: expected a whole number from -2147483648 to 2147483647, found "
            "1.5");
  EXPECT_EQ(complaintAfter("/target/lmax", -1.0),
            "target.lmax: expected a number not below 0, found -1.0");
  EXPECT_EQ(complaintAfter("/target/function", "dicom"),
            "target.function: expected one of \"DICOM\", \"CIE\", \"EXP\", \"LOG_LINEAR\", "
            "\"LINEAR\", \"NATIVE\", \"USER_DEFINE\", found \"dicom\"");
  EXPECT_EQ(complaintAfter("/simulated", 1), "simulated: expected true or false, found 1");
  EXPECT_EQ(complaintAfter("/patches", Json::object()),
            "patches: expected a list, found an object");
  EXPECT_EQ(complaintAfter("/monitor", Json::array()), "monitor: expected an object, found a list");
  EXPECT_EQ(complaintAfter("/result/lmin", nullptr), "result.lmin: expected a number, found null");
  EXPECT_EQ(complaintAfter("/warnings/0", 3), "warnings[0]: expected a text, found 3");
  EXPECT_EQ(complaintAfter("/versions/jars/0/sha256", "ABC"),
            "versions.jars[0].sha256: expected 64 lower-case hexadecimal digits, found \"ABC\"");
  EXPECT_EQ(complaintAfter("/startTime", "2026-02-30T00:00:00Z"),
            "startTime: expected a time such as 2026-11-21T08:25:49Z, found "
            "\"2026-02-30T00:00:00Z\"");
  EXPECT_EQ(complaintAfter("/result/error/code", 18446744073709551615ULL),
            "result.error.code: expected a whole number, found 18446744073709551615");
}

TEST(RunRecord, MissingAndUnknownMembersAreRefused) {
  Json json = good();
  json["target"].erase("lmax");
  EXPECT_EQ(complaintAbout(json), "target.lmax: the member is missing");
  EXPECT_EQ(complaintAfter("/target/lumax", 1.0), "target.lumax: no such member is known");
  EXPECT_EQ(complaintAfter("/surprise", 1.0), "surprise: no such member is known");
}

TEST(RunRecord, OtherVersionsAndOtherFilesAreRefused) {
  EXPECT_EQ(complaintAfter("/schemaVersion", 2),
            "schemaVersion: this program reads version 1, not 2");
  EXPECT_EQ(complaintAbout(Json::object()), "schemaVersion: the file is not a record of a run");
  EXPECT_EQ(complaintAbout(Json::array()), "the record: expected an object");
}

TEST(RunRecord, LevelMustBeThatOfTheComponents) {
  Json json = good();
  json["patches"][0]["level"] = 7;
  EXPECT_EQ(complaintAbout(json),
            "patches[0].level: the level 7 is not that of the components 255, 255, 255");
}

TEST(RunRecord, TextThatIsNoJsonIsRefusedWithItsPlace) {
  try {
    readRunRecord("{\n  \"schemaVersion\": 1,\n  oops\n}");
    FAIL();
  } catch (const RunRecordError& e) {
    EXPECT_NE(std::string(e.what()).find("line 3"), std::string::npos) << e.what();
    EXPECT_EQ(std::string(e.what()).rfind("not JSON: ", 0), 0U) << e.what();
  }
  EXPECT_THROW(readRunRecord(""), RunRecordError);
  EXPECT_THROW(readRunRecord(std::string(200000, '[')), RunRecordError);
}

TEST(RunRecord, NumbersThatJsonCannotWriteAreRefused) {
  RunRecord record = test::sampleCalibration();
  record.patches[5].luminance = std::numeric_limits<double>::quiet_NaN();
  try {
    writeRunRecord(record);
    FAIL();
  } catch (const RunRecordError& e) {
    EXPECT_STREQ(e.what(), "patches[5].luminance: the number is not finite");
  }
}

TEST(TextForm, CountsSecondsFrom1970) {
  EXPECT_EQ(secondsOf("1970-01-01T00:00:00Z"), 0.0);
  EXPECT_EQ(secondsOf("2026-11-21T08:25:49Z"), 1795249549.0);
  EXPECT_NEAR(*secondsOf("2000-02-29T12:00:00.25Z"), 951825600.25, 1e-6);
  for (const char* text : {"", "2026-11-21", "2026-11-21 08:25:49Z", "2026-11-21T08:25:49",
                           "2026-13-01T00:00:00Z", "2026-11-21T24:00:00Z", "2026-11-21T08:25:49.Z",
                           "2026-1a-21T08:25:49Z", "2026-11-21T08:25:49+Z"})
    EXPECT_FALSE(secondsOf(text)) << text;
}

std::vector<PatchResult> patches(const std::vector<int>& levels) {
  std::vector<PatchResult> list;
  for (const int level : levels) {
    PatchResult patch;
    patch.r = patch.g = patch.b = std::abs(level);
    if (level < 0) patch.g = patch.b = 0;  // a primary
    list.push_back(patch);
  }
  return list;
}

std::string rolesOf(std::vector<PatchResult> list) {
  assignCalibrationRoles(list);
  std::string text;
  for (const PatchResult& patch : list) text += nameOf(patch.role).substr(0, 2);
  return text;
}

TEST(PatchRoles, FollowTheOrderOfACalibration) {
  EXPECT_EQ(rolesOf(patches({255, 255, 0, 0, 255, -255, 0, 128, 255, 255, 0, 100, 200, 255})),
            "wawablblwhprgrgrgrotlililili");
}

TEST(PatchRoles, OneScaleAloneIsTheNativeOne) {
  EXPECT_EQ(rolesOf(patches({255, 0, 255, 0, 50, 100})), "wablwhgrgrgr");
  EXPECT_EQ(rolesOf(patches({255, 0, 255})), "wablwh");
  EXPECT_EQ(rolesOf({}), "");
}

TEST(PatchRoles, BlacksAndWhitesInPairsAreNoScale) {
  EXPECT_EQ(rolesOf(patches({0, 255, 0, 255})), "blwhblwh");
}

}  // namespace
}  // namespace kovctl
