// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_JAVA_START_UP_FIXTURE_H_
#define L5KOV_TESTS_JAVA_START_UP_FIXTURE_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "l5kov.h"
#include "tests/java/threads.h"
#include "tests/support/plugin_folder.h"

namespace kovtest {

inline constexpr const char* kStartUpFailed = "Failed to create Java VM";

// An application-data folder of the test's own, empty at first, which libl5kov is told to use.
class StartUpFailure : public testing::Test {
 protected:
  ~StartUpFailure() override { system::removeRoot(root); }

  std::filesystem::path libraryFile() const {
    return root / "ORVA/Lumora5/plugins/com.orva.lumora.jre" / system::runtimeLibrary();
  }
  void place(const std::filesystem::path& runtime) const {
    std::filesystem::create_directories(libraryFile().parent_path());
    std::filesystem::copy_file(runtime, libraryFile());
  }
  static void expectFailure() {
    EXPECT_EQ(messageOf<std::runtime_error>([] { lumora::kov::java::Env(); }), kStartUpFailed);
  }

  const std::filesystem::path root = system::makeRoot();
};

}  // namespace kovtest

#endif  // L5KOV_TESTS_JAVA_START_UP_FIXTURE_H_
