// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/platform.h"
#include "platform/posix/native_path.h"

namespace lumora::platform {

// O_NONBLOCK: opening a pipe without a writer would otherwise wait for one.
std::FILE* openFile(const std::string& path) {
  const int file = ::open(posix::nativePath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return nullptr;
  struct stat status = {};
  std::FILE* stream = nullptr;
  if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode)) stream = ::fdopen(file, "rb");
  if (stream == nullptr) ::close(file);
  return stream;
}

}  // namespace lumora::platform
