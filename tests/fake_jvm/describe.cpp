// SPDX-License-Identifier: MIT
#include "tests/fake_jvm/describe.h"

#include <charconv>
#include <map>

namespace fakejvm {
namespace {

constexpr std::size_t kLongText = 200;
constexpr std::size_t kShownOfLongText = 60;

std::mutex namesMutex;
std::map<std::string, int>& nameCounters() {
  static auto* counters = new std::map<std::string, int>;  // outlives every thread
  return *counters;
}

std::string newName(const std::string& className) {
  const std::size_t slash = className.find_last_of("/$");
  const std::string simple = slash == std::string::npos ? className : className.substr(slash + 1);
  const std::lock_guard<std::mutex> guard(namesMutex);
  return simple + "#" + std::to_string(++nameCounters()[simple]);
}

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      result += '\\';
      result += c;
    } else if (c == '\n') {
      result += "\\n";
    } else if (c == '\t') {
      result += "\\t";
    } else {
      result += c;
    }
  }
  return result;
}

}  // namespace

void restartNames() {
  const std::lock_guard<std::mutex> guard(namesMutex);
  nameCounters().clear();
}

std::string displayName(const ObjectRef& object) {
  if (!object) return "null";
  std::string name = object->name();
  if (!name.empty()) return name;
  if (object->className == kStringClass) return quoted(object->text());
  name = newName(object->className == "[D" ? "double[]" : object->className);
  object->setName(name);
  return name;
}

std::string quoted(const std::string& text) {
  std::string result = "\"";
  if (text.size() <= kLongText) return result.append(escaped(text)).append("\"");
  result.append(escaped(text.substr(0, kShownOfLongText))).append("...\"(");
  return result.append(std::to_string(text.size())).append(" bytes)");
}

std::string numberText(double value) {
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  return std::string(buffer, end);
}

std::string numbersText(const double* values, std::size_t count) {
  std::string text = "[";
  for (std::size_t i = 0; i < count; ++i)
    text.append(i > 0 ? "," : "").append(numberText(values[i]));
  return text.append("]");
}

std::string valueText(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::kVoid:
      return "void";
    case Value::Kind::kDouble:
      return numberText(value.asDouble());
    case Value::Kind::kObject:
      return displayName(value.asObject());
    case Value::Kind::kBoolean:
    case Value::Kind::kInt:
    case Value::Kind::kLong:
      break;
  }
  return std::to_string(value.asLong());
}

std::string argumentsText(const std::vector<Value>& args) {
  std::string text = "(";
  for (std::size_t i = 0; i < args.size(); ++i)
    text.append(i > 0 ? "," : "").append(valueText(args[i]));
  return text.append(")");
}

}  // namespace fakejvm
