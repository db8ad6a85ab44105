// SPDX-License-Identifier: MIT
#include "system/binary_format.h"

#include <windows.h>

#include <cstdint>
#include <cstring>

namespace kovctl::sys {

std::string machineOf(std::string_view file) {
  IMAGE_DOS_HEADER dos;
  if (file.size() < sizeof dos) return "";
  std::memcpy(&dos, file.data(), sizeof dos);
  if (dos.e_magic != IMAGE_DOS_SIGNATURE || dos.e_lfanew < 0) return "";
  struct {
    DWORD signature;
    IMAGE_FILE_HEADER header;
  } start;
  const auto at = static_cast<std::size_t>(dos.e_lfanew);
  if (at > file.size() || file.size() - at < sizeof start) return "";
  std::memcpy(&start, file.data() + at, sizeof start);
  if (start.signature != IMAGE_NT_SIGNATURE) return "";
  switch (start.header.Machine) {
    case IMAGE_FILE_MACHINE_AMD64:
      return "x86-64";
    case IMAGE_FILE_MACHINE_ARM64:
      return "aarch64";
    case IMAGE_FILE_MACHINE_I386:
      return "x86";
    case IMAGE_FILE_MACHINE_ARMNT:
      return "arm";
    default:
      return "machine " + std::to_string(start.header.Machine);
  }
}

}  // namespace kovctl::sys
