// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "record/run_record_json.h"
#include "record/text_form.h"
#include "report/html.h"
#include "report/sections.h"

namespace kovctl {
namespace {

struct OutcomeText {
  std::string_view css;
  std::string_view sign;
  std::string_view verdict;
  std::string_view criterion;
};

OutcomeText textOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kPass:
      return {"pass", "✓", "Within limits", "met"};
    case Outcome::kFail:
      return {"fail", "✕", "Outside limits", "not met"};
    case Outcome::kNotApplicable:
      break;
  }
  return {"na", "–", "Not judged", "not judged"};
}

std::string criterionRow(const Criterion& criterion) {
  const OutcomeText text = textOf(criterion.outcome);
  const std::string value =
      criterion.value ? formatValue(criterion.quantity, *criterion.value) : std::string("–");
  const std::string limit = criterion.limit ? formatLimit(*criterion.limit) : std::string("–");
  const std::string note =
      criterion.note.empty() ? std::string() : " <small>" + escapeHtml(criterion.note) + "</small>";
  return fmt::format(
      "<tr data-quantity=\"{}\"><th scope=\"row\">{}</th><td class=\"num\">{}</td>"
      "<td class=\"num\">{}</td><td class=\"result {}\"><span aria-hidden=\"true\">{}</span> {}{}"
      "</td></tr>\n",
      static_cast<int>(criterion.quantity), escapeHtml(nameOf(criterion.quantity)),
      escapeHtml(value), escapeHtml(limit), text.css, text.sign, text.criterion, note);
}

// The text may begin with the state's own name: "calibrated: look-up table 0 …".
std::string stateDetail(const RunResult& result) {
  const std::string name = std::string(nameOf(result.monitorState)) + ": ";
  const std::string& text = result.monitorStateText;
  if (text.empty()) return {};
  return " – " + outsideText(text.rfind(name, 0) == 0 ? text.substr(name.size()) : text);
}

std::string stateSentence(const RunRecord& record) {
  std::string text;
  if (record.result.error) {
    const RunError& error = *record.result.error;
    text += fmt::format("<p class=\"error\"><strong>Error {}</strong> ({}): {}</p>\n", error.code,
                        outsideText(error.name), outsideText(error.text));
  }
  const bool unknown = record.result.monitorState == MonitorState::kUnknown;
  return text + fmt::format("<p class=\"{}\">State of the monitor: <strong>{}</strong>{}</p>\n",
                            unknown ? "state error" : "state", nameOf(record.result.monitorState),
                            stateDetail(record.result));
}

}  // namespace

std::string reportName(const RunRecord& record) {
  return record.kind == RunKind::kCalibrate ? "Calibration report" : "Verification report";
}

std::string readableTime(const std::string& time) {
  if (!secondsOf(time)) return time;
  return time.substr(0, 10) + " " + time.substr(11, 8) + " UTC";
}

std::string headerSection(const ReportView& view) {
  const RunRecord& record = view.record;
  std::string html = "<header class=\"page-header\">\n";
  if (record.simulated)
    html +=
        "<p class=\"simulated\" role=\"note\"><strong>Simulated run.</strong> These are not "
        "measurements of a real monitor.</p>\n";
  return html + fmt::format(
                    "<h1>{}</h1>\n<p class=\"subject\">{} <span class=\"serial\">{}</span>"
                    "<span class=\"when\">{}</span></p>\n</header>\n",
                    reportName(record), outsideText(record.monitor.model),
                    outsideText(record.monitor.serial), escapeHtml(readableTime(record.endTime)));
}

std::string verdictSection(const ReportView& view) {
  const RunResult& run = view.record.result;
  OutcomeText text = textOf(view.verdict.outcome);
  if (run.canceled)
    text.verdict = "Canceled";
  else if (run.error)
    text = {"failed", "✕", "Failed", ""};
  const std::string profile =
      view.verdict.profile
          ? fmt::format("Limits: {} (<code>{}</code>). Left open by this profile: {}.",
                        escapeHtml(view.verdict.profile->title),
                        escapeHtml(view.verdict.profile->name),
                        escapeHtml(view.verdict.profile->notJudged))
      : view.record.limitsProfile.empty()
          ? std::string("Limits: none")
          : "Limits: " + outsideText(view.record.limitsProfile) + " (unknown)";
  std::string html = fmt::format(
      "<section id=\"verdict\" class=\"verdict {0}\" aria-labelledby=\"verdict-title\" "
      "data-outcome=\"{6}\">\n"
      "<div class=\"headline\"><span class=\"sign\" aria-hidden=\"true\">{1}</span><div>"
      "<h2 id=\"verdict-title\">{2}</h2><p>{3}</p><p class=\"profile\">{4}</p></div></div>\n"
      "{5}<table class=\"criteria\"><caption>Criteria</caption><thead><tr>"
      "<th scope=\"col\">Quantity</th><th scope=\"col\" class=\"num\">Measured</th>"
      "<th scope=\"col\" class=\"num\">Limit</th><th "
      "scope=\"col\">Result</th></tr></thead><tbody>\n",
      text.css, text.sign, text.verdict, escapeHtml(view.verdict.reason), profile,
      stateSentence(view.record), textOf(view.verdict.outcome).css);
  for (const Criterion& criterion : view.verdict.criteria) html += criterionRow(criterion);
  return html + "</tbody></table>\n</section>\n";
}

}  // namespace kovctl
