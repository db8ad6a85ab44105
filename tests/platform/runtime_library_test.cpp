// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <fstream>

#include "platform/platform.h"
#include "tests/platform/temporary_folder.h"

namespace lumora::platform {
namespace {

namespace fs = std::filesystem;
using Answer = int (*)();

class PosixRuntimeLibrary : public testing::Test {
 protected:
  void place(const fs::path& below) const {
    fs::create_directories((folder.path / below).parent_path());
    fs::copy_file(L5KOV_LOADED_CODE, folder.path / below);
  }

  const TemporaryFolder folder;
};

TEST_F(PosixRuntimeLibrary, LiesWhereAJavaRuntimeOfThisSystemKeepsIt) {
  place("jre/lib/server/libjvm.so");
  RuntimeLibrary library = loadRuntimeLibrary(folder.composed("jre/bin/server/jvm.dll"));
  ASSERT_NE(library, nullptr);
  EXPECT_NE(findExport(library, "answer"), nullptr);
  freeRuntimeLibrary(library);
}

TEST_F(PosixRuntimeLibrary, IsNotLookedForUnderItsWindowsName) {
  place("jre/bin/server/jvm.dll");
  EXPECT_EQ(loadRuntimeLibrary(folder.composed("jre/bin/server/jvm.dll")), nullptr);
}

TEST_F(PosixRuntimeLibrary, AtAnotherPathIsLoadedFromThere) {
  place("other/name.so");
  EXPECT_NE(loadRuntimeLibrary(folder.composed("other/name.so")), nullptr);
}

TEST_F(PosixRuntimeLibrary, MissingIsNull) {
  EXPECT_EQ(loadRuntimeLibrary(folder.composed("jre/bin/server/jvm.dll")), nullptr);
}

// Its name is asked for, to see whether another runtime runs. CMakeLists.txt runs this test once
// more with a library where the name leads to.
TEST_F(PosixRuntimeLibrary, OfTheSameNameElsewhereIsNotLoaded) {
  constexpr const char* kWasLoaded = "L5KOV_TEST_RUNTIME_WAS_LOADED";
  ::unsetenv(kWasLoaded);
  if (::getenv("L5KOV_TEST_PLANTED") != nullptr) {
    // It would be noticed.
    EXPECT_EXIT(::dlopen("libjvm.so", RTLD_NOW);
                ::_exit(::getenv(kWasLoaded) != nullptr ? 0 : 1), testing::ExitedWithCode(0), "");
  }
  place("jre/lib/server/libjvm.so");
  EXPECT_NE(loadRuntimeLibrary(folder.composed("jre/bin/server/jvm.dll")), nullptr);
  EXPECT_EQ(::getenv(kWasLoaded), nullptr);
}

TEST_F(PosixRuntimeLibrary, ThatIsNoLibraryIsNull) {
  fs::create_directories(folder.path / "lib/server");
  std::ofstream(folder.path / "lib/server/libjvm.so") << "no library";
  EXPECT_EQ(loadRuntimeLibrary(folder.composed("bin/server/jvm.dll")), nullptr);
}

TEST_F(PosixRuntimeLibrary, MissingExportIsNull) {
  place("lib/server/libjvm.so");
  RuntimeLibrary library = loadRuntimeLibrary(folder.composed("bin/server/jvm.dll"));
  ASSERT_NE(library, nullptr);
  EXPECT_EQ(findExport(library, "JNI_CreateJavaVM"), nullptr);
}

// The virtual machine's own threads still run it when the process ends.
TEST_F(PosixRuntimeLibrary, StaysMappedAfterItWasGivenBack) {
  place("lib/server/libjvm.so");
  RuntimeLibrary library = loadRuntimeLibrary(folder.composed("bin/server/jvm.dll"));
  ASSERT_NE(library, nullptr);
  const auto answer = reinterpret_cast<Answer>(findExport(library, "answer"));
  EXPECT_EQ(answer(), 42);
  freeRuntimeLibrary(library);
  EXPECT_EQ(answer(), 43);
}

TEST_F(PosixRuntimeLibrary, GivingNullBackIsNothing) { freeRuntimeLibrary(nullptr); }

}  // namespace
}  // namespace lumora::platform
