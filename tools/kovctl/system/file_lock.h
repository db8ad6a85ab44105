// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_FILE_LOCK_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_FILE_LOCK_H_

#include <memory>
#include <string>

namespace kovctl::sys {

/// A lock on a file, which one process at a time holds. The system lets go of it when the process
/// ends, however it ends; programs that this one has started do not keep it.
class FileLock {
 public:
  /// Makes the file where it is missing. It is never removed: who waits for the file that was
  /// removed would not see the lock on its successor.
  /// Null when another holds it. @throws std::runtime_error
  static std::unique_ptr<FileLock> take(const std::string& path);
  /// Looks without making the file. What cannot be looked at is held by nobody.
  static bool isHeld(const std::string& path);

  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

 private:
  struct State;
  explicit FileLock(std::unique_ptr<State> taken);
  std::unique_ptr<State> state;
};

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_FILE_LOCK_H_
