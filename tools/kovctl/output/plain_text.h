// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_OUTPUT_PLAIN_TEXT_H_
#define L5KOV_TOOLS_KOVCTL_OUTPUT_PLAIN_TEXT_H_

#include <string>
#include <string_view>

namespace kovctl {

/// What a terminal may get of a text from outside: control characters (C0, DEL, C1), those that
/// change the direction of writing, and bytes that are not UTF-8 become U+FFFD each, so that no
/// monitor, exception or file moves the cursor, changes the terminal or forges a line.
std::string plainLine(std::string_view text);

/// The same of a text that this program laid out: its line feeds and tabs stay.
std::string plainText(std::string_view text);

/// A JSON text of one line with the same characters as "\uXXXX", where JSON itself lets them stand.
std::string plainJson(std::string_view json);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_OUTPUT_PLAIN_TEXT_H_
