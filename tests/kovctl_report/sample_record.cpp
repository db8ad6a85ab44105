// SPDX-License-Identifier: MIT
#include "sample_record.h"

#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "metrics/target_curve.h"
#include "record/patch_roles.h"

namespace kovctl::test {
namespace {

// A generator of our own, so that the numbers are the same with every standard library.
class Noise {
 public:
  /// About normal: the mean of twelve uniform numbers.
  double next() {
    double sum = 0.0;
    for (int i = 0; i < 12; ++i) sum += uniform();
    return sum - 6.0;
  }

 private:
  double uniform() {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<double>(state >> 11) / 9007199254740992.0;
  }

  std::uint64_t state = 20261121;
};

class Panel {
 public:
  explicit Panel(RunRecord& run) : record(run) {}

  void show(int r, int g, int b, double luminance, Chromaticity colour,
            PatchRole role = PatchRole::kOther) {
    PatchResult patch;
    patch.sequence = static_cast<int>(record.patches.size()) + 1;
    patch.role = role;
    patch.r = r;
    patch.g = g;
    patch.b = b;
    if (r == g && g == b) patch.level = r;
    patch.luminance = luminance * (1.0 + 0.0013 * noise.next()) + 0.0005 * noise.next();
    patch.chromaticity =
        Chromaticity{colour.x + 0.0002 * noise.next(), colour.y + 0.0002 * noise.next()};
    patch.time = 2.5 * static_cast<double>(patch.sequence);
    record.patches.push_back(patch);
  }

  void gray(int level, double luminance, PatchRole role = PatchRole::kOther) {
    const double dark = std::exp(-luminance / 2.0);
    show(level, level, level, luminance, {0.3127 - 0.012 * dark, 0.3293 - 0.016 * dark}, role);
  }

  static double native(int level) {
    const double t = level / 255.0;
    const double gamma = 2.21 + (t - 0.5) * (-0.5) + (t - 0.5) * (t - 0.5) * (-1.2);
    return 0.34 + (332.0 - 0.34) * std::pow(t, gamma);
  }

 private:
  RunRecord& record;
  Noise noise;
};

void describe(RunRecord& record) {
  record.simulated = true;
  record.monitor.model = "KV-320M";
  record.monitor.serial = "A1200417";
  record.monitor.edid = Edid{"KV-320M", "A1200417", 2024};
  record.monitor.package = "KovStandard";
  record.monitor.colorType = "color";
  record.monitor.connection = "USB";
  record.monitor.workingHours = 4213;
  record.monitor.lutIndex = 0;
  record.monitor.lutName = "DICOM";
  record.instrument = {"sim", "Simulated luminance meter", 163, "SIM-0001"};
  record.operatorName = "M. Example";
  record.host = "reading-room-3";
  record.startTime = "2026-11-21T08:25:49Z";
  record.endTime = "2026-11-21T08:29:31Z";
  record.target.function = DisplayFunction::kDicom;
  record.target.lmax = 250.0;
  record.target.lmin = 0.5;
  record.target.ambient = 0.1;
  record.target.whiteName = "K6500";
  record.target.white = Chromaticity{0.312779, 0.329183};
  record.target.levels = 52;
  record.limitsProfile = "diagnostic";
  record.versions.kovctl = "1.0.0";
  record.versions.library = "1.0.0";
  record.versions.javaRuntime = "17.0.12";
  record.versions.jars = {{"KOVLibrary.jar", std::string(64, 'a')},
                          {"dataImport.jar", std::string(64, 'b')}};
}

void addHistory(RunRecord& record) {
  constexpr const char* kTimes[] = {"2025-06-02 07:12:10", "2025-11-25 07:40:31",
                                    "2026-05-20 06:58:03"};
  for (int i = 0; i < 3; ++i) {
    HistoryPoint point;
    point.time = kTimes[i];
    point.source = "monitor";
    point.lutNumber = 1;
    point.workingHours = 1200 + 1000 * i;
    point.targetLmax = 250.0;
    point.targetLmin = 0.5;
    point.measuredLmax = 251.2 - 0.6 * i;
    point.photoSensor = 812 - 6 * i;
    point.performer = "M. Example";
    point.instrument = "Simulated luminance meter";
    record.history.push_back(point);
  }
}

void measureNative(Panel& panel, int grays) {
  constexpr Chromaticity kWhite{0.3127, 0.3293};
  for (const double warmth : {0.955, 0.985, 0.997})
    panel.show(255, 255, 255, 332.0 * warmth, kWhite);
  for (int i = 0; i < 3; ++i) panel.gray(0, Panel::native(0));
  for (int i = 0; i < 3; ++i) panel.gray(255, Panel::native(255));
  panel.show(255, 0, 0, 71.0, {0.64, 0.33});
  panel.show(0, 255, 0, 236.0, {0.30, 0.60});
  panel.show(0, 0, 255, 25.0, {0.15, 0.06});
  for (int i = 0; i < grays; ++i) panel.gray(5 * i, Panel::native(5 * i));
}

void finish(RunRecord& record) {
  record.result.photoSensor = 794;
  record.result.lmin = 0.5;
  record.result.monitorState = MonitorState::kCalibrated;
  record.result.monitorStateText = "The new look-up table is active.";
  record.timeline = {{0.0, "Calibration started"},
                     {22.5, "Panel warm"},
                     {170.0, "Look-up table loaded"},
                     {222.0, "FinishCalibration"}};
}

}  // namespace

RunRecord sampleCalibration() {
  RunRecord record;
  describe(record);
  addHistory(record);
  Panel panel(record);
  measureNative(panel, 52);
  const auto curve = wantedCurve(record.target, std::nullopt);
  const auto measureResult = [&](PatchRole role) {
    for (int level = 0; level <= 255; level += 15)
      panel.gray(level, curve->luminance(level / 255.0) * (1.0 + 0.002 * std::sin(level)), role);
  };
  measureResult(PatchRole::kOther);
  assignCalibrationRoles(record.patches);
  record.checkPoints = 18;
  measureResult(PatchRole::kVerify);
  finish(record);
  return record;
}

RunRecord sampleVerification() {
  RunRecord record;
  describe(record);
  record.kind = RunKind::kVerify;
  record.limitsProfile = "diagnostic";
  Panel panel(record);
  const auto curve = wantedCurve(record.target, std::nullopt);
  for (int level = 0; level <= 255; level += 5)
    panel.gray(level, curve->luminance(level / 255.0) * (level == 120 ? 1.09 : 1.0),
               PatchRole::kVerify);
  finish(record);
  record.result.monitorState = MonitorState::kUnchanged;
  record.result.monitorStateText.clear();
  record.timeline.clear();
  record.warnings = {"The panel has been on for less than 30 minutes."};
  return record;
}

RunRecord sampleCanceled() {
  RunRecord record;
  describe(record);
  Panel panel(record);
  measureNative(panel, 20);
  assignCalibrationRoles(record.patches);
  record.result.canceled = true;
  record.result.error = RunError{-2147483636, "OM_ERR_CANCELED", "Canceled by the operator"};
  record.result.monitorState = MonitorState::kRestored;
  record.result.monitorStateText = "The table that was active before is active again.";
  return record;
}

std::string hostileTag(const std::string& field) {
  return "'\" onmouseover='alert(1)' x=\"<b id=" + field + ">";
}

namespace {

// Where nothing else hostile stands: a tag that tells its field.
void plantTags(RunRecord& record) {
  record.monitor.edid = Edid{hostileTag("edid-model"), hostileTag("edid-serial"), 2024};
  record.instrument.kind = hostileTag("instrument-kind");
  record.instrument.serial = hostileTag("instrument-serial");
  record.versions.kovctl = hostileTag("kovctl");
  record.versions.library = hostileTag("library");
  for (HistoryPoint& point : record.history) point.instrument = hostileTag("history-instrument");
  // The others keep theirs, so that they are drawn.
  record.history.front().time = hostileTag("history-time");
}

}  // namespace

RunRecord hostileRecord() {
  RunRecord record = sampleCalibration();
  const std::string attack = "</script></title><img src=x onerror=\"document.title='owned'\"><!--";
  record.monitor.model = attack;
  record.monitor.serial = "\"><script>document.title='owned'</script>";
  record.monitor.package = "' onmouseover='alert(1)";
  record.monitor.connection = "\xE2\x80\xAEgnp.exe";  // right-to-left override
  record.monitor.lutName = "a\x01\x02\xFF\xC0\xAF z";
  record.instrument.name = "<svg onload=alert(1)>";
  record.operatorName = "&lt;b&gt; & <b>";
  record.host = "]]></style><script>1</script>";
  record.limitsProfile = "<i>";
  record.target.whiteName = "<script>alert(2)</script>";
  record.warnings = {attack};
  record.timeline = {{1.0, "<!-- <script> --> " + attack}};
  record.versions.javaRuntime = attack;
  record.versions.jars = {{"</table>" + attack, std::string(64, '0')}};
  record.result.error = RunError{1, "<b>", attack};
  record.result.monitorStateText = attack;
  for (HistoryPoint& point : record.history) point.performer = attack;
  plantTags(record);
  return record;
}

RunRecord completeRecord() {
  RunRecord record = sampleCalibration();
  record.target.function = DisplayFunction::kUserDefine;
  record.target.exponent = 2.2;
  record.target.userCurve = {0.0, 0.25, 1.0};
  record.warnings = {"A warning."};
  record.result.error = RunError{-2147483648LL, "OM_ERR_JAVA", "No such luck"};
  for (HistoryPoint& point : record.history) {
    point.measuredLmin = 0.51;
    point.maxDeviation = 0.021;
    point.passed = true;
  }
  return record;
}

RunRecord sampleByName(const std::string& name) {
  if (name == "calibration") return sampleCalibration();
  if (name == "verification") return sampleVerification();
  if (name == "canceled") return sampleCanceled();
  if (name == "hostile") return hostileRecord();
  if (name == "complete") return completeRecord();
  throw std::invalid_argument("no such sample: " + name);
}

}  // namespace kovctl::test
