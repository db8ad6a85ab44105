// SPDX-License-Identifier: MIT
#include "java/utf8.h"

#include <gtest/gtest.h>

namespace lumora::kov::java {
namespace {

using std::string_view_literals::operator""sv;

TEST(Utf8, AcceptsTheFirstAndLastOfEachLength) {
  EXPECT_TRUE(isUtf8(""));
  EXPECT_TRUE(isUtf8("\x00"sv));
  EXPECT_TRUE(isUtf8("\x7F"));
  EXPECT_TRUE(isUtf8("\xC2\x80"));
  EXPECT_TRUE(isUtf8("\xDF\xBF"));
  EXPECT_TRUE(isUtf8("\xE0\xA0\x80"));
  EXPECT_TRUE(isUtf8("\xEF\xBF\xBF"));
  EXPECT_TRUE(isUtf8("\xF0\x90\x80\x80"));
  EXPECT_TRUE(isUtf8("\xF4\x8F\xBF\xBF"));
}

TEST(Utf8, AcceptsTheNeighboursOfTheSurrogates) {
  EXPECT_TRUE(isUtf8("\xED\x9F\xBF"));
  EXPECT_TRUE(isUtf8("\xEE\x80\x80"));
}

TEST(Utf8, RejectsSurrogates) {
  EXPECT_FALSE(isUtf8("\xED\xA0\x80"));
  EXPECT_FALSE(isUtf8("\xED\xBF\xBF"));
}

TEST(Utf8, RejectsOverlongForms) {
  EXPECT_FALSE(isUtf8("\xC0\x80"));
  EXPECT_FALSE(isUtf8("\xC1\xBF"));
  EXPECT_FALSE(isUtf8("\xE0\x9F\xBF"));
  EXPECT_FALSE(isUtf8("\xF0\x8F\xBF\xBF"));
}

TEST(Utf8, RejectsWhatLiesBeyondTheLastCodePoint) {
  EXPECT_FALSE(isUtf8("\xF4\x90\x80\x80"));
  EXPECT_FALSE(isUtf8("\xF5\x80\x80\x80"));
  EXPECT_FALSE(isUtf8("\xFF"));
}

TEST(Utf8, RejectsStrayAndMissingContinuations) {
  EXPECT_FALSE(isUtf8("\x80"));
  EXPECT_FALSE(isUtf8("\xBF"));
  EXPECT_FALSE(isUtf8("\xC3"));
  EXPECT_FALSE(isUtf8("\xE6\xBC"));
  EXPECT_FALSE(isUtf8("\xF0\x9F\x98"));
  EXPECT_FALSE(isUtf8("\xE6\xBC\x41"));
  EXPECT_FALSE(isUtf8("\xF0\x9F\x98\x41"));
  EXPECT_FALSE(isUtf8("\xC3\xC3"));
}

TEST(Utf8, LooksAtTheWholeText) {
  EXPECT_TRUE(isUtf8("a\xC3\xA9z\xE6\xBC\xA2\xF0\x9F\x98\x80!"));
  EXPECT_FALSE(isUtf8("a\xC3\xA9z\xE6\xBC\xA2\xF0\x9F\x98\x80!\xFE"));
}

}  // namespace
}  // namespace lumora::kov::java
