// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <stdlib.h>

#include "platform/platform.h"
#include "platform/posix/native_path.h"

namespace lumora::platform {
namespace {

constexpr const char* kVariable = "L5KOV_COMMON_APPDATA";

TEST(PosixCommonAppDataFolder, IsTheVariablesTextUnchanged) {
  ::setenv(kVariable, "/srv/data/", 1);
  EXPECT_EQ(commonAppDataFolder(), "/srv/data/");
}

TEST(PosixCommonAppDataFolder, IsUsrShareWithoutTheVariable) {
  ::unsetenv(kVariable);
  EXPECT_EQ(commonAppDataFolder(), "/usr/share");
}

TEST(PosixCommonAppDataFolder, IsUsrShareWhenTheVariableIsEmpty) {
  ::setenv(kVariable, "", 1);
  EXPECT_EQ(commonAppDataFolder(), "/usr/share");
}

TEST(PosixCommonAppDataFolder, FollowsTheVariable) {
  ::setenv(kVariable, "/a", 1);
  EXPECT_EQ(commonAppDataFolder(), "/a");
  ::setenv(kVariable, "/b", 1);
  EXPECT_EQ(commonAppDataFolder(), "/b");
}

TEST(PosixNativePath, TurnsEveryBackslash) {
  EXPECT_EQ(posix::nativePath("\\a\\b\\\\c/d"), "/a/b//c/d");
  EXPECT_EQ(posix::nativePath(""), "");
}

TEST(PosixProcess, LeavesNoLocksBehindAtItsEnd) { EXPECT_FALSE(processIsEnding()); }

}  // namespace
}  // namespace lumora::platform
