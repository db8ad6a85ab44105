// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RECORD_FIELDS_H_
#define L5KOV_TOOLS_KOVCTL_RECORD_FIELDS_H_

#include <concepts>
#include <limits>
#include <type_traits>

#include "record/run_record.h"

namespace kovctl {

/// What a number may be, both ends included.
struct Range {
  double lowest = -std::numeric_limits<double>::infinity();
  double highest = std::numeric_limits<double>::infinity();
};

enum class TextForm { kAny, kUtcTime, kSha256, kColorType, kHistorySource };

inline constexpr Range kAnyNumber{};
inline constexpr Range kNotNegative{0.0, kAnyNumber.highest};
inline constexpr Range kUnit{0.0, 1.0};
inline constexpr Range kComponent{0.0, 255.0};
inline constexpr Range kInt32{-2147483648.0, 2147483647.0};
inline constexpr Range kCount{0.0, 2147483647.0};

template <class T, class Of>
concept ConstOrNot = std::same_as<std::remove_const_t<T>, Of>;

// The members of every record type in the order of the file, named once for reading and writing. A
// visitor is called as visit(name, member, Range) for numbers, visit(name, member, TextForm) for
// texts and visit(name, member) for the rest. A member may be absent when its type is
// std::optional.

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<Chromaticity> auto& o) {
  visit("x", o.x, kUnit);
  visit("y", o.y, kUnit);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<Edid> auto& o) {
  visit("model", o.model, TextForm::kAny);
  visit("serial", o.serial, TextForm::kAny);
  visit("year", o.year, kCount);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<MonitorInfo> auto& o) {
  visit("model", o.model, TextForm::kAny);
  visit("serial", o.serial, TextForm::kAny);
  visit("edid", o.edid);
  visit("package", o.package, TextForm::kAny);
  visit("colorType", o.colorType, TextForm::kColorType);
  visit("connection", o.connection, TextForm::kAny);
  visit("workingHours", o.workingHours, kInt32);
  visit("lutIndex", o.lutIndex, kCount);
  visit("lutName", o.lutName, TextForm::kAny);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<InstrumentInfo> auto& o) {
  visit("kind", o.kind, TextForm::kAny);
  visit("name", o.name, TextForm::kAny);
  visit("deviceId", o.deviceId, kAnyNumber);
  visit("serial", o.serial, TextForm::kAny);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<TargetInfo> auto& o) {
  visit("function", o.function);
  visit("lmax", o.lmax, kNotNegative);
  visit("lmin", o.lmin, kNotNegative);
  visit("useMeasuredLmin", o.useMeasuredLmin);
  visit("ambient", o.ambient, kNotNegative);
  visit("whiteName", o.whiteName, TextForm::kAny);
  visit("white", o.white);
  visit("exponent", o.exponent, kAnyNumber);
  visit("levels", o.levels, kCount);
  visit("userCurve", o.userCurve, kAnyNumber);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<PatchResult> auto& o) {
  visit("sequence", o.sequence, Range{1.0, kCount.highest});
  visit("role", o.role);
  visit("r", o.r, kComponent);
  visit("g", o.g, kComponent);
  visit("b", o.b, kComponent);
  visit("level", o.level, kComponent);
  // A meter's noise may carry a black patch below zero.
  visit("luminance", o.luminance, kAnyNumber);
  visit("chromaticity", o.chromaticity);
  visit("time", o.time, kNotNegative);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<RunError> auto& o) {
  visit("code", o.code, kAnyNumber);
  visit("name", o.name, TextForm::kAny);
  visit("text", o.text, TextForm::kAny);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<RunResult> auto& o) {
  visit("photoSensor", o.photoSensor, kInt32);
  visit("lmin", o.lmin, kAnyNumber);
  visit("canceled", o.canceled);
  visit("error", o.error);
  visit("monitorState", o.monitorState);
  visit("monitorStateText", o.monitorStateText, TextForm::kAny);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<TimelineEvent> auto& o) {
  visit("time", o.time, kNotNegative);
  visit("text", o.text, TextForm::kAny);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<JarInfo> auto& o) {
  visit("name", o.name, TextForm::kAny);
  visit("sha256", o.sha256, TextForm::kSha256);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<VersionInfo> auto& o) {
  visit("kovctl", o.kovctl, TextForm::kAny);
  visit("library", o.library, TextForm::kAny);
  visit("javaRuntime", o.javaRuntime, TextForm::kAny);
  visit("jars", o.jars);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<HistoryPoint> auto& o) {
  visit("time", o.time, TextForm::kAny);
  visit("source", o.source, TextForm::kHistorySource);
  visit("lutNumber", o.lutNumber, kInt32);
  visit("workingHours", o.workingHours, kInt32);
  visit("targetLmax", o.targetLmax, kAnyNumber);
  visit("targetLmin", o.targetLmin, kAnyNumber);
  visit("measuredLmax", o.measuredLmax, kAnyNumber);
  visit("measuredLmin", o.measuredLmin, kAnyNumber);
  visit("photoSensor", o.photoSensor, kInt32);
  visit("maxDeviation", o.maxDeviation, kNotNegative);
  visit("passed", o.passed);
  visit("performer", o.performer, TextForm::kAny);
  visit("instrument", o.instrument, TextForm::kAny);
}

template <class Visitor>
void fields(Visitor& visit, ConstOrNot<RunRecord> auto& o) {
  visit("kind", o.kind);
  visit("simulated", o.simulated);
  visit("monitor", o.monitor);
  visit("instrument", o.instrument);
  visit("operator", o.operatorName, TextForm::kAny);
  visit("host", o.host, TextForm::kAny);
  visit("startTime", o.startTime, TextForm::kUtcTime);
  visit("endTime", o.endTime, TextForm::kUtcTime);
  visit("target", o.target);
  visit("limitsProfile", o.limitsProfile, TextForm::kAny);
  visit("checkPoints", o.checkPoints, kCount);
  visit("patches", o.patches);
  visit("result", o.result);
  visit("timeline", o.timeline);
  visit("warnings", o.warnings, TextForm::kAny);
  visit("versions", o.versions);
  visit("history", o.history);
}

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RECORD_FIELDS_H_
