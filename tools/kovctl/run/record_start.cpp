// SPDX-License-Identifier: MIT
#include "run/record_start.h"

#include <algorithm>

#include "doctor/java_release.h"
#include "doctor/plugin_layout.h"
#include "report/sha256.h"
#include "run/history_times.h"
#include "run/measurements.h"
#include "system/files.h"
#include "version.h"

namespace kovctl {
namespace {

void addJar(VersionInfo& info, const std::string& path) {
  const auto content = sys::readWhole(path);
  if (content) info.jars.push_back({path.substr(path.rfind('/') + 1), sha256Hex(*content)});
}

}  // namespace

VersionInfo versions() {
  const PluginLayout layout = PluginLayout::find();
  VersionInfo info;
  info.kovctl = kVersion;
  info.library = kVersion;
  info.javaRuntime = JavaRelease::of(layout.jre).version;
  addJar(info, layout.dataImportJar);
  addJar(info, layout.libraryJar);
  return info;
}

std::vector<HistoryPoint> monitorHistory(const lumora::Monitor& monitor, int lut) {
  std::vector<HistoryPoint> points;
  for (const auto& entry : monitor.getExtractCalibrationData()) {
    if (entry.lutNumber != lut + 1) continue;
    HistoryPoint point;
    point.time = utcOf(entry.run.executeDate);
    point.source = "monitor";
    point.lutNumber = entry.lutNumber;
    point.workingHours = entry.run.workingHours;
    if (entry.target.maxLuminance > 0.0) {
      point.targetLmax = entry.target.maxLuminance;
      point.targetLmin = entry.target.minLuminance;
    }
    if (entry.backlightSensorValue > 0) point.photoSensor = entry.backlightSensorValue;
    point.performer = entry.run.performer;
    point.instrument = entry.target.deviceSerialNumber;
    points.push_back(point);
  }
  std::stable_sort(points.begin(), points.end(),
                   [](const HistoryPoint& a, const HistoryPoint& b) { return a.time < b.time; });
  return points;
}

RunRecord startRecord(RunKind kind, const ChosenMonitor& chosen, int lut,
                      const TargetRequest& request, const RunOptions& options,
                      const InstrumentInfo& instrument) {
  RunRecord record;
  record.kind = kind;
  record.simulated = isSimulationLoaded() || instrument.kind != "argyll";
  record.monitor = monitorInfo(chosen.monitor, chosen.name, lut);
  record.instrument = instrument;
  record.operatorName = options.operatorName;
  record.host = sys::hostName();
  record.startTime = utcNow();
  record.target = request.target;
  record.limitsProfile = options.limits == "none" ? "" : options.limits;
  record.checkPoints = options.checkPoints;
  record.versions = versions();
  record.history = monitorHistory(chosen.monitor, lut);
  return record;
}

}  // namespace kovctl
