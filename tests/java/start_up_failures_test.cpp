// SPDX-License-Identifier: MIT
// Runtime libraries that are missing, broken or out of reach. Each test lays out an
// application-data folder of its own, so the fake runtime takes no part unless a test places it.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "l5kov.h"
#include "tests/java/threads.h"
#include "tests/support/plugin_folder.h"

namespace {

namespace fs = std::filesystem;
using kovtest::messageOf;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::DeleteJavaVM;
using lumora::kov::java::Env;

constexpr const char* kFailed = "Failed to create Java VM";
constexpr const char* kVariable = "L5KOV_COMMON_APPDATA";

class StartUpFailure : public testing::Test {
 protected:
  ~StartUpFailure() override { kovtest::system::removeRoot(root); }

  fs::path libraryFile() const {
    return root / "ORVA/Lumora5/plugins/com.orva.lumora.jre/jre/lib/server/libjvm.so";
  }
  void place(const fs::path& runtime) const {
    fs::create_directories(libraryFile().parent_path());
    fs::copy_file(runtime, libraryFile());
  }
  static void expectFailure() {
    EXPECT_EQ(messageOf<std::runtime_error>([] { Env(); }), kFailed);
  }

  const fs::path root = kovtest::system::makeRoot();
};

TEST_F(StartUpFailure, MissingRuntimeLibraryThrowsOnEveryCall) {
  expectFailure();
  expectFailure();
  kovtest::inThread([] { expectFailure(); });
}

TEST_F(StartUpFailure, FailedLoadIsNotRetriedEvenAfterTheFileAppears) {
  expectFailure();
  place(kovtest::PluginFolder::get().libraryFile());
  ::setenv(kVariable, root.c_str(), 1);
  expectFailure();
}

// The counterpart: without a failure before it, the same file serves.
TEST_F(StartUpFailure, FileThatIsThereInTimeStarts) {
  place(kovtest::PluginFolder::get().libraryFile());
  ::setenv(kVariable, root.c_str(), 1);
  EXPECT_TRUE(Env()->createdVm());
}

TEST_F(StartUpFailure, FileThatIsNoLibraryThrows) {
  fs::create_directories(libraryFile().parent_path());
  std::ofstream(libraryFile()) << "no library";
  expectFailure();
}

TEST_F(StartUpFailure, FolderInPlaceOfTheLibraryThrows) {
  fs::create_directories(libraryFile());
  expectFailure();
}

TEST_F(StartUpFailure, LibraryWithoutTheExportsThrows) {
  place(L5KOV_RUNTIME_no_exports);
  expectFailure();
  expectFailure();
}

TEST_F(StartUpFailure, LibraryWithoutTheCreationExportThrows) {
  place(L5KOV_RUNTIME_search_only);
  expectFailure();
}

TEST_F(StartUpFailure, LibraryWithoutTheSearchExportIsAskedToCreateEachTime) {
  place(L5KOV_RUNTIME_create_only);
  expectFailure();
  expectFailure();
  void* const library = ::dlopen(libraryFile().c_str(), RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(library, nullptr);
  const auto timesAsked = reinterpret_cast<int (*)()>(::dlsym(library, "timesAsked"));
  EXPECT_EQ(timesAsked(), 2);
}

TEST_F(StartUpFailure, DeleteJavaVmDoesNothingWhenTheLibraryIsMissing) {
  DeleteJavaVM();
  expectFailure();
  DeleteJavaVM();
}

TEST_F(StartUpFailure, DeleteJavaVmDoesNothingWhenTheSearchExportIsMissing) {
  place(L5KOV_RUNTIME_create_only);
  DeleteJavaVM();
}

TEST_F(StartUpFailure, PassesThroughTheExportedOperationsUnchanged) {
  EXPECT_EQ(messageOf<std::runtime_error>([] { KovMonitorManager::get().find(); }), kFailed);
  EXPECT_EQ(messageOf<std::runtime_error>([] { KovMonitorManager::get().getMonitors(); }), kFailed);
}

class StartUpPath : public StartUpFailure {
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
