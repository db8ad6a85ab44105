// SPDX-License-Identifier: MIT
#include "doctor/java_release.h"

#include "system/files.h"

namespace kovctl {
namespace {

// NAME="value"
std::string valueOf(std::string_view text, std::string_view name) {
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    std::string_view line = text.substr(start, end - start);
    start = end + 1;
    if (line.substr(0, name.size()) != name || line.substr(name.size(), 1) != "=") continue;
    line.remove_prefix(name.size() + 1);
    while (!line.empty() && (line.back() == '"' || line.back() == '\r')) line.remove_suffix(1);
    while (!line.empty() && line.front() == '"') line.remove_prefix(1);
    return std::string(line);
  }
  return "";
}

}  // namespace

JavaRelease JavaRelease::parse(std::string_view text) {
  return {valueOf(text, "JAVA_VERSION"), valueOf(text, "IMPLEMENTOR"), valueOf(text, "OS_ARCH")};
}

JavaRelease JavaRelease::of(const std::string& jre) {
  return parse(sys::readWhole(jre + "/release").value_or(""));
}

}  // namespace kovctl
