// SPDX-License-Identifier: MIT
#include "doctor/doctor_without_library.h"

#include <algorithm>

#include "doctor/file_checks.h"

namespace kovctl {

int doctorWithoutLibrary(const std::vector<std::string>& arguments, const std::string& reason) {
  const auto has = [&](const char* flag) {
    return std::find(arguments.begin(), arguments.end(), flag) != arguments.end();
  };
  ConsoleOptions options;
  options.format = has("--json")         ? Format::kJson
                   : has("--json-lines") ? Format::kJsonLines
                                         : Format::kText;
  Console console(options);
  CheckList list(console);
  list.fail("host-library", "libl5kov", reason,
            "install what is missing, or put it where the loader looks");
  checkFiles(list, PluginLayout::find());
  for (const char* id : {"java-start", "catalogue", "callbacks", "monitors", "check-jni"}) {
    list.skip(id, id, "libl5kov cannot be loaded");
  }
  return static_cast<int>(list.finish());
}

}  // namespace kovctl
