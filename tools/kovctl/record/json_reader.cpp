// SPDX-License-Identifier: MIT
#include "record/json_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace kovctl {
namespace {

constexpr std::size_t kLongestQuote = 60;

// The value itself where it is short, otherwise what kind of value it is.
std::string quote(const nlohmann::ordered_json& node) {
  if (node.is_structured()) return node.is_object() ? "an object" : "a list";
  std::string text = node.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
  return text.size() <= kLongestQuote ? text : "a longer text";
}

std::string describeRange(Range range, bool whole) {
  const std::string what = whole ? "a whole number" : "a number";
  if (std::isinf(range.lowest)) return what;
  if (std::isinf(range.highest)) return fmt::format("{} not below {}", what, range.lowest);
  return fmt::format("{} from {:.10g} to {:.10g}", what, range.lowest, range.highest);
}

}  // namespace

JsonReader::JsonReader(const Json& node, std::string place) : object(node), path(std::move(place)) {
  if (!node.is_object()) fail(path.empty() ? "the record" : path, "an object", node);
}

void JsonReader::finish() const {
  for (const auto& [name, value] : object.items()) {
    if (std::find(known.begin(), known.end(), name) == known.end())
      throw RunRecordError(placeOf(name) + ": no such member is known");
  }
}

const JsonReader::Json& JsonReader::take(const char* name) {
  known.emplace_back(name);
  const auto found = object.find(name);
  if (found == object.end()) throw RunRecordError(placeOf(name) + ": the member is missing");
  return *found;
}

std::string JsonReader::placeOf(const std::string& name) const {
  return path.empty() ? name : path + "." + name;
}

void JsonReader::fail(const std::string& place, const std::string& expected, const Json& found) {
  throw RunRecordError(fmt::format("{}: expected {}, found {}", place, expected, quote(found)));
}

double JsonReader::number(const Json& node, const std::string& place, Range range, bool whole) {
  // A whole number beyond 64 bits is read as a float and so refused.
  const bool fits = whole ? node.is_number_integer() : node.is_number();
  if (!fits) fail(place, describeRange(range, whole), node);
  const double value = node.get<double>();
  const bool tooLarge = node.is_number_unsigned() && node.get<std::uint64_t>() > INT64_MAX;
  if (!std::isfinite(value) || value < range.lowest || value > range.highest || (whole && tooLarge))
    fail(place, describeRange(range, whole), node);
  return value;
}

void JsonReader::read(const Json& node, const std::string& place, bool& member) {
  if (!node.is_boolean()) fail(place, "true or false", node);
  member = node.get<bool>();
}

void JsonReader::read(const Json& node, const std::string& place, double& member, Range range) {
  member = number(node, place, range, false);
}

void JsonReader::read(const Json& node, const std::string& place, std::string& member,
                      TextForm form) {
  if (!node.is_string() || !hasForm(node.get_ref<const std::string&>(), form))
    fail(place, std::string(describe(form)), node);
  member = node.get<std::string>();
}

}  // namespace kovctl
