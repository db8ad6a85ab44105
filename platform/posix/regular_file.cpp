// SPDX-License-Identifier: MIT
#include "platform/posix/regular_file.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lumora::platform::posix {

// O_NONBLOCK: opening a pipe without a writer would otherwise wait for one.
RegularFile::RegularFile(const std::string& path)
    : descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
  if (!isOpen()) return;
  struct stat status = {};
  if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
    length = static_cast<std::size_t>(status.st_size);
  } else {
    close();
  }
}

RegularFile::~RegularFile() { close(); }

void RegularFile::close() noexcept {
  if (isOpen()) ::close(descriptor);
  descriptor = -1;
}

bool RegularFile::read(void* room, std::size_t bytes, std::size_t at) const noexcept {
  for (std::size_t done = 0; done < bytes;) {
    const ssize_t more = ::pread(descriptor, static_cast<char*>(room) + done, bytes - done,
                                 static_cast<off_t>(at + done));
    if (more < 0 && errno == EINTR) continue;
    if (more <= 0) return false;
    done += static_cast<std::size_t>(more);
  }
  return true;
}

}  // namespace lumora::platform::posix
