// SPDX-License-Identifier: MIT
#include "report/report.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "metrics/verdict.h"
#include "record/run_record_json.h"
#include "report/html.h"
#include "report/sha256.h"
#include "sample_record.h"

namespace kovctl {
namespace {

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t times = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++times;
  return times;
}

// What stands between two texts, the first time.
std::string between(const std::string& text, const std::string& before, const std::string& after) {
  const std::size_t begin = text.find(before);
  if (begin == std::string::npos) return {};
  const std::size_t from = begin + before.size();
  return text.substr(from, text.find(after, from) - from);
}

TEST(Html, EscapesWhatHasAMeaning) {
  EXPECT_EQ(escapeHtml("<a href=\"x\" b='y'>&</a>"),
            "&lt;a href=&quot;x&quot; b=&#39;y&#39;&gt;&amp;&lt;/a&gt;");
  EXPECT_EQ(escapeHtml("Größe ✓ 😀\tb\nc"), "Größe ✓ 😀\tb\nc");
}

TEST(Html, ReplacesControlsAndWhatIsNotUtf8) {
  const std::string bad = "\xEF\xBF\xBD";
  EXPECT_EQ(escapeHtml(std::string("a\0b\x1b\x7f", 5)), "a" + bad + "b" + bad + bad);
  EXPECT_EQ(escapeHtml("\xFF"), bad);
  EXPECT_EQ(escapeHtml("\xC0\xAF"), bad + bad) << "an overlong slash";
  EXPECT_EQ(escapeHtml("\xE2\x82"), bad + bad) << "a cut-off sequence";
  EXPECT_EQ(escapeHtml("\xED\xA0\x80"), bad + bad + bad) << "a surrogate";
  EXPECT_EQ(escapeHtml("\xF4\x90\x80\x80"), bad + bad + bad + bad) << "beyond U+10FFFF";
  EXPECT_EQ(escapeHtml("\xE2\x82<"), bad + bad + "&lt;") << "must not swallow the next sign";
}

TEST(Html, OutsideTextIsFencedOff) {
  EXPECT_EQ(outsideText("a<b"), "<bdi>a&lt;b</bdi>");
  EXPECT_EQ(outsideText(""), "<span class=\"none\">–</span>");
}

TEST(Html, JsonCannotEndItsElement) {
  const std::string json = "{\"a\": \"</script><!--<script>&\"}";
  const std::string escaped = escapeJsonForScript(json);
  EXPECT_EQ(escaped.find('<'), std::string::npos);
  EXPECT_EQ(nlohmann::json::parse(escaped), nlohmann::json::parse(json));
}

// FIPS 180-4's examples, and a million letters.
TEST(Html, StyleStringsCannotEndThemselves) {
  EXPECT_EQ(cssString("OR-C321 Größe"), "\"OR-C321 Größe\"");
  EXPECT_EQ(cssString("a\"b\\c</style>\n"), "\"a\\22 b\\5c c\\3c /style\\3e \\a \"");
  // A browser would turn these bytes into the same before it compares the policy's digest.
  EXPECT_EQ(cssString("\xFF"), "\"\xEF\xBF\xBD\"");
}

TEST(Sha256, GivesThePublishedDigests) {
  EXPECT_EQ(sha256Hex(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(sha256Hex("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(sha256Hex("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(sha256Hex(std::string(1000000, 'a')),
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
  EXPECT_EQ(sha256Base64(""), "47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU=");
}

TEST(Report, SaysTheVerdictFirst) {
  const std::string html = renderReport(test::sampleCalibration());
  EXPECT_EQ(html.rfind("<!DOCTYPE html>\n<html lang=\"en\">", 0), 0U);
  const std::size_t verdict = html.find("<section id=\"verdict\"");
  ASSERT_NE(verdict, std::string::npos);
  EXPECT_EQ(html.find("<section"), verdict);
  EXPECT_NE(html.find("data-outcome=\"pass\""), std::string::npos);
  EXPECT_NE(html.find("Within limits"), std::string::npos);
  EXPECT_EQ(count(html, "<h1>"), 1U);
}

TEST(Report, NamesTheMonitorOnEveryPage) {
  const std::string style = between(renderReport(test::sampleCalibration()), "<style>", "</style>");
  const std::string foot = between(style, "@bottom-left { content: \"", "\"");
  EXPECT_EQ(foot, "Calibration report (simulated) · KV-320M A1200417 · 2026-11-21 08:29:31 UTC");
}

TEST(Report, SaysTheStateOnce) {
  RunRecord record = test::sampleCalibration();
  record.result.monitorState = MonitorState::kCalibrated;
  record.result.monitorStateText = "calibrated: look-up table 0 holds it";
  EXPECT_NE(renderReport(record).find("<strong>calibrated</strong> – <bdi>look-up table 0 holds"),
            std::string::npos);
}

TEST(Report, HasEverySection) {
  const std::string html = renderReport(test::completeRecord());
  for (const char* id : {"verdict", "identity", "target", "charts", "timeline", "history", "points",
                         "sources", "versions"})
    EXPECT_NE(html.find("<section id=\"" + std::string(id) + "\""), std::string::npos) << id;
  EXPECT_EQ(count(html, "<svg "), 6U);
  EXPECT_EQ(count(html, "role=\"img\" aria-labelledby="), 6U);
  EXPECT_NE(html.find(std::string(64, 'a')), std::string::npos) << "hash of a jar";
}

TEST(Report, ListsEveryPoint) {
  const RunRecord record = test::sampleCalibration();
  const std::string table = between(renderReport(record), "<table class=\"points\">", "</table>");
  EXPECT_EQ(count(table, "<tr class="), record.patches.size());
  EXPECT_EQ(count(table, "<tr class=\"verify\">"), 18U);
}

TEST(Report, ShowsTheNumbersOfTheVerdict) {
  const RunRecord record = test::sampleVerification();
  const Verdict verdict = judge(record, evaluate(record));
  const std::string html = renderReport(record);
  EXPECT_NE(html.find("data-outcome=\"fail\""), std::string::npos);
  for (const Criterion& criterion : verdict.criteria) {
    const std::string row = between(
        html, "<tr data-quantity=\"" + std::to_string(static_cast<int>(criterion.quantity)) + "\">",
        "</tr>");
    EXPECT_NE(row.find(formatValue(criterion.quantity, *criterion.value)), std::string::npos);
    EXPECT_EQ(row.find("not met") != std::string::npos, criterion.outcome == Outcome::kFail);
  }
}

TEST(Report, MarksSimulatedRunsAndOnlyThem) {
  RunRecord record = test::sampleCalibration();
  EXPECT_NE(renderReport(record).find("Simulated run."), std::string::npos);
  record.simulated = false;
  EXPECT_EQ(renderReport(record).find("Simulated run."), std::string::npos);
}

TEST(Report, CanceledRunSaysSoAndWhatStateTheMonitorIsIn) {
  const std::string html = renderReport(test::sampleCanceled());
  EXPECT_NE(html.find("<h2 id=\"verdict-title\">Canceled</h2>"), std::string::npos);
  EXPECT_NE(html.find("<strong>restored</strong>"), std::string::npos);
  EXPECT_NE(html.find("OM_ERR_CANCELED"), std::string::npos);
}

TEST(Report, EmptyRecordMakesAPage) {
  const std::string html = renderReport(RunRecord{});
  EXPECT_NE(html.find("Not judged"), std::string::npos);
  EXPECT_EQ(count(html, "<svg "), 0U);
}

TEST(Report, StrangeNumbersStillMakeAPage) {
  for (const double luminance : {0.0, -1.0, 1e-320, 1e-7, 250.0, 1e300}) {
    RunRecord record = test::sampleVerification();
    for (PatchResult& patch : record.patches) {
      patch.luminance = luminance;
      patch.chromaticity = Chromaticity{1.0, 0.0};
    }
    EXPECT_NE(renderReport(record).find("</html>"), std::string::npos) << luminance;
    record.patches.back().luminance = 250.0 + 1e-13;
    record.patches.back().chromaticity = Chromaticity{0.0, 1.0};
    record.target.lmax = luminance > 0.0 ? luminance : 0.0;
    const std::string html = renderReport(record);
    EXPECT_NE(html.find("</html>"), std::string::npos) << luminance;
    const std::string pictures =
        html.substr(html.find("<svg"), html.rfind("</svg>") - html.find("<svg"));
    EXPECT_FALSE(std::regex_search(pictures, std::regex("[\" ML>−-](nan|inf)[\" L<]")))
        << luminance;
    EXPECT_LT(html.size(), 400000U) << luminance;
  }
}

TEST(Report, TheDataInsideIsTheRecord) {
  for (const char* name : {"calibration", "verification", "canceled", "complete"}) {
    RunRecord record = test::sampleByName(name);
    const std::string html = renderReport(record);
    const std::string json =
        between(html, "<script type=\"application/json\" id=\"run-record\">", "</script>");
    EXPECT_EQ(readRunRecord(json), record) << name;
  }
}

TEST(Report, TakesFurtherHistoryIntoTheDrawingAndTheData) {
  RunRecord record = test::sampleCalibration();
  HistoryPoint point = record.history.back();
  point.time = "2026-08-01T06:00:00Z";
  point.performer = "Somebody else";
  const std::string html = renderReport(record, {point, record.history[0]});
  record.history.push_back(point);
  EXPECT_EQ(readRunRecord(between(html, "id=\"run-record\">", "</script>")), record);
  EXPECT_NE(html.find("<bdi>Somebody else</bdi>"), std::string::npos);
}

TEST(Report, NothingHostileGetsOut) {
  const std::string html = renderReport(test::hostileRecord());
  const std::string safe = renderReport(test::sampleCalibration());
  EXPECT_EQ(count(html, "<script"), count(safe, "<script"));
  EXPECT_EQ(count(html, "</script"), count(safe, "</script"));
  EXPECT_EQ(count(html, "</style"), 1U);
  EXPECT_EQ(html.find("<img"), std::string::npos);
  EXPECT_EQ(html.find("<svg onload"), std::string::npos);
  EXPECT_EQ(html.find("<!--"), std::string::npos);
  EXPECT_NE(html.find("&lt;img src=x"), std::string::npos) << "it is shown, as text";
  EXPECT_EQ(html.find('\x01'), std::string::npos);
}

TEST(Report, NothingHostileEndsAnAttributeOrBeginsAnElement) {
  const std::string html = renderReport(test::hostileRecord());
  // In the record's own text at the end quotes are those of JSON, and "<" is escaped there, too.
  const std::string page = html.substr(0, html.find("id=\"run-record\">"));
  ASSERT_LT(page.size(), html.size());
  EXPECT_NE(page.find("&#39; onmouseover=&#39;alert(1)"), std::string::npos) << "the package";
  EXPECT_EQ(page.find("' onmouseover="), std::string::npos);
  EXPECT_EQ(page.find("\" onmouseover="), std::string::npos);
  EXPECT_EQ(html.find("<b id="), std::string::npos);
  for (const char* field : {"edid-model", "edid-serial", "instrument-kind", "instrument-serial",
                            "kovctl", "library", "history-instrument", "history-time"}) {
    EXPECT_NE(page.find("<bdi>" + escapeHtml(test::hostileTag(field)) + "</bdi>"),
              std::string::npos)
        << field << " is shown, as text";
  }
}

TEST(Report, ThePolicyForbidsTheNetworkAndNamesItsOwnTexts) {
  const std::string html = renderReport(test::hostileRecord());
  const std::string policy = between(html, "Content-Security-Policy\" content=\"", "\"");
  EXPECT_EQ(policy.rfind("default-src 'none';", 0), 0U);
  EXPECT_EQ(policy.find("unsafe"), std::string::npos);
  EXPECT_EQ(policy.find("http"), std::string::npos);
  const std::string style = between(html, "<style>", "</style>");
  EXPECT_NE(policy.find("style-src 'sha256-" + sha256Base64(style) + "'"), std::string::npos);
  const std::string script = between(html, "<script>", "</script>");
  EXPECT_EQ(script.empty(), !hasInteractiveCharts());
  EXPECT_NE(policy.find(script.empty() ? std::string("script-src 'none'")
                                       : "script-src 'sha256-" + sha256Base64(script) + "'"),
            std::string::npos);
}

TEST(Report, AsksForNothingFromOutside) {
  const std::string html = renderReport(test::completeRecord());
  for (const char* asking : {" src=", "<link", "@import", "url(", "<iframe", "<object", "<base"})
    EXPECT_EQ(html.find(asking), std::string::npos) << asking;
  const std::regex style(" style=\"");
  EXPECT_FALSE(std::regex_search(html, style)) << "the policy would refuse it";
}

TEST(Report, IsTheSameForTheSameRecord) {
  EXPECT_EQ(renderReport(test::completeRecord()), renderReport(test::completeRecord()));
}

}  // namespace
}  // namespace kovctl
