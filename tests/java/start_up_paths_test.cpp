// SPDX-License-Identifier: MIT
// Application-data folders that a variable can name: not UTF-8, beyond ASCII, with separators at
// the end. What stands for them on Windows is in tests/windows.
#include <stdlib.h>

#include "tests/java/start_up_fixture.h"

namespace {

namespace fs = std::filesystem;
using kovtest::messageOf;
using lumora::kov::java::DeleteJavaVM;
using lumora::kov::java::Env;

constexpr const char* kVariable = "L5KOV_COMMON_APPDATA";

class StartUpPath : public kovtest::StartUpFailure {
 protected:
  static void expectBadConversion() {
    EXPECT_EQ(messageOf<std::range_error>([] { Env(); }), "bad conversion");
  }
};

TEST_F(StartUpPath, InvalidUtf8IsABadConversion) {
  ::setenv(kVariable, (root.string() + "/\xFF").c_str(), 1);
  expectBadConversion();
  expectBadConversion();
}

TEST_F(StartUpPath, OverlongUtf8IsABadConversion) {
  ::setenv(kVariable, (root.string() + "/\xC0\xAF").c_str(), 1);
  expectBadConversion();
}

TEST_F(StartUpPath, InvalidUtf8LeavesThroughDeleteJavaVmToo) {
  ::setenv(kVariable, "\x80", 1);
  EXPECT_EQ(messageOf<std::range_error>([] { DeleteJavaVM(); }), "bad conversion");
}

// The record of the loaded library is still unmade then, unlike after a failed load.
TEST_F(StartUpPath, BadConversionIsTriedAgain) {
  ::setenv(kVariable, "\xFF", 1);
  expectBadConversion();
  ::setenv(kVariable, kovtest::PluginFolder::get().root().c_str(), 1);
  EXPECT_TRUE(Env()->hasClasses());
}

TEST_F(StartUpPath, MayHoldCharactersBeyondAscii) {
  const fs::path foreign = root / "f\xC3\xA9 \xE6\xBC\xA2 \xF0\x9F\x98\x80";
  fs::create_directories(foreign);
  fs::copy(kovtest::PluginFolder::get().root(), foreign,
           fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  ::setenv(kVariable, foreign.c_str(), 1);
  EXPECT_TRUE(Env()->hasClasses());
}

TEST_F(StartUpPath, SeparatorsAtTheEndOfTheFolderDoNotCount) {
  ::setenv(kVariable, (kovtest::PluginFolder::get().root().string() + "/").c_str(), 1);
  Env();
  const std::string root = kovtest::PluginFolder::get().root().string();
  EXPECT_EQ(kovtest::PluginFolder::get().runtime().vmArguments()->options.at(1),
            "-Djna.library.path=" + root + "/ORVA/Lumora5/plugins/com.orva.lumora.jre/jre/bin");
}

}  // namespace
