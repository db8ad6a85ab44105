// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <string>

#include "doctor/file_checks.h"

namespace kovctl {
namespace {

constexpr const char* kId = "java-options";
constexpr const char* kTitle = "Java options";

// "-Xmx", "-Xms", "-Xmn", "-XX:MaxHeapSize=" and the like, "-XX:MaxRAMPercentage=" and the like.
bool asksForHeap(const std::string& options) {
  for (const char* part : {"-Xm", "HeapSize", "RAM"}) {
    if (options.find(part) != std::string::npos) return true;
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

}  // namespace

// A heap that cannot be had is fatal: while it starts, Java ends the process that hosts it.
void checkJavaOptions(CheckList& list) {
  std::string found;
  bool inFile = false;
  for (const char* name : {"JAVA_TOOL_OPTIONS", "_JAVA_OPTIONS"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr && *value != '\0') {
      found += (found.empty() ? "" : "; ") + std::string(name) + "=" + value;
      inFile = inFile || namesFile(value);
    }
  }
  if (asksForHeap(found)) {
    list.warn(kId, kTitle, "ask for memory: " + found,
              "take that out: where Java cannot have it, it ends the whole host's process");
  } else if (inFile) {
    list.warn(
        kId, kTitle, "name a file of options, which was not looked into: " + found,
        "look whether it asks for memory: where Java cannot have it, it ends the whole host's "
        "process");
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
