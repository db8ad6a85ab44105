// SPDX-License-Identifier: MIT
#include "system/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace kovctl::sys {

// Of the open file and not of the process: a second one in this process is kept away, too.
struct FileLock::State {
  int file = -1;

  State(const std::string& path, int how) : file(::open(path.c_str(), how | O_CLOEXEC, 0600)) {}
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State() {
    if (file >= 0) ::close(file);
  }

  bool lock() const {
    int result = -1;
    do {
      result = ::flock(file, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result == 0;
  }
};

FileLock::FileLock(std::unique_ptr<State> taken) : state(std::move(taken)) {}

FileLock::~FileLock() = default;

std::unique_ptr<FileLock> FileLock::take(const std::string& path) {
  auto state = std::make_unique<State>(path, O_RDWR | O_CREAT);
  if (state->file >= 0 && state->lock()) {
    return std::unique_ptr<FileLock>(new FileLock(std::move(state)));
  }
  if (state->file >= 0 && errno == EWOULDBLOCK) return nullptr;
  throw std::runtime_error(path + ": " + std::strerror(errno));
}

bool FileLock::isHeld(const std::string& path) {
  const State state(path, O_RDONLY);
  return state.file >= 0 && !state.lock() && errno == EWOULDBLOCK;
}

}  // namespace kovctl::sys
