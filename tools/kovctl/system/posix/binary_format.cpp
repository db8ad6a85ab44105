// SPDX-License-Identifier: MIT
#include "system/binary_format.h"

#include <elf.h>

#include <cstring>

namespace kovctl::sys {

std::string machineOf(std::string_view file) {
  Elf64_Ehdr header;
  if (file.size() < sizeof header || std::memcmp(file.data(), ELFMAG, SELFMAG) != 0) return "";
  std::memcpy(&header, file.data(), sizeof header);
  switch (header.e_machine) {
    case EM_X86_64:
      return "x86-64";
    case EM_AARCH64:
      return "aarch64";
    case EM_386:
      return "x86";
    case EM_ARM:
      return "arm";
    default:
      return "machine " + std::to_string(header.e_machine);
  }
}

}  // namespace kovctl::sys
