// SPDX-License-Identifier: MIT
#ifndef L5KOV_PLATFORM_POSIX_NATIVE_PATH_H_
#define L5KOV_PLATFORM_POSIX_NATIVE_PATH_H_

#include <string>

namespace lumora::platform::posix {

/// `\` becomes `/`. A name that holds a backslash itself cannot be reached.
std::string nativePath(std::string path);

}  // namespace lumora::platform::posix

#endif  // L5KOV_PLATFORM_POSIX_NATIVE_PATH_H_
