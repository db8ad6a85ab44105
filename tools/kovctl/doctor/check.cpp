// SPDX-License-Identifier: MIT
#include "doctor/check.h"

#include <fmt/format.h>

#include <algorithm>

#include "output/document.h"
#include "output/plain_text.h"

namespace kovctl {
namespace {

Console::Style styleOf(CheckState state) {
  switch (state) {
    case CheckState::kOk:
      return Console::Style::kGood;
    case CheckState::kWarn:
      return Console::Style::kDoubtful;
    case CheckState::kFail:
      return Console::Style::kBad;
    case CheckState::kSkip:
      return Console::Style::kPlain;
  }
  return Console::Style::kPlain;
}

Json jsonOf(const Check& check) {
  Json json{{"id", check.id},
            {"title", check.title},
            {"state", nameOf(check.state)},
            {"found", check.found}};
  if (!check.remedy.empty()) json["remedy"] = check.remedy;
  return json;
}

}  // namespace

const char* nameOf(CheckState state) {
  switch (state) {
    case CheckState::kOk:
      return "ok";
    case CheckState::kWarn:
      return "warn";
    case CheckState::kFail:
      return "FAIL";
    case CheckState::kSkip:
      return "skip";
  }
  return "skip";
}

void CheckList::add(const Check& check) {
  const std::string blanks(4 - std::string_view(nameOf(check.state)).size() + 2, ' ');
  console.printStyled(fmt::format("{}{}{:<26}  {}\n",
                                  console.styled(styleOf(check.state), nameOf(check.state)), blanks,
                                  plainLine(check.title), plainLine(check.found)));
  if (!check.remedy.empty()) console.printLine(fmt::format("      {:<26}  → {}", "", check.remedy));
  Json event{{"event", "check"}};
  event.update(jsonOf(check));
  console.event(event);
  checks.push_back(check);
}

void CheckList::ok(const std::string& id, const std::string& title, const std::string& found) {
  add({id, title, CheckState::kOk, found, ""});
}

void CheckList::warn(const std::string& id, const std::string& title, const std::string& found,
                     const std::string& remedy) {
  add({id, title, CheckState::kWarn, found, remedy});
}

void CheckList::fail(const std::string& id, const std::string& title, const std::string& found,
                     const std::string& remedy) {
  add({id, title, CheckState::kFail, found, remedy});
}

void CheckList::skip(const std::string& id, const std::string& title, const std::string& why) {
  add({id, title, CheckState::kSkip, why, ""});
}

bool CheckList::has(const std::string& id) const {
  return std::any_of(checks.begin(), checks.end(),
                     [&](const Check& check) { return check.id == id; });
}

bool CheckList::has(const std::string& id, CheckState state) const {
  return std::any_of(checks.begin(), checks.end(),
                     [&](const Check& check) { return check.id == id && check.state == state; });
}

ExitCode CheckList::finish() {
  Json list = Json::array();
  int failures = 0;
  int warnings = 0;
  for (const Check& check : checks) {
    list.push_back(jsonOf(check));
    failures += check.state == CheckState::kFail ? 1 : 0;
    warnings += check.state == CheckState::kWarn ? 1 : 0;
  }
  console.print(
      fmt::format("{} checks, {} failed, {} to look at\n", checks.size(), failures, warnings));
  Json document = documentOf("doctor");
  document["failures"] = failures;
  document["warnings"] = warnings;
  document["checks"] = list;
  console.document(document);
  return failures > 0 ? ExitCode::kRuntime : ExitCode::kOk;
}

}  // namespace kovctl
