// SPDX-License-Identifier: MIT
// Name tables that were made to hurt whoever reads them.
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

#include "tests/monitor/name_table_fixture.h"

namespace {

using namespace kovtest;
using std::chrono::steady_clock;

// A gibibyte that is a hole but for its beginning: more than any table, less than the memory there
// is. The reader takes it into memory, which costs time; what stands before the hole counts.
TEST_F(NameTable, SparseGibibyteIsTheTableBeforeItsHole) {
  write(table(package("Alpha", model("L5-X240"))));
  std::filesystem::resize_file(file, std::uintmax_t{1} << 30);
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
}

TEST_F(NameTable, SparseGibibyteWithoutAWholeTableGivesNoPackage) {
  write("<KovMonitorName>" + package("Alpha", model("L5-X240")));
  std::filesystem::resize_file(file, std::uintmax_t{1} << 30);
  const auto begin = steady_clock::now();
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
  const std::chrono::duration<double> lasted = steady_clock::now() - begin;
  RecordProperty("milliseconds", static_cast<int>(lasted.count() * 1000));
}

TEST_F(NameTable, TenThousandLevelsGiveNoPackage) {
  const auto nested = [](int levels) {
    std::string deep;
    for (int i = 0; i < levels; ++i) deep += "<PackageInfo>";
    for (int i = 0; i < levels; ++i) deep += "</PackageInfo>";
    return deep;
  };
  write(table(package("Alpha", model("L5-X240")) + nested(50)));
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
  write(table(package("Alpha", model("L5-X240")) + nested(10000)));
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
}

// Entities that a document defines itself are not expanded, so none can grow.
TEST_F(NameTable, EntitiesOfTheDocumentAreLeftAsTheyAre) {
  std::string definitions = "<!ENTITY a0 \"ha\">";
  for (int i = 1; i <= 60; ++i) {
    const std::string before = "&a" + std::to_string(i - 1) + ";";
    definitions += "<!ENTITY a" + std::to_string(i) + " \"" + before + before + "\">";
  }
  write("<!DOCTYPE KovMonitorName [" + definitions + "]>" +
        table(package("&a60;", model("L5-X240"))).substr(39));
  const auto begin = steady_clock::now();
  const std::string package = packageOf("L5-X240");
  EXPECT_EQ(package, "&a60;");
  EXPECT_LT(steady_clock::now() - begin, std::chrono::seconds(5));
}

// A system entity names a file that must not come out as a package's name.
TEST_F(NameTable, EntitiesThatNameAFileAreNotRead) {
  const std::filesystem::path secret = file.parent_path() / "secret.txt";
  std::ofstream(secret) << "secret";
  write("<!DOCTYPE KovMonitorName [<!ENTITY f SYSTEM \"file://" + secret.string() + "\">]>" +
        table(package("&f;", model("L5-X240"))).substr(39));
  EXPECT_EQ(packageOf("L5-X240"), "&f;");
  std::filesystem::remove(secret);
}

// What stands in their place is tinyxml2's affair; the rest of the table is read.
TEST_F(NameTable, NumbersOfCharactersBeyondAllAreHarmless) {
  for (const char* reference :
       {"&#0;", "&#x110000;", "&#xFFFFFFFFF;", "&#-1;", "&#x;", "&#", "&;"}) {
    SCOPED_TRACE(reference);
    write(table(package(reference, model("L5-X240")) + package("Alpha", model("OR-C321"))));
    EXPECT_NE(packageOf("L5-X240"), "noPackage");
    EXPECT_EQ(packageOf("OR-C321"), "Alpha");
  }
}

}  // namespace
