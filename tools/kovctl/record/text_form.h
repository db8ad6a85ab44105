// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RECORD_TEXT_FORM_H_
#define L5KOV_TOOLS_KOVCTL_RECORD_TEXT_FORM_H_

#include <optional>
#include <string_view>

#include "record/fields.h"

namespace kovctl {

bool hasForm(std::string_view text, TextForm form);

/// For messages: "a time such as 2026-11-21T08:25:49Z".
std::string_view describe(TextForm form);

/// Seconds since 1970-01-01T00:00:00Z of a time in the record's form; nothing for any other text.
/// Leap seconds (…:60) are not counted.
std::optional<double> secondsOf(std::string_view utcTime);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RECORD_TEXT_FORM_H_
