// SPDX-License-Identifier: MIT
// A Java runtime that is in the process already, because the host is a Java program.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "platform/platform.h"
#include "tests/platform/temporary_folder.h"

namespace lumora::platform {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOther = "other/lib/server/libjvm.so";
constexpr const char* kOwn = "own/lib/server/libjvm.so";
constexpr const char* kOwnComposed = "own/bin/server/jvm.dll";

class PosixAnotherRuntime : public testing::Test {
 protected:
  PosixAnotherRuntime() {
    place(L5KOV_LOADED_RUNTIME, kOther);
    place(L5KOV_LOADED_RUNTIME, kOwn);
  }
  // What the library has loaded stays; it runs no machine any more, so the next test is alone.
  ~PosixAnotherRuntime() override {
    if (running != nullptr) *running = 0;
  }
  void place(const char* library, const char* below) const {
    fs::create_directories((folder.path / below).parent_path());
    fs::copy_file(library, folder.path / below, fs::copy_options::overwrite_existing);
  }
  // As the host does; it runs so many virtual machines.
  void* load(const char* below, int machines) {
    void* const library = ::dlopen((folder.path / below).c_str(), RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(library, nullptr) << ::dlerror();
    running = static_cast<int*>(::dlsym(library, "runningMachines"));
    if (running != nullptr) *running = machines;
    return library;
  }
  RuntimeLibrary loadOwn() const { return loadRuntimeLibrary(folder.composed(kOwnComposed)); }

  const TemporaryFolder folder;
  int* running = nullptr;
};

TEST_F(PosixAnotherRuntime, ThatRunsIsRefusedASecondOneBesideIt) {
  load(kOther, 1);
  EXPECT_EQ(loadOwn(), nullptr);
  // Refused before it was loaded, not after.
  EXPECT_EQ(::dlopen((folder.path / kOwn).c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST_F(PosixAnotherRuntime, WithoutAMachineIsNoneThatRuns) {
  void* const other = load(kOther, 0);
  const RuntimeLibrary own = loadOwn();
  ASSERT_NE(own, nullptr);
  EXPECT_NE(own, other);
}

TEST_F(PosixAnotherRuntime, OfTheSameFileIsNoOther) {
  void* const loaded = load(kOwn, 1);
  EXPECT_EQ(loadOwn(), loaded);
}

TEST_F(PosixAnotherRuntime, OfTheSameFileUnderAnotherPathIsNoOther) {
  fs::create_directory_symlink(folder.path / "own", folder.path / "link");
  void* const loaded = load("link/lib/server/libjvm.so", 1);
  EXPECT_EQ(loadOwn(), loaded);
}

TEST_F(PosixAnotherRuntime, ThatCannotBeAskedIsNone) {
  // A library of that name which is no Java runtime at all.
  place(L5KOV_LOADED_CODE, kOther);
  load(kOther, 1);
  EXPECT_NE(loadOwn(), nullptr);
}

}  // namespace
}  // namespace lumora::platform
