// SPDX-License-Identifier: MIT
#include "record/text_form.h"

#include <algorithm>
#include <charconv>
#include <chrono>

namespace kovctl {
namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::optional<int> number(std::string_view digits) {
  if (!std::all_of(digits.begin(), digits.end(), isDigit)) return std::nullopt;
  int value = 0;
  const auto end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, value);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return value;
}

bool hasSeparators(std::string_view t) {
  return t.size() >= 20 && t[4] == '-' && t[7] == '-' && t[10] == 'T' && t[13] == ':' &&
         t[16] == ':' && t.back() == 'Z';
}

// "" or ".123"; nothing when malformed.
std::optional<double> fraction(std::string_view text) {
  if (text.empty()) return 0.0;
  if (text.size() < 2 || text.size() > 10 || text[0] != '.') return std::nullopt;
  double value = 0.0;
  double place = 0.1;
  for (const char c : text.substr(1)) {
    if (!isDigit(c)) return std::nullopt;
    value += (c - '0') * place;
    place /= 10.0;
  }
  return value;
}

}  // namespace

std::optional<double> secondsOf(std::string_view t) {
  if (!hasSeparators(t)) return std::nullopt;
  const auto year = number(t.substr(0, 4)), month = number(t.substr(5, 2)),
             day = number(t.substr(8, 2)), hour = number(t.substr(11, 2)),
             minute = number(t.substr(14, 2)), second = number(t.substr(17, 2));
  const auto decimals = fraction(t.substr(19, t.size() - 20));
  if (!year || !month || !day || !hour || !minute || !second || !decimals) return std::nullopt;
  const std::chrono::year_month_day date{std::chrono::year(*year),
                                         std::chrono::month(static_cast<unsigned>(*month)),
                                         std::chrono::day(static_cast<unsigned>(*day))};
  if (!date.ok() || *hour > 23 || *minute > 59 || *second > 60) return std::nullopt;
  const auto days = std::chrono::sys_days(date).time_since_epoch().count();
  return static_cast<double>(days) * 86400.0 + *hour * 3600.0 + *minute * 60.0 + *second +
         *decimals;
}

bool hasForm(std::string_view text, TextForm form) {
  switch (form) {
    case TextForm::kAny:
      return true;
    case TextForm::kUtcTime:
      return secondsOf(text).has_value();
    case TextForm::kSha256:
      return text.size() == 64 && std::all_of(text.begin(), text.end(), [](char c) {
               return isDigit(c) || (c >= 'a' && c <= 'f');
             });
    case TextForm::kColorType:
      return text == "color" || text == "monochrome";
    case TextForm::kHistorySource:
      return text == "monitor" || text == "record";
  }
  return false;
}

std::string_view describe(TextForm form) {
  switch (form) {
    case TextForm::kAny:
      break;
    case TextForm::kUtcTime:
      return "a time such as 2026-11-21T08:25:49Z";
    case TextForm::kSha256:
      return "64 lower-case hexadecimal digits";
    case TextForm::kColorType:
      return "\"color\" or \"monochrome\"";
    case TextForm::kHistorySource:
      return "\"monitor\" or \"record\"";
  }
  return "a text";
}

}  // namespace kovctl
