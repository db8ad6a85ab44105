// SPDX-License-Identifier: MIT
#include "output/plain_text.h"
#include "output/table.h"
#include "run/run_end.h"

namespace kovctl {
namespace {

const char* nameOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kPass:
      return "pass";
    case Outcome::kFail:
      return "FAIL";
    case Outcome::kNotApplicable:
      return "-";
  }
  return "-";
}

Console::Style styleOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kPass:
      return Console::Style::kGood;
    case Outcome::kFail:
      return Console::Style::kBad;
    case Outcome::kNotApplicable:
      return Console::Style::kPlain;
  }
  return Console::Style::kPlain;
}

const char* jsonNameOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kPass:
      return "pass";
    case Outcome::kFail:
      return "fail";
    case Outcome::kNotApplicable:
      return "not-applicable";
  }
  return "not-applicable";
}

}  // namespace

std::string verdictText(const Console& console, const Verdict& verdict) {
  Table table({{"Criterion"},
               {"Value", Table::Align::kRight},
               {"Limit", Table::Align::kRight},
               {"Verdict"}});
  for (const Criterion& criterion : verdict.criteria) {
    if (!criterion.value && !criterion.limit) continue;
    table.addStyled({std::string(nameOf(criterion.quantity)),
                     criterion.value ? formatValue(criterion.quantity, *criterion.value) : "-",
                     criterion.limit ? formatLimit(*criterion.limit) : "-",
                     console.styled(styleOf(criterion.outcome), nameOf(criterion.outcome))});
  }
  std::string text = table.text();
  if (verdict.profile == nullptr) return text + plainLine(verdict.reason) + "\n";
  const std::string profile = " (" + std::string(verdict.profile->title) + ")";
  const bool isPass = verdict.outcome == Outcome::kPass;
  text += console.styled(isPass ? Console::Style::kGood : Console::Style::kBad,
                         isPass ? "PASS" : "NO PASS") +
          profile + ": " + plainLine(verdict.reason) + "\n" +
          "Left open by this profile: " + std::string(verdict.profile->notJudged) + ".\n";
  return text;
}

Json verdictJson(const Verdict& verdict) {
  Json criteria = Json::array();
  for (const Criterion& criterion : verdict.criteria) {
    Json one{{"quantity", nameOf(criterion.quantity)}, {"outcome", jsonNameOf(criterion.outcome)}};
    if (criterion.value) one["value"] = *criterion.value;
    if (criterion.limit) {
      one["bound"] = criterion.limit->bound == Bound::kAtMost ? "at-most" : "at-least";
      one["limit"] = criterion.limit->value;
      one["source"] = criterion.limit->source;
      one["own"] = criterion.limit->isOwn;
    }
    if (!criterion.note.empty()) one["note"] = criterion.note;
    criteria.push_back(one);
  }
  Json json{{"outcome", jsonNameOf(verdict.outcome)}, {"reason", verdict.reason}};
  if (verdict.profile != nullptr) {
    json["profile"] = verdict.profile->name;
    json["notJudged"] = verdict.profile->notJudged;
  }
  json["criteria"] = criteria;
  return json;
}

}  // namespace kovctl
