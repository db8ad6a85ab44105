// SPDX-License-Identifier: MIT
#include "report/report.h"

#include <fmt/format.h>

#include "record/run_record_json.h"
#include "report/assets.h"
#include "report/chart.h"
#include "report/history_view.h"
#include "report/html.h"
#include "report/run_charts.h"
#include "report/sections.h"
#include "report/sha256.h"

namespace kovctl {
namespace {

ReportView viewOf(const RunRecord& record, const std::vector<HistoryPoint>& history) {
  ReportView view{record, evaluate(record), {}, allHistory(record, history)};
  view.verdict = judge(record, view.evaluation);
  return view;
}

std::vector<Chart> chartsOf(const ReportView& view) {
  std::vector<HistoryPoint> runs = view.history;
  runs.push_back(asHistory(view.record, view.evaluation, view.verdict));
  std::vector<Chart> charts;
  for (std::optional<Chart>& chart : std::vector<std::optional<Chart>>{
           luminanceChart(view.record, view.evaluation),
           deviationChart(view.evaluation, view.verdict), jndChart(view.evaluation),
           whitePointChart(view.evaluation), luminanceTrend(runs), sensorTrend(runs)})
    if (chart) charts.push_back(std::move(*chart));
  return charts;
}

// On paper every page says which monitor it is about.
std::string pageFoot(const RunRecord& record) {
  const std::string text = reportName(record) + (record.simulated ? " (simulated)" : "") + " · " +
                           record.monitor.model + " " + record.monitor.serial + " · " +
                           readableTime(record.endTime);
  return fmt::format(
      "@page {{ @bottom-left {{ content: {}; font: 8pt sans-serif; color: #5a6675; }}\n"
      "@bottom-right {{ content: counter(page) \" / \" counter(pages); font: 8pt sans-serif; "
      "color: #5a6675; }} }}\n",
      cssString(text));
}

// The licence goes where the code goes.
std::string scriptText() {
  if (!hasInteractiveCharts()) return {};
  return fmt::format("/*\n{}*/\n{}\n{}", uplotLicense(), uplotScript(), chartsScript());
}

std::string head(const RunRecord& record, const std::string& style, const std::string& script) {
  // Only the two texts below may run or style; nothing may be asked for. uPlot sets styles through
  // the object model, which the policy allows.
  const std::string policy = fmt::format(
      "default-src 'none'; style-src 'sha256-{}'; script-src {}; base-uri 'none'; form-action "
      "'none'",
      sha256Base64(style),
      script.empty() ? std::string("'none'") : "'sha256-" + sha256Base64(script) + "'");
  return fmt::format(
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta http-equiv=\"Content-Security-Policy\" content=\"{}\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<meta name=\"referrer\" content=\"no-referrer\">\n<title>{} – {} {}</title>\n"
      "<style>{}</style>\n</head>\n",
      policy, reportName(record), escapeHtml(record.monitor.model),
      escapeHtml(record.monitor.serial), style);
}

std::string dataElements(const ReportView& view, const std::vector<Chart>& charts) {
  RunRecord complete = view.record;
  complete.history = view.history;
  const auto element = [](std::string_view id, const std::string& json) {
    return fmt::format("<script type=\"application/json\" id=\"{}\">{}</script>\n", id,
                       escapeJsonForScript(json));
  };
  return element("run-record", writeRunRecord(complete)) +
         (hasInteractiveCharts() ? element("chart-data", chartsJson(charts)) : std::string());
}

}  // namespace

bool hasInteractiveCharts() { return !uplotScript().empty(); }

std::string renderReport(const RunRecord& record, const std::vector<HistoryPoint>& history) {
  const ReportView view = viewOf(record, history);
  const std::vector<Chart> charts = chartsOf(view);
  const std::string style =
      std::string(styleSheet()) + std::string(uplotStyleSheet()) + pageFoot(record);
  const std::string script = scriptText();
  std::string html = head(record, style, script);
  html += record.simulated ? "<body class=\"is-simulated\">\n<main>\n" : "<body>\n<main>\n";
  html += headerSection(view) + verdictSection(view) + identitySection(view) + targetSection(view);
  html += chartsSection(charts) + timelineSection(view) + historySection(view);
  html += pointsSection(view) + sourcesSection(view) + versionsSection(view);
  html +=
      "</main>\n<footer>The data of this run is inside this file as JSON (element "
      "<code>run-record</code>).</footer>\n";
  html += dataElements(view, charts);
  if (!script.empty()) html += "<script>" + script + "</script>\n";
  return html + "</body>\n</html>\n";
}

}  // namespace kovctl
