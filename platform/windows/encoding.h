// SPDX-License-Identifier: MIT
#ifndef L5KOV_PLATFORM_WINDOWS_ENCODING_H_
#define L5KOV_PLATFORM_WINDOWS_ENCODING_H_

#include <string>

namespace lumora::platform::windows {

/// A text in one of the system's code pages (CP_ACP: the ANSI code page) as UTF-8, through UTF-16.
/// Ends at its first NUL. A byte that the code page does not know becomes the character that the
/// system puts in its place (U+FFFD where the code page has one), so the result is always valid
/// UTF-8; empty when the system lacks the code page.
std::string utf8FromCodePage(unsigned codePage, const std::string& text);

/// UTF-16 of a UTF-8 text; empty when it is not valid UTF-8.
std::wstring wideFromUtf8(const std::string& text);

}  // namespace lumora::platform::windows

#endif  // L5KOV_PLATFORM_WINDOWS_ENCODING_H_
