// SPDX-License-Identifier: MIT
#ifndef L5KOV_PLATFORM_POSIX_REGULAR_FILE_H_
#define L5KOV_PLATFORM_POSIX_REGULAR_FILE_H_

#include <cstddef>
#include <string>

namespace lumora::platform::posix {

/// A regular file, open for reading. No stream: one would ask the system three times as often,
/// which of a short file is most of the time.
class RegularFile {
 public:
  /// `path` is the system's own. What is no regular file stays closed and is not waited for.
  explicit RegularFile(const std::string& path);
  ~RegularFile();
  RegularFile(const RegularFile&) = delete;
  RegularFile& operator=(const RegularFile&) = delete;

  bool isOpen() const noexcept { return descriptor >= 0; }
  /// Its length when it was opened.
  std::size_t size() const noexcept { return length; }
  /// Fills the room from a place of the file. False where the file ends before.
  bool read(void* room, std::size_t bytes, std::size_t at = 0) const noexcept;

 private:
  void close() noexcept;

  int descriptor;
  std::size_t length = 0;
};

}  // namespace lumora::platform::posix

#endif  // L5KOV_PLATFORM_POSIX_REGULAR_FILE_H_
