// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DOCTOR_CHECK_H_
#define L5KOV_TOOLS_KOVCTL_DOCTOR_CHECK_H_

#include <string>
#include <vector>

#include "exit_code.h"
#include "output/console.h"

namespace kovctl {

enum class CheckState { kOk, kWarn, kFail, kSkip };

/// One thing that was looked at.
struct Check {
  std::string id;     ///< for programs: "runtime-library"
  std::string title;  ///< for people: "Java runtime library"
  CheckState state = CheckState::kOk;
  std::string found;   ///< what there is
  std::string remedy;  ///< how to mend it; empty where nothing is broken
};

const char* nameOf(CheckState state);

/// Says and counts checks as they come.
class CheckList {
 public:
  explicit CheckList(Console& output) : console(output) {}

  void add(const Check& check);
  void ok(const std::string& id, const std::string& title, const std::string& found);
  void warn(const std::string& id, const std::string& title, const std::string& found,
            const std::string& remedy);
  void fail(const std::string& id, const std::string& title, const std::string& found,
            const std::string& remedy);
  void skip(const std::string& id, const std::string& title, const std::string& why);

  bool has(const std::string& id) const;
  bool has(const std::string& id, CheckState state) const;
  /// The document and the exit code.
  ExitCode finish();

 private:
  Console& console;
  std::vector<Check> checks;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DOCTOR_CHECK_H_
