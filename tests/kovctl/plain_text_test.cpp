// SPDX-License-Identifier: MIT
#include "output/plain_text.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "output/console.h"
#include "output/table.h"

namespace kovctl {
namespace {

const std::string kShown = "\xEF\xBF\xBD";

std::string utf8(unsigned number) {
  const auto byte = [](unsigned bits) { return static_cast<char>(bits); };
  if (number < 0x80) return {byte(number)};
  if (number < 0x800) return {byte(0xC0 | number >> 6U), byte(0x80 | (number & 0x3FU))};
  return {byte(0xE0 | number >> 12U), byte(0x80 | (number >> 6U & 0x3FU)),
          byte(0x80 | (number & 0x3FU))};
}

// Control characters (Cc), and those with the property Bidi_Control by Unicode's PropList.txt.
bool isObeyed(unsigned number) {
  return number < 0x20 || (number >= 0x7F && number <= 0x9F) || number == 0x061C ||
         number == 0x200E || number == 0x200F || (number >= 0x202A && number <= 0x202E) ||
         (number >= 0x2066 && number <= 0x2069);
}

TEST(PlainText, ReplacesWhatATerminalObeysAndNothingElse) {
  for (unsigned number = 0; number < 0x10000; ++number) {
    if (number >= 0xD800 && number <= 0xDFFF) continue;
    const std::string text = "a" + utf8(number) + "b";
    ASSERT_EQ(plainLine(text), isObeyed(number) ? "a" + kShown + "b" : text) << number;
  }
  EXPECT_EQ(plainLine("\xF0\x9F\x98\x80"), "\xF0\x9F\x98\x80");
  EXPECT_EQ(plainLine(""), "");
}

TEST(PlainText, KeepsLineFeedsAndTabsOfOnesOwn) {
  EXPECT_EQ(plainText("a\tb\n\x1b[0m\r\n"), "a\tb\n" + kShown + "[0m" + kShown + "\n");
  EXPECT_EQ(plainLine("a\tb\n"), "a" + kShown + "b" + kShown);
}

TEST(PlainText, ReplacesEachByteThatIsNoUtf8) {
  EXPECT_EQ(plainLine("\x9B"), kShown);
  EXPECT_EQ(plainLine("a\xFF"
                      "b"),
            "a" + kShown + "b");
  EXPECT_EQ(plainLine("\xC0\x9B"), kShown + kShown) << "overlong";
  EXPECT_EQ(plainLine("\xED\xA0\x80"), kShown + kShown + kShown) << "surrogate";
  EXPECT_EQ(plainLine("\xE2\x80"), kShown + kShown) << "cut off";
  EXPECT_EQ(plainLine("\xF4\x90\x80\x80"), kShown + kShown + kShown + kShown) << "too large";
}

TEST(PlainText, EscapesInJsonAndChangesNoValue) {
  std::string text;
  for (unsigned number = 0; number < 0x3000; ++number) text += utf8(number);
  const std::string json = plainJson(nlohmann::json{text}.dump());
  EXPECT_EQ(nlohmann::json::parse(json).at(0), text);
  EXPECT_EQ(plainLine(json), json);
  EXPECT_EQ(plainJson("{\"a\": \"\x7F\xC2\x9B\xE2\x80\xAE\"}"),
            "{\"a\": \"\\u007f\\u009b\\u202e\"}");
}

TEST(PlainText, KeepsAResultsLineOneLine) {
  testing::internal::CaptureStdout();
  Console({}).printLine("OR-C321\nPASS: forged\t\x1b[0m");
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "OR-C321" + kShown + "PASS: forged" + kShown + kShown + "[0m\n");
}

TEST(PlainText, HoldsForCellsAndProperties) {
  Table table({{"A"}, {"B"}});
  table.add({"\x1b[31mx", "y\nz"});
  EXPECT_EQ(table.text(), "A       B\n" + kShown + "[31mx  y" + kShown + "z\n");
  EXPECT_EQ(properties({{"A", "\x1b[2J\nB"}}), "A  " + kShown + "[2J" + kShown + "B\n");
}

}  // namespace
}  // namespace kovctl
