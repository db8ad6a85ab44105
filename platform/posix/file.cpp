// SPDX-License-Identifier: MIT
#include "platform/platform.h"
#include "platform/posix/native_path.h"
#include "platform/posix/regular_file.h"

namespace lumora::platform {

std::optional<FileBytes> readFile(const std::string& path) {
  const posix::RegularFile file(posix::nativePath(path));
  if (!file.isOpen()) return std::nullopt;
  FileBytes content{std::make_unique_for_overwrite<char[]>(file.size()), file.size()};
  if (!file.read(content.data.get(), content.size)) return std::nullopt;
  return content;
}

}  // namespace lumora::platform
