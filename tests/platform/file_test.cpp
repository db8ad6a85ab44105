// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <optional>
#include <string>

#include "platform/platform.h"
#include "tests/platform/temporary_folder.h"

namespace lumora::platform {
namespace {

class PosixFile : public testing::Test {
 protected:
  std::optional<std::string> contentOf(const std::string& below) const {
    return textOf(folder.composed(below));
  }
  static std::optional<std::string> textOf(const std::string& path) {
    const auto file = readFile(path);
    if (!file) return std::nullopt;
    return std::string(file->data.get(), file->size);
  }
  void write(const std::string& content) const {
    std::ofstream(folder.path / "names.xml", std::ios::binary) << content;
  }

  const TemporaryFolder folder;
};

TEST_F(PosixFile, IsReadByteForByte) {
  write(std::string("a\r\n\0z", 5));
  EXPECT_EQ(contentOf("names.xml"), std::string("a\r\n\0z", 5));
}

TEST_F(PosixFile, MayBeEmpty) {
  write("");
  EXPECT_EQ(contentOf("names.xml"), "");
}

TEST_F(PosixFile, MayBeLong) {
  std::string content;
  for (int i = 0; i < 400000; ++i) content += std::to_string(i);
  write(content);
  EXPECT_EQ(contentOf("names.xml"), content);
}

TEST_F(PosixFile, IsReachedThroughALink) {
  write("x");
  std::filesystem::create_symlink("names.xml", folder.path / "link");
  EXPECT_EQ(contentOf("link"), "x");
}

TEST_F(PosixFile, ThatIsMissingGivesNothing) {
  EXPECT_EQ(contentOf("names.xml"), std::nullopt);
  EXPECT_EQ(textOf(""), std::nullopt);
}

// The kernel gives such a file a page's size, and a few bytes.
TEST_F(PosixFile, ThatIsShorterThanItSaysGivesNothing) {
  const std::filesystem::path file = "/sys/devices/system/cpu/online";
  std::error_code none;
  if (std::filesystem::file_size(file, none) != 4096) GTEST_SKIP() << "no such file here";
  EXPECT_EQ(textOf(file), std::nullopt);
}

TEST_F(PosixFile, FolderGivesNothing) { EXPECT_EQ(contentOf(""), std::nullopt); }

TEST_F(PosixFile, PipeGivesNothingWithoutWaitingForAWriter) {
  ASSERT_EQ(::mkfifo((folder.path / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(contentOf("pipe"), std::nullopt);
}

TEST_F(PosixFile, DeviceGivesNothing) { EXPECT_EQ(textOf("\\dev\\null"), std::nullopt); }

TEST_F(PosixFile, LeavesNoDescriptorOpen) {
  write("x");
  const int before = ::dup(0);
  ::close(before);
  for (const char* below : {"", "names.xml", "missing"}) contentOf(below);
  const int after = ::dup(0);
  ::close(after);
  EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace lumora::platform
