// SPDX-License-Identifier: MIT
// Runtime libraries that are missing, broken or out of reach. Each test lays out an
// application-data folder of its own, so the fake runtime takes no part unless a test places it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "tests/java/start_up_fixture.h"

namespace {

namespace fs = std::filesystem;
using kovtest::kStartUpFailed;
using kovtest::messageOf;
using kovtest::StartUpFailure;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::DeleteJavaVM;
using lumora::kov::java::Env;

TEST_F(StartUpFailure, MissingRuntimeLibraryThrowsOnEveryCall) {
  expectFailure();
  expectFailure();
  kovtest::inThread([] { expectFailure(); });
}

TEST_F(StartUpFailure, FailedLoadIsNotRetriedEvenAfterTheFileAppears) {
  expectFailure();
  place(kovtest::PluginFolder::get().libraryFile());
  kovtest::system::setRoot(root);
  expectFailure();
}

// The counterpart: without a failure before it, the same file serves.
TEST_F(StartUpFailure, FileThatIsThereInTimeStarts) {
  place(kovtest::PluginFolder::get().libraryFile());
  kovtest::system::setRoot(root);
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
  void* const timesAsked = kovtest::system::loadedSymbol(libraryFile(), "timesAsked");
  ASSERT_NE(timesAsked, nullptr);
  EXPECT_EQ(reinterpret_cast<int (*)()>(timesAsked)(), 2);
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
  EXPECT_EQ(messageOf<std::runtime_error>([] { KovMonitorManager::get().find(); }), kStartUpFailed);
  EXPECT_EQ(messageOf<std::runtime_error>([] { KovMonitorManager::get().getMonitors(); }),
            kStartUpFailed);
}

}  // namespace
