// SPDX-License-Identifier: MIT
#include "system/file_lock.h"

#include <windows.h>

#include <stdexcept>

#include "system/windows/wide_text.h"

namespace kovctl::sys {

// Of the open file and not of the process: a second one in this process is kept away, too.
struct FileLock::State {
  HANDLE file = INVALID_HANDLE_VALUE;

  // Not inherited. Everybody may open the file; only its lock tells.
  State(const std::string& path, DWORD disposition)
      : file(::CreateFileW(wide(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                           disposition, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State() {
    if (file != INVALID_HANDLE_VALUE) ::CloseHandle(file);
  }

  bool isOpen() const { return file != INVALID_HANDLE_VALUE; }
  bool lock() const {
    OVERLAPPED from = {};
    constexpr DWORD kHow = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    return ::LockFileEx(file, kHow, 0, 1, 0, &from) != 0;
  }
};

namespace {

bool isTaken(DWORD error) { return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING; }

}  // namespace

FileLock::FileLock(std::unique_ptr<State> taken) : state(std::move(taken)) {}

FileLock::~FileLock() = default;

std::unique_ptr<FileLock> FileLock::take(const std::string& path) {
  auto state = std::make_unique<State>(path, OPEN_ALWAYS);
  if (state->isOpen() && state->lock()) {
    return std::unique_ptr<FileLock>(new FileLock(std::move(state)));
  }
  const DWORD error = ::GetLastError();
  if (state->isOpen() && isTaken(error)) return nullptr;
  throw std::runtime_error(path + ": " + reasonOf(error));
}

bool FileLock::isHeld(const std::string& path) {
  const State state(path, OPEN_EXISTING);
  return state.isOpen() && !state.lock() && isTaken(::GetLastError());
}

}  // namespace kovctl::sys
