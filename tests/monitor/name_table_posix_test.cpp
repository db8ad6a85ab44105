// SPDX-License-Identifier: MIT
// Name table files that a POSIX system can have: pipes, files that may not be read.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>

#include "tests/monitor/name_table_fixture.h"

namespace {

using namespace kovtest;

constexpr uid_t kNobody = 65534;

// The superuser may read everything; as another user a process may not.
class AsOrdinaryUser {
 public:
  AsOrdinaryUser() {
    if (root) changed = ::seteuid(kNobody) == 0;
  }
  ~AsOrdinaryUser() {
    if (root && ::seteuid(0) != 0) ADD_FAILURE() << "cannot become the superuser again";
  }
  bool isOrdinary() const { return !root || changed; }

 private:
  const bool root = ::geteuid() == 0;
  bool changed = false;
};

TEST_F(NameTable, PipeWithoutAWriterGivesNoPackageAtOnce) {
  ASSERT_EQ(::mkfifo(file.c_str(), 0666), 0);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST_F(NameTable, UnreadableFileGivesNoPackage) {
  write(table(package("Alpha", model("L5-X240"))));
  ASSERT_EQ(::chmod(jvm.root().c_str(), 0755), 0);
  ASSERT_EQ(::chmod(file.c_str(), 0), 0);
  {
    const AsOrdinaryUser user;
    if (!user.isOrdinary()) GTEST_SKIP() << "cannot give up the superuser's rights";
    EXPECT_EQ(packageOf("L5-X240"), "noPackage");
    ASSERT_EQ(::access(file.c_str(), F_OK), 0) << "the file itself can be seen";
  }
  ASSERT_EQ(::chmod(file.c_str(), 0644), 0);
  const AsOrdinaryUser user;
  EXPECT_EQ(packageOf("L5-X240"), "Alpha") << "what was missing was the right to read";
}

TEST_F(NameTable, LinkToTheFileIsFollowed) {
  const std::filesystem::path real = file.parent_path() / "real.xml";
  write(table(package("Alpha", model("L5-X240"))));
  std::filesystem::rename(file, real);
  std::filesystem::create_symlink(real, file);
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
  std::filesystem::remove(real);
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
}

TEST_F(NameTable, FolderIsTakenWithAndWithoutATrailingSeparator) {
  write(table(package("Alpha", model("L5-X240"))));
  ::setenv("L5KOV_COMMON_APPDATA", (jvm.root().string() + "/").c_str(), 1);
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
  ::setenv("L5KOV_COMMON_APPDATA", jvm.root().c_str(), 1);
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
}

}  // namespace
