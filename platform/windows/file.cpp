// SPDX-License-Identifier: MIT
#include <windows.h>
//
#include <fcntl.h>
#include <io.h>

#include <cstdint>

#include "platform/platform.h"
#include "platform/windows/encoding.h"

namespace lumora::platform {
namespace {

// Others may go on writing, renaming and deleting the file: editors save that way.
HANDLE openHandle(const std::string& path) {
  constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return ::CreateFileW(windows::wideFromUtf8(path).c_str(), GENERIC_READ, kShare, nullptr,
                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The stream owns the descriptor, the descriptor the handle.
std::FILE* streamOf(HANDLE handle) {
  const int file =
      ::_open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_RDONLY | _O_BINARY);
  if (file < 0) {
    ::CloseHandle(handle);
    return nullptr;
  }
  std::FILE* stream = ::_fdopen(file, "rb");
  if (stream == nullptr) ::_close(file);
  return stream;
}

}  // namespace

// A folder is refused by the system itself; a pipe or a device ("NUL", "CON") is no disk file.
std::FILE* openFile(const std::string& path) {
  const HANDLE handle = openHandle(path);
  if (handle == INVALID_HANDLE_VALUE) return nullptr;
  if (::GetFileType(handle) == FILE_TYPE_DISK) return streamOf(handle);
  ::CloseHandle(handle);
  return nullptr;
}

}  // namespace lumora::platform
