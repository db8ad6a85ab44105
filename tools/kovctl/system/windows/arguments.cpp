// SPDX-License-Identifier: MIT
#include "system/arguments.h"

#include <windows.h>
//
#include <shellapi.h>

#include "system/windows/wide_text.h"

namespace kovctl::sys {

// main() gets them in the ANSI code page, which does not have every character.
std::vector<std::string> commandLineArguments(int count, const char* const* given) {
  int parts = 0;
  wchar_t** const texts = ::CommandLineToArgvW(::GetCommandLineW(), &parts);
  if (texts == nullptr) return {given, given + count};
  std::vector<std::string> result;
  for (int i = 0; i < parts; ++i) result.push_back(narrow(texts[i]));
  ::LocalFree(texts);
  return result;
}

}  // namespace kovctl::sys
