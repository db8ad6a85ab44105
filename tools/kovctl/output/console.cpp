// SPDX-License-Identifier: MIT
#include "output/console.h"

#include "output/plain_text.h"
#include "system/streams.h"

namespace kovctl {
namespace {

// Erases the line that the cursor is on, for one that comes in its place.
constexpr const char* kLineAnew = "\r\x1b[K";

// Texts of the Java library may hold anything; bytes that are not UTF-8 become U+FFFD.
std::string textOf(const Json& json) {
  return plainJson(json.dump(-1, ' ', false, Json::error_handler_t::replace)) + "\n";
}

void sayError(std::string_view text) { sys::write(sys::Stream::kErr, text); }

void sayLine(std::string_view prefix, std::string_view line) {
  sayError(std::string(prefix) + plainLine(line) + "\n");
}

}  // namespace

void Console::result(std::string_view text) {
  if (sys::write(sys::Stream::kOut, text) == sys::Written::kFailed) lost = true;
}

void Console::print(std::string_view text) {
  if (isText()) result(plainText(text));
}

void Console::printLine(std::string_view line) {
  if (isText()) result(plainLine(line) + "\n");
}

void Console::printStyled(std::string_view text) {
  if (isText()) result(text);
}

void Console::document(const Json& json) {
  if (!isText()) result(textOf(json));
}

void Console::event(const Json& json) {
  if (options.format == Format::kJsonLines) result(textOf(json));
}

void Console::note(std::string_view line) {
  if (!options.quiet) sayLine("", line);
}

void Console::detail(std::string_view line, int level) {
  if (options.verbosity >= level) sayLine("", line);
}

void Console::warn(std::string_view line) { sayLine("warning: ", line); }

void Console::error(std::string_view line) { sayLine("kovctl: ", line); }

void Console::question(std::string_view text) { sayError(plainLine(text)); }

void Console::lineInPlace(std::string_view line) { sayError(kLineAnew + plainLine(line)); }

std::string Console::styled(Style style, std::string_view text) const {
  if (!options.color || style == Style::kPlain) return std::string(text);
  const char* code = style == Style::kBold   ? "1"
                     : style == Style::kGood ? "32"
                     : style == Style::kBad  ? "31"
                                             : "33";
  return "\x1b[" + std::string(code) + "m" + std::string(text) + "\x1b[0m";
}

}  // namespace kovctl
