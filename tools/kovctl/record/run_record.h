// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RECORD_RUN_RECORD_H_
#define L5KOV_TOOLS_KOVCTL_RECORD_RUN_RECORD_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kovctl {

/// Everything that one run found out, in the shape of schema/run-record.schema.json. A report is
/// drawn from this and from nothing else, so that an old run can be drawn again. Texts are UTF-8;
/// luminances are in cd/m²; chromaticities are CIE 1931 x and y; times are UTC in the form
/// 2026-11-21T08:25:49Z (decimals of a second allowed). A value nobody knows is absent, not 0.

/// Raised when a member changes its meaning or a new one must not be ignored.
inline constexpr int kRunRecordVersion = 1;

enum class RunKind { kCalibrate, kVerify };

/// The names in files are those of the library's target key "DisplayFunctionType".
enum class DisplayFunction { kDicom, kCie, kExp, kLogLinear, kLinear, kNative, kUserDefine };

/// What a patch was measured for. In a calibration kGray is the panel before it is corrected (its
/// native response), kLibraryVerify what the library measures when it has corrected it. kVerify is
/// the panel as it is to be used, measured independently, and only it decides the verdict.
enum class PatchRole { kWarmUp, kBlack, kWhite, kPrimary, kGray, kLibraryVerify, kVerify, kOther };

enum class MonitorState { kCalibrated, kUnchanged, kRestored, kUnknown };

struct Chromaticity {
  double x = 0.0;
  double y = 0.0;
  bool operator==(const Chromaticity&) const = default;
};

struct Edid {
  std::string model;
  std::string serial;
  std::optional<int> year;  ///< of manufacture
  bool operator==(const Edid&) const = default;
};

struct MonitorInfo {
  std::string model;
  std::string serial;
  std::optional<Edid> edid;
  std::string package;     ///< calibration package of the name table; empty: none
  std::string colorType;   ///< "color" or "monochrome"
  std::string connection;  ///< as the library names it
  std::optional<int> workingHours;
  std::optional<int> lutIndex;  ///< the look-up table calibrated or measured, counted from 0
  std::string lutName;
  bool operator==(const MonitorInfo&) const = default;
};

struct InstrumentInfo {
  std::string kind;  ///< "sim", "argyll", "icc", …
  std::string name;  ///< for people
  std::optional<std::int64_t> deviceId;
  std::string serial;
  bool operator==(const InstrumentInfo&) const = default;
};

struct TargetInfo {
  DisplayFunction function = DisplayFunction::kDicom;
  double lmax = 0.0;  ///< 0: the panel's own white
  double lmin = 0.0;
  bool useMeasuredLmin = false;       ///< the panel's own black instead of lmin
  std::optional<double> ambient;      ///< light that the room adds to every level
  std::string whiteName;              ///< "K6500", "CUSTOM", "OFF" as the library takes it
  std::optional<Chromaticity> white;  ///< the colour point meant; absent: any white will do
  std::optional<double> exponent;     ///< of kExp
  int levels = 0;                     ///< gray levels measured; 0: the library chose
  std::vector<double> userCurve;      ///< of kUserDefine, evenly spaced from black to white
  bool operator==(const TargetInfo&) const = default;
};

struct PatchResult {
  int sequence = 0;  ///< counted from 1, in the order of measurement
  PatchRole role = PatchRole::kGray;
  int r = 0;  ///< 0 to 255
  int g = 0;
  int b = 0;
  std::optional<int> level;  ///< 0 to 255 when r, g and b are equal
  double luminance = 0.0;
  std::optional<Chromaticity> chromaticity;  ///< absent: the instrument measures no colour
  double time = 0.0;                         ///< s since the start of the run
  bool operator==(const PatchResult&) const = default;
};

struct RunError {
  std::int64_t code = 0;  ///< the library's result code, or the instrument's
  std::string name;       ///< "OM_ERR_JAVA", …
  std::string text;
  bool operator==(const RunError&) const = default;
};

struct RunResult {
  std::optional<int> photoSensor;  ///< backlight sensor reading
  std::optional<double> lmin;      ///< the minimum luminance that the library reports
  bool canceled = false;
  std::optional<RunError> error;
  MonitorState monitorState = MonitorState::kUnknown;
  std::string monitorStateText;  ///< one sentence for people
  bool operator==(const RunResult&) const = default;
};

struct TimelineEvent {
  double time = 0.0;  ///< s since the start of the run
  std::string text;
  bool operator==(const TimelineEvent&) const = default;
};

struct JarInfo {
  std::string name;
  std::string sha256;  ///< 64 lower-case hexadecimal digits
  bool operator==(const JarInfo&) const = default;
};

struct VersionInfo {
  std::string kovctl;
  std::string library;
  std::string javaRuntime;
  std::vector<JarInfo> jars;
  bool operator==(const VersionInfo&) const = default;
};

/// An earlier calibration or check of the same monitor: from the monitor's own history, or from an
/// earlier record. What a source does not know is absent.
struct HistoryPoint {
  std::string time;    ///< as its source writes it; only 2026-11-21T08:25:49Z and alike are drawn
  std::string source;  ///< "monitor" or "record"
  std::optional<int> lutNumber;
  std::optional<int> workingHours;
  std::optional<double> targetLmax;
  std::optional<double> targetLmin;
  std::optional<double> measuredLmax;
  std::optional<double> measuredLmin;
  std::optional<int> photoSensor;
  std::optional<double> maxDeviation;  ///< largest contrast-response deviation, 0.1 for 10 %
  std::optional<bool> passed;
  std::string performer;
  std::string instrument;
  bool operator==(const HistoryPoint&) const = default;
};

struct RunRecord {
  RunKind kind = RunKind::kCalibrate;
  bool simulated = false;  ///< any of panel, library or instrument was not real
  MonitorInfo monitor;
  InstrumentInfo instrument;
  std::string operatorName;
  std::string host;  ///< name of the computer
  std::string startTime;
  std::string endTime;
  TargetInfo target;
  std::string limitsProfile;  ///< a name that findLimits() knows; empty: nothing is judged
  /// Gray levels that an independent check was to measure; 0: none was wanted, and the library's
  /// own verification is all there is.
  std::optional<int> checkPoints;
  std::vector<PatchResult> patches;
  RunResult result;
  std::vector<TimelineEvent> timeline;
  std::vector<std::string> warnings;
  VersionInfo versions;
  std::vector<HistoryPoint> history;
  bool operator==(const RunRecord&) const = default;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RECORD_RUN_RECORD_H_
