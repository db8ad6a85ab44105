// SPDX-License-Identifier: MIT
#include "report/axis.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace kovctl {
namespace {

constexpr double kDay = 86400.0;
constexpr double kTolerance = 1e-9;

// A range narrower than this, against its values, is a range of nothing.
constexpr double kNarrowest = 1e-12;

// What a logarithmic axis can show.
constexpr double kLowestLogarithm = 1e-9;
constexpr double kHighestLogarithm = 1e12;

// The largest of 1, 2, 5 times a power of ten that is not above `value`.
double roundDown(double value) {
  const double power = std::pow(10.0, std::floor(std::log10(value) + kTolerance));
  for (const double digit : {5.0, 2.0})
    if (digit * power <= value * (1.0 + kTolerance)) return digit * power;
  return power;
}

std::string dateLabel(double seconds) {
  // Civil date of a day number, after Howard Hinnant's "chrono-compatible low-level date
  // algorithms"; std::chrono prints nothing in this compiler.
  const auto days = static_cast<long long>(std::floor(seconds / kDay)) + 719468;
  const long long era = (days >= 0 ? days : days - 146096) / 146097;
  const long long dayOfEra = days - era * 146097;
  const long long yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const long long dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const long long shifted = (5 * dayOfYear + 2) / 153;
  const long long day = dayOfYear - (153 * shifted + 2) / 5 + 1;
  const long long month = shifted < 10 ? shifted + 3 : shifted - 9;
  return fmt::format("{:04}-{:02}-{:02}", yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, day);
}

// "11-21 08:25"
std::string minuteLabel(double seconds) {
  const auto minutes = static_cast<long long>(std::floor(seconds / 60.0));
  const long long ofDay = ((minutes % 1440) + 1440) % 1440;
  return fmt::format("{} {:02}:{:02}", dateLabel(seconds).substr(5), ofDay / 60, ofDay % 60);
}

// A label is written around its mark, and must not leave the picture.
constexpr double kTimeMargin = 0.07;

}  // namespace

double roundStep(double value) {
  const double power = std::pow(10.0, std::floor(std::log10(value)));
  for (const double digit : {1.0, 2.0, 5.0})
    if (digit * power >= value * (1.0 - kTolerance)) return digit * power;
  return 10.0 * power;
}

std::string formatNumber(double value) {
  const std::string text = fmt::format("{:.6g}", value == 0.0 ? 0.0 : value);
  return text.front() == '-' ? "−" + text.substr(1) : text;
}

std::string percentText(const std::optional<double>& share) {
  if (!share) return {};
  return (*share < 0.0 ? "−" : "+") + fmt::format("{:.2f} %", std::abs(*share) * 100.0);
}

Axis Axis::linear(double low, double high, int ticks) {
  const double size = std::max({std::abs(low), std::abs(high), kNarrowest});
  if (!(high - low > kNarrowest * size)) {
    const double margin = std::max(std::abs(low) * 0.1, 0.5);
    low -= margin;
    high += margin;
  }
  const double step = roundStep((high - low) / ticks);
  return fixed(std::floor(low / step + kTolerance) * step,
               std::ceil(high / step - kTolerance) * step, step);
}

Axis Axis::fixed(double low, double high, double step, int labelEvery) {
  Axis axis(Scale::kLinear, low, high);
  const auto first = static_cast<long long>(std::ceil(low / step - kTolerance));
  const auto last = static_cast<long long>(std::floor(high / step + kTolerance));
  for (long long i = first; i <= last; ++i) {
    const double value = static_cast<double>(i) * step;
    axis.marks.push_back({value, i % labelEvery == 0 ? formatNumber(value) : std::string()});
  }
  return axis;
}

Axis Axis::logarithmic(double low, double high) {
  double bottom = roundDown(std::clamp(low, kLowestLogarithm, kHighestLogarithm));
  double top = roundStep(std::clamp(high, kLowestLogarithm, kHighestLogarithm));
  if (!(top > bottom)) {
    bottom /= 10.0;
    top *= 10.0;
  }
  Axis axis(Scale::kLogarithmic, bottom, top);
  const double decades = std::log10(top / bottom);
  for (double power = std::pow(10.0, std::floor(std::log10(bottom) + kTolerance));
       power <= top * (1.0 + kTolerance); power *= 10.0) {
    for (int digit = 1; digit <= 9; ++digit) {
      const double value = digit * power;
      if (value < bottom * (1.0 - kTolerance) || value > top * (1.0 + kTolerance)) continue;
      const bool labelled = digit == 1 || (decades <= 5.0 && (digit == 2 || digit == 5));
      axis.marks.push_back({value, labelled ? formatNumber(value) : std::string()});
    }
  }
  return axis;
}

Axis Axis::time(double low, double high) {
  constexpr double kSteps[] = {1.0, 2.0, 7.0, 14.0, 30.0, 61.0, 91.0, 182.0, 365.0, 730.0, 1826.0};
  constexpr double kMostSteps = 4.0;
  if (high > low && high - low < kDay) return timeOfDay(low, high);
  double from = std::floor(low / kDay);
  double to = std::ceil(high / kDay);
  if (!(to > from)) {
    from -= 1.0;
    to += 1.0;
  }
  const auto fits = [&](double step) { return (to - from) / step <= kMostSteps; };
  const auto* found = std::find_if(std::begin(kSteps), std::end(kSteps), fits);
  const double step = found == std::end(kSteps) ? std::ceil((to - from) / kMostSteps) : *found;
  const double margin = kTimeMargin * (to - from);
  Axis axis(Scale::kTime, (from - margin) * kDay, (to + margin) * kDay);
  for (double day = from; day <= to; day += step)
    axis.marks.push_back({day * kDay, dateLabel(day * kDay)});
  return axis;
}

// Runs of one day: dates alone would all be the same.
Axis Axis::timeOfDay(double low, double high) {
  constexpr double kSteps[] = {60.0, 300.0, 900.0, 1800.0, 3600.0, 7200.0, 10800.0, 21600.0};
  constexpr double kMostSteps = 3.0;
  double step = kDay / 2.0;
  for (const double shorter : kSteps) {
    if (std::ceil(high / shorter) - std::floor(low / shorter) > kMostSteps) continue;
    step = shorter;
    break;
  }
  const double from = std::floor(low / step) * step;
  const double to = std::ceil(high / step) * step;
  const double margin = kTimeMargin * (to - from);
  Axis axis(Scale::kTime, from - margin, to + margin);
  for (double moment = from; moment <= to; moment += step)
    axis.marks.push_back({moment, minuteLabel(moment)});
  return axis;
}

double Axis::position(double value) const {
  if (kind == Scale::kLogarithmic) return std::log(value / from) / std::log(to / from);
  return (value - from) / (to - from);
}

}  // namespace kovctl
