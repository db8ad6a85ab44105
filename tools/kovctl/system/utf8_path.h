// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_UTF8_PATH_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_UTF8_PATH_H_

#include <filesystem>
#include <string>

namespace kovctl::sys {

// kovctl's texts are UTF-8; a path made of a plain text would be read in the system's code page.
inline std::filesystem::path pathOf(const std::string& text) {
  return std::u8string(text.begin(), text.end());
}

inline std::string textOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_UTF8_PATH_H_
