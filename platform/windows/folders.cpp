// SPDX-License-Identifier: MIT
#include <windows.h>
//
#include <shlobj.h>

#include "platform/platform.h"
#include "platform/windows/encoding.h"

namespace lumora::platform {
namespace {

constexpr std::size_t kFolderSize = 260;  // what the call requires of its buffer, MAX_PATH
static_assert(CSIDL_COMMON_APPDATA == 35 && SHGFP_TYPE_CURRENT == 0 && MAX_PATH == kFolderSize);

}  // namespace

// Kept: the ANSI call. A folder with characters beyond the code page comes with substitutes in
// their place, so the library does not find it; that is how plug-in installations have always been
// found.
std::string commonAppDataFolder() {
  char folder[kFolderSize] = {};
  const HRESULT result =
      ::SHGetFolderPathA(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder);
  if (FAILED(result)) return {};
  folder[kFolderSize - 1] = '\0';
  return windows::utf8FromCodePage(CP_ACP, folder);
}

}  // namespace lumora::platform
