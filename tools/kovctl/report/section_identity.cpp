// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "record/display_functions.h"
#include "record/text_form.h"
#include "report/axis.h"
#include "report/html.h"
#include "report/sections.h"

namespace kovctl {
namespace {

std::string entry(std::string_view name, const std::string& html) {
  return fmt::format("<dt>{}</dt><dd>{}</dd>\n", name, html);
}

std::string textEntry(std::string_view name, const std::string& text) {
  return entry(name, outsideText(text));
}

template <class Number>
std::string numberEntry(std::string_view name, const std::optional<Number>& value,
                        std::string_view unit = "") {
  return entry(name, value ? fmt::format("{}{}", *value, unit) : outsideText(""));
}

std::string monitorList(const MonitorInfo& monitor) {
  std::string list = textEntry("Model", monitor.model) + textEntry("Serial number", monitor.serial);
  if (monitor.edid) {
    list +=
        entry("EDID", outsideText(monitor.edid->model) + ", " + outsideText(monitor.edid->serial) +
                          (monitor.edid->year ? fmt::format(", {}", *monitor.edid->year) : ""));
  }
  list += textEntry("Package", monitor.package) + textEntry("Colour type", monitor.colorType) +
          textEntry("Connection", monitor.connection) +
          numberEntry("Working hours", monitor.workingHours, " h");
  std::string table = monitor.lutIndex ? fmt::format("{}", *monitor.lutIndex) : "";
  if (!monitor.lutName.empty() || table.empty()) table += " " + outsideText(monitor.lutName);
  return list + entry("Look-up table", table);
}

std::string instrumentList(const InstrumentInfo& instrument) {
  return textEntry("Instrument", instrument.name) + textEntry("Kind", instrument.kind) +
         textEntry("Serial number", instrument.serial) +
         numberEntry("Device identifier", instrument.deviceId);
}

std::string runList(const RunRecord& record) {
  const auto start = secondsOf(record.startTime);
  const auto end = secondsOf(record.endTime);
  std::string list = textEntry("Operator", record.operatorName) +
                     textEntry("Computer", record.host) +
                     textEntry("Start", readableTime(record.startTime)) +
                     textEntry("End", readableTime(record.endTime));
  if (start && end && *end >= *start) {
    const auto seconds = static_cast<long long>(*end - *start);
    list += entry("Duration", fmt::format("{} min {:02} s", seconds / 60, seconds % 60));
  }
  return list;
}

std::string card(std::string_view title, const std::string& list) {
  return fmt::format("<div class=\"card\"><h3>{}</h3><dl>\n{}</dl></div>\n", title, list);
}

std::string row(std::string_view name, const std::string& target, const std::string& result,
                const std::string& difference) {
  return fmt::format(
      "<tr><th scope=\"row\">{}</th><td class=\"num\">{}</td><td class=\"num\">{}</td>"
      "<td class=\"num\">{}</td></tr>\n",
      name, target.empty() ? "–" : target, result.empty() ? "–" : result,
      difference.empty() ? "–" : difference);
}

std::string luminance(const std::optional<double>& value) {
  return value ? fmt::format("{:.5g} cd/m²", *value) : std::string();
}

std::string colour(const std::optional<UniformChromaticity>& value) {
  return value ? fmt::format("u′ {:.4f}, v′ {:.4f}", value->u, value->v) : std::string();
}

std::string whiteRow(const TargetInfo& target, const Evaluation& evaluation) {
  std::string wanted = colour(evaluation.targetWhite);
  if (!target.whiteName.empty())
    wanted = outsideText(target.whiteName) + (wanted.empty() ? "" : " (" + wanted + ")");
  return row("White point", wanted, colour(evaluation.white),
             evaluation.whiteDistance ? fmt::format("Δu′v′ {:.4f}", *evaluation.whiteDistance)
                                      : std::string());
}

}  // namespace

std::string identitySection(const ReportView& view) {
  return "<section id=\"identity\" aria-labelledby=\"identity-title\">"
         "<h2 id=\"identity-title\">Monitor, instrument and run</h2>\n<div class=\"cards\">\n" +
         card("Monitor", monitorList(view.record.monitor)) +
         card("Instrument", instrumentList(view.record.instrument)) +
         card("Run", runList(view.record)) + "</div></section>\n";
}

std::string targetSection(const ReportView& view) {
  const TargetInfo& target = view.record.target;
  const Evaluation& e = view.evaluation;
  const RunResult& result = view.record.result;
  std::string html =
      "<section id=\"target\" aria-labelledby=\"target-title\">"
      "<h2 id=\"target-title\">Target and result</h2>\n"
      "<table><thead><tr><th scope=\"col\">Quantity</th><th scope=\"col\" class=\"num\">Target</th>"
      "<th scope=\"col\" class=\"num\">Result</th><th scope=\"col\" class=\"num\">Difference</th>"
      "</tr></thead><tbody>\n";
  html += row("Display function", escapeHtml(fullFunctionText(target)), "", "");
  html += row("Maximum luminance", target.lmax > 0.0 ? luminance(target.lmax) : "as measured",
              luminance(e.lmax), percentText(e.lmaxDeviation));
  html += row("Minimum luminance",
              target.useMeasuredLmin ? std::string("as measured") : luminance(target.lmin),
              luminance(e.lmin), percentText(e.lminDeviation));
  if (result.lmin)
    html += row("Minimum luminance, as the library reports it", "", luminance(result.lmin), "");
  html += row("Ambient light", luminance(target.ambient), "", "");
  html += whiteRow(target, e);
  if (view.record.kind == RunKind::kCalibrate)
    html += row("Gray levels",
                target.levels > 0 ? fmt::format("{}", target.levels) : "library's choice",
                e.native.empty() ? "" : fmt::format("{}", e.native.size()), "");
  if (result.photoSensor)
    html += row("Backlight sensor", "", fmt::format("{}", *result.photoSensor), "");
  return html + "</tbody></table></section>\n";
}

}  // namespace kovctl
