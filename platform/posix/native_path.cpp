// SPDX-License-Identifier: MIT
#include "platform/posix/native_path.h"

#include <algorithm>

namespace lumora::platform::posix {

std::string nativePath(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

}  // namespace lumora::platform::posix
