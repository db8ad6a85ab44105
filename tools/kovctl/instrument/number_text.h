// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_INSTRUMENT_NUMBER_TEXT_H_
#define L5KOV_TOOLS_KOVCTL_INSTRUMENT_NUMBER_TEXT_H_

#include <array>
#include <optional>
#include <string_view>

namespace kovctl {

inline constexpr std::string_view kBlanks = " \t\n\v\f\r";

/// Three finite decimal numbers at the front of `text`, each ended by a blank, a comma or the end,
/// whatever the locale. Takes them off `text`; nothing when something else stands there.
std::optional<std::array<double, 3>> takeThreeNumbers(std::string_view& text);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_INSTRUMENT_NUMBER_TEXT_H_
