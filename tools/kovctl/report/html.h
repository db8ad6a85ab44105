// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_REPORT_HTML_H_
#define L5KOV_TOOLS_KOVCTL_REPORT_HTML_H_

#include <string>
#include <string_view>

namespace kovctl {

/// For element content and quoted attribute values. Bytes that are not UTF-8 and control characters
/// other than tab and line feed become U+FFFD.
std::string escapeHtml(std::string_view text);

/// A text from outside as element content, fenced off so that its writing direction cannot disturb
/// its surroundings; a dash where it is empty.
std::string outsideText(std::string_view text);

/// A text from outside as a string of a style sheet, with its quotes: nothing in it can end the
/// string or the element.
std::string cssString(std::string_view text);

/// A JSON text for the inside of a script element: nothing in it can end the element.
std::string escapeJsonForScript(std::string_view json);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_REPORT_HTML_H_
