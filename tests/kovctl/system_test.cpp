// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "system/binary_format.h"
#include "system/file_lock.h"
#include "system/files.h"
#include "system/subprocess.h"

namespace kovctl {
namespace {

namespace fs = std::filesystem;

class Folder {
 public:
  // Named at random by the system: these tests run side by side, each in a process of its own.
  Folder() {
    std::random_device random;
    do {
      path = fs::temp_directory_path() / ("kovctl-system-" + std::to_string(random()));
    } while (!fs::create_directory(path));
  }
  ~Folder() { fs::remove_all(path); }
  fs::path path;
};

TEST(WriteWhole, ReplacesAFileAndLeavesNothingBeside) {
  const Folder folder;
  const std::string file = (folder.path / "report.html").string();
  sys::writeWhole(file, "one");
  sys::writeWhole(file, std::string(100000, 'x'));
  EXPECT_EQ(sys::readWhole(file), std::string(100000, 'x'));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path), {}), 1);
}

TEST(WriteWhole, KeepsTheOldFileWhenItFails) {
  const Folder folder;
  EXPECT_THROW(sys::writeWhole((folder.path / "none" / "report.html").string(), "x"),
               std::runtime_error);
  EXPECT_THROW(sys::writeWhole("/dev/full", "x"), std::runtime_error);
  EXPECT_NO_THROW(sys::writeWhole("/dev/null", "x"));
}

TEST(WriteWhole, KeepsThePermissions) {
  const Folder folder;
  const std::string file = (folder.path / "a").string();
  sys::writeWhole(file, "1");
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
  sys::writeWhole(file, "2");
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(FileLock, IsHeldByOneAtATime) {
  const Folder folder;
  const std::string file = (folder.path / "monitor.lock").string();
  EXPECT_FALSE(sys::FileLock::isHeld(file));
  EXPECT_FALSE(fs::exists(file));
  {
    const auto lock = sys::FileLock::take(file);
    ASSERT_NE(lock, nullptr);
    EXPECT_TRUE(sys::FileLock::isHeld(file));
    EXPECT_EQ(sys::FileLock::take(file), nullptr);
    EXPECT_TRUE(sys::FileLock::isHeld(file));
  }
  EXPECT_FALSE(sys::FileLock::isHeld(file));
  EXPECT_NE(sys::FileLock::take(file), nullptr);
  EXPECT_THROW(sys::FileLock::take((folder.path / "none" / "a.lock").string()), std::runtime_error);
}

TEST(Files, AreRecognised) {
  EXPECT_EQ(sys::machineOf(sys::readWhole(sys::executable()).value()), "x86-64");
  EXPECT_EQ(sys::machineOf("#!/bin/sh"), "");
  EXPECT_EQ(sys::readWhole("/none/at/all"), std::nullopt);
}

TEST(Subprocess, TalksAndEnds) {
  sys::Subprocess cat({{"cat"}, {}, false});
  ASSERT_TRUE(cat.write("hello\n"));
  std::string text;
  while (text != "hello\n") {
    ASSERT_EQ(cat.read(text, std::chrono::seconds(10)), sys::Subprocess::Read::kData);
  }
  EXPECT_EQ(cat.read(text, std::chrono::milliseconds(20)), sys::Subprocess::Read::kTimeOut);
  EXPECT_EQ(cat.wait(std::chrono::milliseconds(0)), std::nullopt);
  cat.closeInput();
  EXPECT_EQ(cat.wait(std::chrono::seconds(10)), 0);
}

TEST(Subprocess, IsEndedThoughItDoesNotWantTo) {
  const auto start = std::chrono::steady_clock::now();
  {
    sys::Subprocess stubborn(
        {{"sh", "-c", "trap '' TERM; echo up; while :; do sleep 1; done"}, {}, false});
    std::string text;
    while (text != "up\n") {
      ASSERT_EQ(stubborn.read(text, std::chrono::seconds(10)), sys::Subprocess::Read::kData);
    }
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8));
}

TEST(Subprocess, GetsItsEnvironment) {
  sys::Subprocess shell({{"sh", "-c", "echo $KOVCTL_TEST"}, {{"KOVCTL_TEST", "a b"}}, false});
  std::string text;
  while (shell.read(text, std::chrono::seconds(10)) == sys::Subprocess::Read::kData) {
  }
  EXPECT_EQ(text, "a b\n");
}

TEST(Subprocess, CanBeGivenATerminalThatChangesNoByte) {
  sys::Subprocess shell({{"sh", "-c", "test -t 1 && printf 'a\\nb\\n'; read line"}, {}, true});
  std::string text;
  while (text.size() < 4) {
    ASSERT_EQ(shell.read(text, std::chrono::seconds(10)), sys::Subprocess::Read::kData);
  }
  EXPECT_EQ(text, "a\nb\n");
  shell.closeInput();
  while (shell.read(text, std::chrono::seconds(10)) == sys::Subprocess::Read::kData) {
  }
  EXPECT_EQ(text, "a\nb\n");
}

}  // namespace
}  // namespace kovctl
