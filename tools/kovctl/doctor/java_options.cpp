// SPDX-License-Identifier: MIT
#include "doctor/java_options.h"

#include <algorithm>
#include <cstdlib>

#include "doctor/file_checks.h"

namespace kovctl {
namespace {

constexpr const char* kId = "java-options";
constexpr const char* kTitle = "Java options";

constexpr std::string_view kProperty = "-D";

bool beginsWithOneOf(std::string_view text, const std::vector<std::string_view>& beginnings) {
  return std::any_of(beginnings.begin(), beginnings.end(), [&](std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
  });
}

// "-Xmx", "-Xms", "-Xmn", "-XX:MaxHeapSize=" and the like, "-XX:MaxRAMPercentage=" and the like.
bool asksForHeap(std::string_view option) {
  if (beginsWithOneOf(option, {kProperty})) return false;
  for (const char* part : {"-Xm", "HeapSize", "RAM"}) {
    if (option.find(part) != std::string_view::npos) return true;
  }
  return false;
}

// What is in such a file is not looked into.
bool namesFile(const std::string& options) {
  for (const char* part : {"-XX:Flags=", "-XX:VMOptionsFile=", " @"}) {
    if ((' ' + options).find(part) != std::string::npos) return true;
  }
  return false;
}

// Java reads properties of these names while it starts, and some name what it must then have: a
// class, a module, a file, a port, an amount of memory, a separator.
bool isPropertyOfJava(std::string_view name) {
  return beginsWithOneOf(
      name, {"java.", "javax.", "jdk.", "sun.", "com.sun.", "file.", "path.", "line.", "user.",
             "os.", "native.", "stdout.", "stderr.", "stdin."});
}

// With any value at all.
bool isHarmlessProperty(std::string_view name) {
  const std::vector<std::string_view> harmless = {"java.awt.headless",
                                                  "java.io.tmpdir",
                                                  "java.library.path",
                                                  "java.net.preferIPv4Stack",
                                                  "java.net.preferIPv6Addresses",
                                                  "user.country",
                                                  "user.language",
                                                  "user.timezone"};
  if (std::find(harmless.begin(), harmless.end(), name) != harmless.end()) return true;
  return !name.empty() && !isPropertyOfJava(name);
}

}  // namespace

std::vector<std::string> splitJavaOptions(std::string_view text) {
  std::vector<std::string> options;
  bool isInside = false;
  char quote = '\0';
  for (const char c : text) {
    const bool isBlank = c == ' ' || (c >= '\t' && c <= '\r');
    if (quote == '\0' && isBlank) {
      isInside = false;
      continue;
    }
    if (!isInside) options.emplace_back();
    isInside = true;
    if (quote == '\0' && (c == '\'' || c == '"')) {
      quote = c;
    } else if (c == quote) {
      quote = '\0';
    } else {
      options.back() += c;
    }
  }
  return options;
}

bool isHarmlessJavaOption(std::string_view option) {
  if (beginsWithOneOf(option, {kProperty})) {
    const std::string_view setting = option.substr(kProperty.size());
    return isHarmlessProperty(setting.substr(0, setting.find('=')));
  }
  // It prints its help and ends the process.
  if (option == "-Xlog:help") return false;
  const std::vector<std::string_view> harmless = {"-Xcheck:jni",
                                                  "-Xrs",
                                                  "-XX:NativeMemoryTracking=off",
                                                  "-XX:NativeMemoryTracking=summary",
                                                  "-XX:NativeMemoryTracking=detail",
                                                  "-XX:+UnlockDiagnosticVMOptions",
                                                  "-XX:-UnlockDiagnosticVMOptions"};
  if (std::find(harmless.begin(), harmless.end(), option) != harmless.end()) return true;
  // They say more or check more. "-ea", "-da" and their long forms may go on with a class's name.
  return beginsWithOneOf(
      option, {"-Xlog", "-verbose", "-ea", "-da", "-enableassertions", "-disableassertions"});
}

// What Java cannot have while it starts, such as a heap or a tool library, is fatal: it ends the
// process that hosts it, where a word that it does not know is only refused.
void checkJavaOptions(CheckList& list) {
  std::string found;
  bool inFile = false;
  std::vector<std::string> options;
  for (const char* name : {"JAVA_TOOL_OPTIONS", "_JAVA_OPTIONS"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr && *value != '\0') {
      found += (found.empty() ? "" : "; ") + std::string(name) + "=" + value;
      inFile = inFile || namesFile(value);
      for (const std::string& option : splitJavaOptions(value)) options.push_back(option);
    }
  }
  if (std::any_of(options.begin(), options.end(), asksForHeap)) {
    list.warn(kId, kTitle, "ask for memory: " + found,
              "take that out: where Java cannot have it, it ends the whole host's process");
  } else if (inFile) {
    list.warn(
        kId, kTitle, "name a file of options, which was not looked into: " + found,
        "look whether it asks for memory: where Java cannot have it, it ends the whole host's "
        "process");
  } else if (!std::all_of(options.begin(), options.end(), isHarmlessJavaOption)) {
    list.warn(kId, kTitle, "may keep Java from its start: " + found,
              "take out what is not needed: for some options the Java runtime ends the whole "
              "host's process");
  } else {
    list.ok(kId, kTitle, found.empty() ? "none in the environment" : found);
  }
}

void skipJavaChecks(CheckList& list, const std::string& why) {
  constexpr struct {
    const char* id;
    const char* title;
  } kChecks[] = {{"java-start", "Java start"},
                 {"catalogue", "Members of the plug-ins"},
                 {"callbacks", "Native callbacks"},
                 {"monitors", "Monitors"},
                 {"packages", "Models in the name table"},
                 {"check-jni", "Round trip, -Xcheck:jni"}};
  for (const auto& check : kChecks) {
    if (!list.has(check.id)) list.skip(check.id, check.title, why);
  }
}

}  // namespace kovctl
