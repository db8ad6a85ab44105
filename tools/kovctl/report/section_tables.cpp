// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "metrics/target_curve.h"
#include "record/run_record_json.h"
#include "report/axis.h"
#include "report/html.h"
#include "report/sections.h"

namespace kovctl {
namespace {

std::string section(std::string_view id, std::string_view title, const std::string& body) {
  return fmt::format(
      "<section id=\"{0}\" aria-labelledby=\"{0}-title\"><h2 id=\"{0}-title\">{1}</h2>\n{2}"
      "</section>\n",
      id, title, body);
}

// The class attribute of one chart's figure: the first is as wide as the page.
std::string figure(const Chart& chart) {
  return fmt::format(
      "<figure class=\"chart{0}\" id=\"chart-{1}\"><figcaption>{2}</figcaption>"
      "<div class=\"drawn\">{3}</div></figure>\n",
      chart.width > 800.0 ? " wide" : "", chart.id, escapeHtml(chart.title), renderSvg(chart));
}

std::string cell(const std::string& text) {
  return "<td class=\"num\">" + (text.empty() ? std::string("–") : text) + "</td>";
}

template <class T>
std::string optionalCell(const std::optional<T>& value, const char* format = "{}") {
  return cell(value ? fmt::format(fmt::runtime(format), *value) : std::string());
}

std::string historyRow(const HistoryPoint& p) {
  const std::string passed = !p.passed ? "–" : *p.passed ? "✓ within" : "✕ outside";
  const std::string table = p.lutNumber ? fmt::format("{}", *p.lutNumber - 1) : "";
  return "<tr><td>" + outsideText(readableTime(p.time)) + "</td>" + cell(table) +
         optionalCell(p.workingHours) + optionalCell(p.targetLmax, "{:.4g}") +
         optionalCell(p.measuredLmax, "{:.5g}") + optionalCell(p.measuredLmin, "{:.4g}") +
         optionalCell(p.photoSensor) +
         cell(p.maxDeviation ? fmt::format("{:.2f} %", *p.maxDeviation * 100.0) : "") + "<td>" +
         passed + "</td><td>" + outsideText(p.performer) + "</td><td>" + outsideText(p.instrument) +
         "</td></tr>\n";
}

bool isVerified(PatchRole role) {
  return role == PatchRole::kVerify || role == PatchRole::kLibraryVerify;
}

// The wanted luminance of a verified gray level.
std::optional<double> wantedAt(const PatchResult& patch, const std::optional<TargetCurve>& curve) {
  if (!curve || !isVerified(patch.role) || patch.r != patch.g || patch.g != patch.b)
    return std::nullopt;
  return curve->luminance(patch.r / 255.0);
}

std::string pointRow(const PatchResult& p, const std::optional<double>& wanted) {
  const std::string rgb =
      p.r == p.g && p.g == p.b ? fmt::format("{}", p.r) : fmt::format("{} {} {}", p.r, p.g, p.b);
  std::optional<double> difference;
  if (wanted && *wanted > 0.0) difference = p.luminance / *wanted - 1.0;
  std::string colour = cell("") + cell("");
  if (p.chromaticity)
    colour = cell(fmt::format("{:.4f}", p.chromaticity->x)) +
             cell(fmt::format("{:.4f}", p.chromaticity->y));
  return fmt::format("<tr class=\"{0}\"><td class=\"num\">{1}</td><td>{0}</td>", nameOf(p.role),
                     p.sequence) +
         cell(rgb) + cell(fmt::format("{:.1f}", p.time)) +
         cell(fmt::format("{:.4f}", p.luminance)) + colour + optionalCell(wanted, "{:.4f}") +
         cell(percentText(difference)) + "</tr>\n";
}

constexpr std::string_view kPointsHead =
    "<table class=\"points\"><thead><tr><th scope=\"col\" class=\"num\">No.</th>"
    "<th scope=\"col\">Purpose</th><th scope=\"col\" class=\"num\">Level</th>"
    "<th scope=\"col\" class=\"num\">Time, s</th><th scope=\"col\" class=\"num\">cd/m²</th>"
    "<th scope=\"col\" class=\"num\">x</th><th scope=\"col\" class=\"num\">y</th>"
    "<th scope=\"col\" class=\"num\">Target, cd/m²</th>"
    "<th scope=\"col\" class=\"num\">Difference</th></tr></thead><tbody>\n";

constexpr std::string_view kHistoryHead =
    "<table class=\"history\"><thead><tr><th scope=\"col\">Time</th>"
    "<th scope=\"col\" class=\"num\">Table</th><th scope=\"col\" class=\"num\">Hours</th>"
    "<th scope=\"col\" class=\"num\">Target Lmax</th><th scope=\"col\" class=\"num\">Lmax</th>"
    "<th scope=\"col\" class=\"num\">Lmin</th><th scope=\"col\" class=\"num\">Sensor</th>"
    "<th scope=\"col\" class=\"num\">Deviation</th><th scope=\"col\">Limits</th>"
    "<th scope=\"col\">By</th><th scope=\"col\">Instrument</th></tr></thead><tbody>\n";

}  // namespace

std::string chartsSection(const std::vector<Chart>& charts) {
  if (charts.empty()) return {};
  std::string body = "<div class=\"charts\">\n";
  for (const Chart& chart : charts) body += figure(chart);
  return section("charts", "Charts", body + "</div>\n");
}

std::string historySection(const ReportView& view) {
  if (view.history.empty()) return {};
  std::string body(kHistoryHead);
  for (const HistoryPoint& point : view.history) body += historyRow(point);
  return section("history", "Earlier runs", body + "</tbody></table>\n");
}

std::string timelineSection(const ReportView& view) {
  std::string body;
  if (!view.record.warnings.empty()) {
    body += "<ul class=\"warnings\">\n";
    for (const std::string& warning : view.record.warnings)
      body += "<li><strong>Warning:</strong> " + outsideText(warning) + "</li>\n";
    body += "</ul>\n";
  }
  if (!view.record.timeline.empty()) {
    body += "<ol class=\"timeline\">\n";
    for (const TimelineEvent& event : view.record.timeline)
      body += fmt::format("<li><span class=\"time\">{:.1f} s</span> {}</li>\n", event.time,
                          outsideText(event.text));
    body += "</ol>\n";
  }
  return body.empty() ? body : section("timeline", "Warnings and timeline", body);
}

std::string pointsSection(const ReportView& view) {
  if (view.record.patches.empty()) return {};
  const auto curve = wantedCurve(view.record.target, view.evaluation.lmin, view.evaluation.lmax);
  std::string body(kPointsHead);
  for (const PatchResult& patch : view.record.patches)
    body += pointRow(patch, wantedAt(patch, curve));
  return section("points", "All measured points", body + "</tbody></table>\n");
}

std::string sourcesSection(const ReportView& view) {
  std::string body =
      "<p>The deviation of the contrast response is the contrast 2(L₂ − L₁)/(L₂ + L₁) of "
      "neighbouring levels, room light included, against that of the display function between the "
      "measured black and white; 18 levels decide, more inform.</p>\n";
  if (view.verdict.profile) {
    body += "<dl class=\"sources\">\n";
    for (const Limit& limit : view.verdict.profile->limits)
      body += fmt::format("<dt>{}: {}</dt><dd>{}</dd>\n", escapeHtml(nameOf(limit.quantity)),
                          escapeHtml(formatLimit(limit)), escapeHtml(limit.source));
    body += "</dl>\n";
  }
  return section("sources", "How it is judged", body);
}

std::string versionsSection(const ReportView& view) {
  const VersionInfo& v = view.record.versions;
  std::string body = "<table class=\"versions\"><tbody>\n";
  const auto row = [&](std::string_view name, const std::string& html) {
    body += fmt::format("<tr><th scope=\"row\">{}</th><td>{}</td></tr>\n", name, html);
  };
  row("kovctl", outsideText(v.kovctl));
  row("Library", outsideText(v.library));
  row("Java runtime", outsideText(v.javaRuntime));
  for (const JarInfo& jar : v.jars)
    row(outsideText(jar.name), "<code class=\"hash\">" + escapeHtml(jar.sha256) + "</code>");
  return section("versions", "Versions", body + "</tbody></table>\n");
}

}  // namespace kovctl
