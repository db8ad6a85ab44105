// SPDX-License-Identifier: MIT
#include "report/html.h"

#include <fmt/format.h>

#include <cstddef>

#include "system/utf8_sequence.h"

namespace kovctl {
namespace {

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 0x20 && c != '\t' && c != '\n') || byte == 0x7F;
}

void appendByte(std::string& out, char c) {
  switch (c) {
    case '&':
      out += "&amp;";
      break;
    case '<':
      out += "&lt;";
      break;
    case '>':
      out += "&gt;";
      break;
    case '"':
      out += "&quot;";
      break;
    case '\'':
      out += "&#39;";
      break;
    default:
      if (isControl(c))
        out += kReplacement;
      else
        out += c;
  }
}

void appendCssByte(std::string& out, char c) {
  const bool special = c == '"' || c == '\\' || c == '<' || c == '>' || c == '&';
  if (special || isControl(c) || c == '\t' || c == '\n')
    out += fmt::format("\\{:x} ", static_cast<unsigned char>(c));
  else
    out += c;
}

// The bytes of the text one by one, but whole characters beyond ASCII as they are.
std::string escaped(std::string_view text, void (*append)(std::string&, char)) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = sequenceLength(text);
    if (length == 0)
      out += kReplacement;
    else if (length == 1)
      append(out, text[0]);
    else
      out += text.substr(0, length);
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return out;
}

}  // namespace

std::string escapeHtml(std::string_view text) { return escaped(text, appendByte); }

std::string outsideText(std::string_view text) {
  if (text.empty()) return "<span class=\"none\">–</span>";
  return "<bdi>" + escapeHtml(text) + "</bdi>";
}

std::string cssString(std::string_view text) { return "\"" + escaped(text, appendCssByte) + "\""; }

std::string escapeJsonForScript(std::string_view json) {
  std::string out;
  out.reserve(json.size());
  // These stand only inside JSON strings, where the escape means the same.
  for (const char c : json) {
    if (c == '<')
      out += "\\u003c";
    else if (c == '>')
      out += "\\u003e";
    else if (c == '&')
      out += "\\u0026";
    else
      out += c;
  }
  return out;
}

}  // namespace kovctl
