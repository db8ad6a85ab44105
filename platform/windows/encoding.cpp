// SPDX-License-Identifier: MIT
#include "platform/windows/encoding.h"

#include <windows.h>

namespace lumora::platform::windows {
namespace {

std::wstring widen(unsigned codePage, DWORD flags, const std::string& text) {
  const int bytes = static_cast<int>(text.size());
  const int units = ::MultiByteToWideChar(codePage, flags, text.data(), bytes, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(units), L'\0');
  if (units > 0) ::MultiByteToWideChar(codePage, flags, text.data(), bytes, wide.data(), units);
  return wide;
}

}  // namespace

std::string utf8FromCodePage(unsigned codePage, const std::string& text) {
  const std::wstring wide = widen(codePage, 0, text.substr(0, text.find('\0')));
  const int units = static_cast<int>(wide.size());
  const int bytes =
      ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(bytes), '\0');
  if (bytes > 0) {
    ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(), bytes, nullptr, nullptr);
  }
  return utf8.substr(0, utf8.find('\0'));
}

std::wstring wideFromUtf8(const std::string& text) {
  return widen(CP_UTF8, MB_ERR_INVALID_CHARS, text);
}

}  // namespace lumora::platform::windows
