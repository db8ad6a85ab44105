// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/platform.h"

namespace lumora::platform {
namespace {

TEST(PosixRuntimeOption, TurnsBackslashesAndSemicolons) {
  EXPECT_EQ(runtimeOption("-Dx=\\a\\b;\\c\\d"), "-Dx=/a/b:/c/d");
}

// To the virtual machine an empty class-path entry is the current folder.
TEST(PosixRuntimeOption, DropsEmptyEntriesWhereverTheyStand) {
  EXPECT_EQ(runtimeOption("-Dx=a;"), "-Dx=a");
  EXPECT_EQ(runtimeOption("-Dx=;a"), "-Dx=a");
  EXPECT_EQ(runtimeOption("-Dx=a;;b"), "-Dx=a:b");
  EXPECT_EQ(runtimeOption("-Dx=;;a;;;b;;"), "-Dx=a:b");
  EXPECT_EQ(runtimeOption("-Dx=;"), "-Dx=");
}

TEST(PosixRuntimeOption, KeepsTheNameBeforeTheValue) {
  EXPECT_EQ(runtimeOption("-Djava.class.path="), "-Djava.class.path=");
  EXPECT_EQ(runtimeOption("-Dx=a=b;c"), "-Dx=a=b:c");
  EXPECT_EQ(runtimeOption("-ea"), "-ea");
  EXPECT_EQ(runtimeOption(""), "");
}

TEST(PosixRuntimeOption, OfTheClassPathAsTheLibraryComposesIt) {
  EXPECT_EQ(runtimeOption("-Djava.class.path=\\p\\d\\external\\dataImport.jar;"
                          "\\p\\k\\external\\KOVLibrary.jar;"),
            "-Djava.class.path=/p/d/external/dataImport.jar:/p/k/external/KOVLibrary.jar");
}

TEST(PosixRuntimeOption, OfTheNativeLibraryPathAsTheLibraryComposesIt) {
  EXPECT_EQ(runtimeOption("-Djna.library.path=\\p\\jre\\bin;"), "-Djna.library.path=/p/jre/bin");
}

}  // namespace
}  // namespace lumora::platform
