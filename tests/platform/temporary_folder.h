// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_PLATFORM_TEMPORARY_FOLDER_H_
#define L5KOV_TESTS_PLATFORM_TEMPORARY_FOLDER_H_

#include <stdlib.h>

#include <filesystem>
#include <string>

// An empty folder that is removed with what is in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "l5kov-XXXXXX").string();
    path = ::mkdtemp(pattern.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::filesystem::path path;

  // A path below it as the library composes it: with backslashes.
  std::string composed(const std::string& below) const {
    std::string text = path.string() + "/" + below;
    for (char& c : text) {
      if (c == '/') c = '\\';
    }
    return text;
  }
};

#endif  // L5KOV_TESTS_PLATFORM_TEMPORARY_FOLDER_H_
