// SPDX-License-Identifier: MIT
#include "doctor/doctor_without_library.h"

#include <algorithm>

#include "doctor/file_checks.h"
#include "output/document.h"

namespace kovctl {

namespace {

Console consoleOf(const std::vector<std::string>& arguments) {
  const auto has = [&](const char* flag) {
    return std::find(arguments.begin(), arguments.end(), flag) != arguments.end();
  };
  ConsoleOptions options;
  options.format = has("--json")         ? Format::kJson
                   : has("--json-lines") ? Format::kJsonLines
                                         : Format::kText;
  return Console(options);
}

}  // namespace

int failWithoutLibrary(const std::vector<std::string>& arguments, const std::string& reason) {
  Console console = consoleOf(arguments);
  const std::string message = "a library that it needs cannot be loaded: " + reason;
  const std::string hint = "\"kovctl doctor\" finds out more.";
  console.error(message);
  console.error("  " + hint);
  constexpr ExitCode kCode = ExitCode::kRuntime;
  Json document = documentOf("error");
  document["exitCode"] = static_cast<int>(kCode);
  document["exitName"] = nameOf(kCode);
  document["message"] = message;
  document["details"] = Json::array({hint});
  console.document(document);
  return static_cast<int>(kCode);
}

int doctorWithoutLibrary(const std::vector<std::string>& arguments, const std::string& reason) {
  Console console = consoleOf(arguments);
  CheckList list(console);
  list.fail("host-library", "libl5kov", reason,
            "install what is missing, or put it where the loader looks");
  checkFiles(list, PluginLayout::find());
  skipJavaChecks(list, "libl5kov cannot be loaded");
  return static_cast<int>(list.finish());
}

}  // namespace kovctl
