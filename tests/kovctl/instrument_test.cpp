// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <csignal>
#include <limits>

#include "failure.h"
#include "instrument/argyll_instrument.h"
#include "instrument/icc_instrument.h"
#include "instrument/tool_process.h"

namespace kovctl {
namespace {

TEST(Spotread, ReadsTheResult) {
  const auto reading = parseSpotread(
      "\n Result is XYZ: 95.047000 100.000000 108.883000, D50 Lab: 100.0 -2.3 -19.3\n");
  ASSERT_TRUE(reading);
  EXPECT_DOUBLE_EQ(reading->luminance, 100.0);
  ASSERT_TRUE(reading->chromaticity);
  EXPECT_NEAR(reading->chromaticity->x, 0.31272, 1e-5);
  EXPECT_NEAR(reading->chromaticity->y, 0.32903, 1e-5);
}

TEST(Spotread, HasNoColourInTheDark) {
  const auto reading = parseSpotread("Result is XYZ: 0.000000 0.000000 0.000000, D50 Lab: 0 0 0\n");
  ASSERT_TRUE(reading);
  EXPECT_EQ(reading->luminance, 0.0);
  EXPECT_FALSE(reading->chromaticity);
}

TEST(Spotread, HasNoColourWhereNoiseGivesOneThatLightCannotHave) {
  for (const char* xyz : {"0.02 0.01 -0.02", "-0.01 0.02 0.03", "0.02 -0.01 0.03",
                          "-0.02 -0.01 0.01", "0.01 0.00 -0.009999"}) {
    const auto reading = parseSpotread(std::string("Result is XYZ: ") + xyz + ", D50 Lab: 0 0 0\n");
    ASSERT_TRUE(reading) << xyz;
    EXPECT_FALSE(reading->chromaticity) << xyz;
  }
}

TEST(Colours, OfNumbersThatAreNone) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(isColour({nan, 0.3}));
  EXPECT_FALSE(isColour({0.3, nan}));
  EXPECT_FALSE(colourOf({nan, 1.0, 1.0}));
  EXPECT_TRUE(isColour({0.0, 1.0}));
}

TEST(Spotread, TakesNothingElseForAResult) {
  EXPECT_FALSE(parseSpotread("Spot read failed due to misread"));
  EXPECT_FALSE(parseSpotread("Result is XYZ: none"));
  EXPECT_FALSE(parseSpotread("Result is XYZ: 95.0 100.0.108 8, D50 Lab"));
}

TEST(Icclu, ReadsALineOfThreeNumbers) {
  EXPECT_EQ(parseIcclu("0.412383 0.212642 0.019324\n"),
            (std::array<double, 3>{0.412383, 0.212642, 0.019324}));
  EXPECT_FALSE(parseIcclu("icclu: Error - something"));
  EXPECT_FALSE(parseIcclu("0.4 0.2"));
  EXPECT_FALSE(parseIcclu("0.4 0.2 0.1 clipped"));
  EXPECT_FALSE(parseIcclu("0.412383 0.21260.019324"));  // two numbers run together
  EXPECT_FALSE(parseIcclu("0.4 0.2 nan"));
  EXPECT_FALSE(parseIcclu("0.4 0.2 1e999"));
}

TEST(LastLine, IsTheLastOneWithText) {
  EXPECT_EQ(lastLine("one\n two \n\n"), "two");
  EXPECT_EQ(lastLine("one\rtwo"), "two");
  EXPECT_EQ(lastLine(" \n"), "");
}

TEST(Instruments, AreChosenByName) {
  InstrumentOptions options;
  for (const char* choice : {"", "spectro", "icc:", "Sim"}) {
    options.choice = choice;
    EXPECT_THROW(makeInstrument(options), Failure) << choice;
  }
  options.choice = "argyll";
  EXPECT_FALSE(makeInstrument(options)->drawsItself());
}

Failure failureOf(ToolProcess& tool, double seconds) {
  try {
    tool.readUntil([](std::string_view) { return false; }, seconds, "answer");
  } catch (const Failure& failure) {
    return failure;
  }
  return Failure(ExitCode::kOk, "nothing failed");
}

TEST(ToolProcess, IsNotWaitedForWithoutEnd) {
  ToolProcess tool({"sleep", "60"}, [] { return false; });
  const Failure failure = failureOf(tool, 0.2);
  EXPECT_EQ(failure.code, ExitCode::kInstrument);
  EXPECT_STREQ(failure.what(), "sleep gave no answer within 0.2 s");
}

TEST(ToolProcess, SaysWhatAProgramSaidAtItsEnd) {
  ToolProcess tool({"sh", "-c", "echo no port >&2; exit 1"}, [] { return false; });
  EXPECT_STREQ(failureOf(tool, 30.0).what(), "sh ended instead of giving its answer: no port");
}

TEST(ToolProcess, SaysWhatAProgramSaidThatTakesNoQuestion) {
#ifdef SIGPIPE
  std::signal(SIGPIPE, SIG_IGN);  // as kovctl does
#endif
  ToolProcess tool({"sh", "-c", "exec <&-; echo no profile >&2; exit 1"}, [] { return false; });
  try {
    for (;;) tool.send("0 0 0\n");
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.code, ExitCode::kInstrument);
    EXPECT_STREQ(failure.what(), "sh has ended: no profile");
  }
}

TEST(ToolProcess, EndsAWaitWhenInterrupted) {
  ToolProcess tool({"sleep", "60"}, [] { return true; });
  EXPECT_STREQ(failureOf(tool, 60.0).what(), "sleep was interrupted");
}

TEST(ToolProcess, SaysWhichPackageIsMissing) {
  try {
    ToolProcess tool({"kovctl-no-such-program"}, [] { return false; });
    FAIL() << "started";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.code, ExitCode::kInstrument);
    ASSERT_FALSE(failure.details.empty());
    EXPECT_NE(failure.details[0].find("argyll"), std::string::npos);
  }
}

}  // namespace
}  // namespace kovctl
