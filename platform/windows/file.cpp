// SPDX-License-Identifier: MIT
#include <windows.h>
//
#include "platform/platform.h"
#include "platform/windows/encoding.h"

namespace lumora::platform {
namespace {

class File {
 public:
  // Others may go on writing, renaming and deleting the file: editors save that way.
  explicit File(const std::string& path)
      : handle(::CreateFileW(windows::wideFromUtf8(path).c_str(), GENERIC_READ,
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~File() {
    if (isOpen()) ::CloseHandle(handle);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  bool isOpen() const { return handle != INVALID_HANDLE_VALUE; }

  const HANDLE handle;
};

// One call reads less than 4 GiB.
constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;

bool fill(HANDLE file, const FileBytes& content) {
  for (std::size_t done = 0; done < content.size;) {
    const std::size_t left = content.size - done;
    const auto wanted = static_cast<DWORD>(left < kMostAtOnce ? left : kMostAtOnce);
    DWORD more = 0;
    if (!::ReadFile(file, content.data.get() + done, wanted, &more, nullptr)) return false;
    if (more == 0) return false;
    done += more;
  }
  return true;
}

}  // namespace

// A folder is refused by the system itself; a pipe or a device ("NUL", "CON") is no disk file.
std::optional<FileBytes> readFile(const std::string& path) {
  const File file(path);
  LARGE_INTEGER length = {};
  if (!file.isOpen() || ::GetFileType(file.handle) != FILE_TYPE_DISK ||
      !::GetFileSizeEx(file.handle, &length)) {
    return std::nullopt;
  }
  const auto size = static_cast<std::size_t>(length.QuadPart);
  FileBytes content{std::make_unique_for_overwrite<char[]>(size), size};
  if (!fill(file.handle, content)) return std::nullopt;
  return content;
}

}  // namespace lumora::platform
