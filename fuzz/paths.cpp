// SPDX-License-Identifier: MIT
// Paths and start-up options against a second, plainer way to say what they are.
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "fuzz/bytes.h"
#include "fuzz/require.h"
#include "java/plugin_paths.h"
#include "java/utf8.h"
#include "platform/platform.h"

namespace {

std::string normalized(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool separator = text[i] == '/' || text[i] == '\\';
    if (separator && i + 1 == text.size()) break;
    result += separator ? '\\' : text[i];
  }
  return result;
}

std::string joined(const std::string& base, const std::string& piece) {
  const bool leads = !piece.empty() && piece[0] == '\\';
  return normalized(base + "\\" + (leads ? piece.substr(1) : piece));
}

// Windows takes options as they are composed.
constexpr bool kAsComposed = std::filesystem::path::preferred_separator == '\\';

// "name=a;b" with empty entries gone, ":" between the others, "/" for "\".
std::string option(const std::string& text) {
  if (kAsComposed) return text;
  std::string all;
  for (const char c : text) all += c == '\\' ? '/' : c;
  const std::size_t equals = all.find('=');
  const std::size_t from = equals == std::string::npos ? 0 : equals + 1;
  std::vector<std::string> entries(1);
  for (std::size_t i = from; i < all.size(); ++i) {
    if (all[i] == ';') {
      entries.emplace_back();
    } else {
      entries.back() += all[i];
    }
  }
  std::string result = all.substr(0, from);
  bool any = false;
  for (const std::string& entry : entries) {
    if (entry.empty()) continue;
    result += (any ? ":" : "") + entry;
    any = true;
  }
  return result;
}

// By the table of well-formed byte sequences (Unicode 15, table 3-7).
bool wellFormed(const std::string& text) {
  const auto in = [&](std::size_t i, unsigned low, unsigned high) {
    return i < text.size() && static_cast<unsigned char>(text[i]) >= low &&
           static_cast<unsigned char>(text[i]) <= high;
  };
  const auto tails = [&](std::size_t i, std::size_t count) {
    for (std::size_t k = 0; k < count; ++k) {
      if (!in(i + k, 0x80, 0xBF)) return false;
    }
    return true;
  };
  std::size_t i = 0;
  while (i < text.size()) {
    if (in(i, 0x00, 0x7F)) {
      i += 1;
    } else if (in(i, 0xC2, 0xDF) && tails(i + 1, 1)) {
      i += 2;
    } else if (((in(i, 0xE0, 0xE0) && in(i + 1, 0xA0, 0xBF)) ||
                (in(i, 0xE1, 0xEC) && in(i + 1, 0x80, 0xBF)) ||
                (in(i, 0xED, 0xED) && in(i + 1, 0x80, 0x9F)) ||
                (in(i, 0xEE, 0xEF) && in(i + 1, 0x80, 0xBF))) &&
               tails(i + 2, 1)) {
      i += 3;
    } else if (((in(i, 0xF0, 0xF0) && in(i + 1, 0x90, 0xBF)) ||
                (in(i, 0xF1, 0xF3) && in(i + 1, 0x80, 0xBF)) ||
                (in(i, 0xF4, 0xF4) && in(i + 1, 0x80, 0x8F))) &&
               tails(i + 2, 2)) {
      i += 4;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace lumora::kov::java;
  Bytes bytes(data, size);
  const std::string base = bytes.text();
  const std::string piece = bytes.text();
  require(normalizePath(base) == normalized(base), "normalizePath");
  require(joinPath(base, piece) == joined(base, piece), "joinPath");
  require(joinPath(base, {piece, base}) == joined(joined(base, piece), base), "joinPath of a list");
  require(lumora::platform::runtimeOption(base) == option(base), "runtimeOption");
  const std::string composed = classPathOption(base);
  const std::string classPath = lumora::platform::runtimeOption(composed);
  require(classPath == option(composed), "the class path");
  require(kAsComposed || classPath.find(";") == std::string::npos, "no semicolon is left");
  require(isUtf8(base) == wellFormed(base), "UTF-8");
  return 0;
}
