// SPDX-License-Identifier: MIT
#include "system/windows/wide_text.h"

#include <windows.h>

namespace kovctl::sys {

std::wstring wide(std::string_view utf8) {
  const int bytes = static_cast<int>(utf8.size());
  const int units = ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
  std::wstring result(static_cast<std::size_t>(units), L'\0');
  if (units > 0) ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, result.data(), units);
  return result;
}

std::string narrow(std::wstring_view wide) {
  const int units = static_cast<int>(wide.size());
  const int bytes =
      ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(bytes), '\0');
  if (bytes > 0) {
    ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, result.data(), bytes, nullptr, nullptr);
  }
  return result;
}

std::string reasonOf(unsigned long error, const std::string& about) {
  wchar_t text[512];
  DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                  nullptr, error, 0, text, 512, nullptr);
  while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
  if (length == 0) return "error " + std::to_string(error);
  std::string reason = narrow({text, length});
  const std::size_t insert = reason.find("%1");
  if (insert != std::string::npos) reason.replace(insert, 2, about);
  return reason;
}

}  // namespace kovctl::sys
