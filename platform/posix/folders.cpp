// SPDX-License-Identifier: MIT
#include <stdlib.h>

#include "platform/platform.h"

namespace lumora::platform {

// There is no shell to ask; /usr/share is where the Filesystem Hierarchy Standard (3.0, 4.11) keeps
// architecture-independent data of all users. secure_getenv: in a set-user-id program the caller's
// environment must not choose the code that runs.
std::string commonAppDataFolder() {
  const char* folder = ::secure_getenv("L5KOV_COMMON_APPDATA");
  return folder != nullptr && *folder != '\0' ? folder : "/usr/share";
}

}  // namespace lumora::platform
