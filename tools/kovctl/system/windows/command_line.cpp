// SPDX-License-Identifier: MIT
#include "system/windows/command_line.h"

#include <windows.h>

#include <algorithm>

#include "system/windows/wide_text.h"

namespace kovctl::sys {
namespace {

bool sameName(std::wstring_view entry, std::wstring_view name) {
  return entry.size() > name.size() && entry[name.size()] == L'=' &&
         ::CompareStringOrdinal(entry.data(), static_cast<int>(name.size()), name.data(),
                                static_cast<int>(name.size()), TRUE) == CSTR_EQUAL;
}

// Backslashes count only before a quotation mark: there they are doubled.
std::wstring quoted(const std::wstring& argument) {
  std::wstring result = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : argument) {
    if (c == L'"') result.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    result += c;
  }
  return result.append(backslashes, L'\\') + L'"';
}

}  // namespace

std::wstring commandLine(const std::vector<std::string>& arguments) {
  std::wstring line;
  for (const std::string& argument : arguments) {
    if (!line.empty()) line += L' ';
    line += quoted(wide(argument));
  }
  return line;
}

std::wstring environmentBlock(const std::vector<std::pair<std::string, std::string>>& more) {
  std::vector<std::pair<std::wstring, std::wstring>> added;
  for (const auto& [name, value] : more) added.emplace_back(wide(name), wide(value));
  std::wstring block;
  wchar_t* const own = ::GetEnvironmentStringsW();
  for (const wchar_t* entry = own; *entry != L'\0'; entry += std::wstring_view(entry).size() + 1) {
    const std::wstring_view text = entry;
    const bool replaced = std::any_of(added.begin(), added.end(), [text](const auto& variable) {
      return sameName(text, variable.first);
    });
    if (!replaced) block.append(text).push_back(L'\0');
  }
  ::FreeEnvironmentStringsW(own);
  for (const auto& [name, value] : added) block.append(name + L'=' + value).push_back(L'\0');
  block.push_back(L'\0');
  return block;
}

}  // namespace kovctl::sys
