// SPDX-License-Identifier: MIT
#include "tests/fake_jvm/member.h"

namespace fakejvm {
namespace {

// Where the descriptor that begins at `at` ends.
std::size_t descriptorEnd(const std::string& text, std::size_t at) {
  while (at < text.size() && text[at] == '[') ++at;
  if (at < text.size() && text[at] == 'L') {
    const std::size_t semicolon = text.find(';', at);
    return semicolon == std::string::npos ? text.size() : semicolon + 1;
  }
  return at < text.size() ? at + 1 : at;
}

}  // namespace

Signature parseSignature(const std::string& text) {
  Signature parsed;
  std::size_t at = 0;
  if (!text.empty() && text[0] == '(') {
    for (at = 1; at < text.size() && text[at] != ')'; at = descriptorEnd(text, at)) {
      parsed.parameters.push_back(text[at]);
    }
    ++at;
  }
  if (at < text.size()) {
    parsed.result = text[at];
    parsed.resultType = text.substr(at);
  }
  return parsed;
}

}  // namespace fakejvm
