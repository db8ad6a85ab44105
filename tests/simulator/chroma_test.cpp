// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>

#include "colour_tmp2xy.h"

namespace simtest {
namespace {

constexpr unsigned char kUntouched = 0xA5;

struct Answer {
  int code;
  double x;
  double y;
  bool restUntouched;
};

/// Asks with records that begin at an odd address.
Answer ask(std::int32_t kelvin) {
  std::array<unsigned char, 145> in{};
  std::array<unsigned char, 145> out{};
  out.fill(kUntouched);
  std::memcpy(in.data() + 1 + 96, &kelvin, sizeof kelvin);
  Answer answer{};
  answer.code = Colour_tmp2xy(out.data() + 1, in.data() + 1);
  std::memcpy(&answer.x, out.data() + 1 + 80, sizeof answer.x);
  std::memcpy(&answer.y, out.data() + 1 + 88, sizeof answer.y);
  answer.restUntouched = true;
  for (std::size_t i = 0; i < out.size(); ++i) {
    if ((i < 81 || i >= 97) && out[i] != kUntouched) {
      answer.restUntouched = false;
    }
  }
  return answer;
}

void expectWhite(std::int32_t kelvin, double x, double y) {
  const Answer answer = ask(kelvin);
  EXPECT_EQ(COLOUR_OK, answer.code) << kelvin;
  EXPECT_NEAR(x, answer.x, 1e-6) << kelvin;
  EXPECT_NEAR(y, answer.y, 1e-6) << kelvin;
  EXPECT_TRUE(answer.restUntouched) << kelvin;
}

TEST(ColourTemperature, GivesDaylight) {
  expectWhite(5000, 0.345741, 0.358666);
  expectWhite(6500, 0.312779, 0.329183);
  expectWhite(9300, 0.283145, 0.297113);
}

TEST(ColourTemperature, IsSteadyWhereTheFormulaChanges) {
  const Answer below = ask(7000);
  const Answer above = ask(7001);
  EXPECT_NEAR(below.x, above.x, 2e-5);
  EXPECT_NEAR(below.y, above.y, 2e-5);
}

TEST(ColourTemperature, OutsideItsRangeTheNearestEndAnswers) {
  const Answer lowest = ask(4000);
  const Answer highest = ask(25000);
  EXPECT_EQ(COLOUR_OK, lowest.code);
  EXPECT_EQ(COLOUR_OK, highest.code);
  for (const std::int32_t kelvin : {3999, 0, -1, std::numeric_limits<std::int32_t>::min()}) {
    const Answer answer = ask(kelvin);
    EXPECT_EQ(COLOUR_CLAMPED, answer.code) << kelvin;
    EXPECT_EQ(lowest.x, answer.x) << kelvin;
    EXPECT_EQ(lowest.y, answer.y) << kelvin;
  }
  for (const std::int32_t kelvin : {25001, std::numeric_limits<std::int32_t>::max()}) {
    const Answer answer = ask(kelvin);
    EXPECT_EQ(COLOUR_CLAMPED, answer.code) << kelvin;
    EXPECT_EQ(highest.x, answer.x) << kelvin;
    EXPECT_EQ(highest.y, answer.y) << kelvin;
  }
}

TEST(ColourTemperature, NullRecordsAreRefused) {
  std::array<unsigned char, 144> record{};
  EXPECT_EQ(COLOUR_BAD_ARGUMENT, Colour_tmp2xy(nullptr, record.data()));
  EXPECT_EQ(COLOUR_BAD_ARGUMENT, Colour_tmp2xy(record.data(), nullptr));
}

}  // namespace
}  // namespace simtest
