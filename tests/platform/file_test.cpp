// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "platform/platform.h"
#include "tests/platform/temporary_folder.h"

namespace lumora::platform {
namespace {

class PosixOpenFile : public testing::Test {
 protected:
  const TemporaryFolder folder;
};

TEST_F(PosixOpenFile, ReadsTheBytesOfARegularFile) {
  std::ofstream(folder.path / "names.xml", std::ios::binary) << std::string("a\r\n\0z", 5);
  std::FILE* const file = openFile(folder.composed("names.xml"));
  ASSERT_NE(file, nullptr);
  char bytes[8] = {};
  EXPECT_EQ(std::string(bytes, std::fread(bytes, 1, sizeof bytes, file)),
            std::string("a\r\n\0z", 5));
  std::fclose(file);
}

TEST_F(PosixOpenFile, FollowsALinkToAFile) {
  std::ofstream(folder.path / "names.xml") << "x";
  std::filesystem::create_symlink("names.xml", folder.path / "link");
  std::FILE* const file = openFile(folder.composed("link"));
  ASSERT_NE(file, nullptr);
  std::fclose(file);
}

TEST_F(PosixOpenFile, IsNotInheritedByOtherPrograms) {
  std::ofstream(folder.path / "names.xml") << "x";
  std::FILE* const file = openFile(folder.composed("names.xml"));
  ASSERT_NE(file, nullptr);
  EXPECT_NE(::fcntl(::fileno(file), F_GETFD) & FD_CLOEXEC, 0);
  std::fclose(file);
}

TEST_F(PosixOpenFile, GivesNullForAMissingFile) {
  EXPECT_EQ(openFile(folder.composed("names.xml")), nullptr);
  EXPECT_EQ(openFile(""), nullptr);
}

TEST_F(PosixOpenFile, GivesNullForAFolder) { EXPECT_EQ(openFile(folder.composed("")), nullptr); }

TEST_F(PosixOpenFile, GivesNullForAPipeWithoutWaitingForAWriter) {
  ASSERT_EQ(::mkfifo((folder.path / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(openFile(folder.composed("pipe")), nullptr);
}

TEST_F(PosixOpenFile, GivesNullForADevice) { EXPECT_EQ(openFile("\\dev\\null"), nullptr); }

TEST_F(PosixOpenFile, LeavesNoDescriptorOpenForWhatItRefuses) {
  const int before = ::dup(0);
  ::close(before);
  for (int i = 0; i < 10; ++i) openFile(folder.composed(""));
  const int after = ::dup(0);
  ::close(after);
  EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace lumora::platform
