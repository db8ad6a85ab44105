// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "output/progress.h"
#include "output/table.h"

namespace kovctl {
namespace {

TEST(Table, AlignsByCharactersAndLeavesNoBlanksAtLineEnds) {
  Table table({{"Name"}, {"Value", Table::Align::kRight}, {"Note"}});
  table.add({"größe", "7", "a"});
  table.add({"x", "1234567", ""});
  EXPECT_EQ(table.text(),
            "Name     Value  Note\n"
            "größe        7  a\n"
            "x      1234567\n");
}

TEST(Table, CountsNoEscapeSequences) {
  EXPECT_EQ(displayWidth("\x1b[31mFAIL\x1b[0m"), 4U);
  EXPECT_EQ(displayWidth("cd/m²"), 5U);
  EXPECT_EQ(displayWidth("\x1b[31"), 0U);
}

TEST(Table, ListsProperties) {
  EXPECT_EQ(properties({{"Model", "A"}, {"Serial number", "1"}}),
            "Model          A\nSerial number  1\n");
}

ProgressState someState() {
  ProgressState state;
  state.title = "Calibrating OR-C321:30210045";
  state.patch = 12;
  state.patches = 87;
  state.isEstimate = true;
  state.color = "level 128";
  state.luminance = 52.3456;
  state.fraction = 0.25;
  state.secondsSpent = 30.0;
  return state;
}

TEST(ProgressLine, HasBarCountLevelLuminanceAndEta) {
  EXPECT_EQ(
      progressLine(someState(), 120),
      "Calibrating OR-C321:30210045  [#####...............]  25 %  patch 12 of ~87  level 128  "
      "52.35 cd/m²  ETA 1:30 min");
}

TEST(ProgressLine, FitsNarrowTerminals) {
  EXPECT_EQ(progressLine(someState(), 80),
            "[#....]  25 %  patch 12 of ~87  level 128  52.35 cd/m²  ETA 1:30 min");
  for (int width = 1; width < 130; ++width) {
    EXPECT_LE(displayWidth(progressLine(someState(), width)), static_cast<std::size_t>(width));
  }
}

TEST(ProgressLine, GuessesNoTimeAtTheBeginning) {
  ProgressState state = someState();
  state.fraction = 0.0;
  EXPECT_EQ(progressLine(state, 200).find("ETA"), std::string::npos);
}

TEST(ProgressLine, ShowsDurationsForPeople) {
  EXPECT_EQ(durationText(0.4), "0 s");
  EXPECT_EQ(durationText(59.4), "59 s");
  EXPECT_EQ(durationText(59.6), "1:00 min");
  EXPECT_EQ(durationText(3605), "60:05 min");
}

TEST(Patch, KnowsItsLevel) {
  EXPECT_EQ(Patch::gray(37).level(), 37);
  EXPECT_EQ((Patch{1.0, 128 / 255.0, 0.0}.bytes()), (std::array<int, 3>{255, 128, 0}));
  EXPECT_EQ((Patch{1.0, 0.0, 0.0}.level()), std::nullopt);
}

}  // namespace
}  // namespace kovctl
