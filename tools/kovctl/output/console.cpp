// SPDX-License-Identifier: MIT
#include "output/console.h"

#include "system/streams.h"

namespace kovctl {
namespace {

// Texts of the Java library may hold anything; bytes that are not UTF-8 become U+FFFD.
std::string textOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string lineOf(std::string_view prefix, std::string_view line) {
  return std::string(prefix) + std::string(line) + "\n";
}

}  // namespace

void Console::result(std::string_view text) {
  if (sys::write(sys::Stream::kOut, text) == sys::Written::kFailed) lost = true;
}

void Console::print(std::string_view text) {
  if (isText()) result(text);
}

void Console::document(const Json& json) {
  if (!isText()) result(textOf(json));
}

void Console::event(const Json& json) {
  if (options.format == Format::kJsonLines) result(textOf(json));
}

void Console::note(std::string_view line) {
  if (!options.quiet) raw(lineOf("", line));
}

void Console::detail(std::string_view line, int level) {
  if (options.verbosity >= level) raw(lineOf("", line));
}

void Console::warn(std::string_view line) {
  raw(lineOf("warning: ", line));
}

void Console::error(std::string_view line) {
  raw(lineOf("kovctl: ", line));
}

void Console::raw(std::string_view text) {
  sys::write(sys::Stream::kErr, text);
}

std::string Console::styled(Style style, std::string_view text) const {
  if (!options.color || style == Style::kPlain) return std::string(text);
  const char* code = style == Style::kBold   ? "1"
                     : style == Style::kGood ? "32"
                     : style == Style::kBad  ? "31"
                                             : "33";
  return "\x1b[" + std::string(code) + "m" + std::string(text) + "\x1b[0m";
}

}  // namespace kovctl
