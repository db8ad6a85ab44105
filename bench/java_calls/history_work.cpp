// SPDX-License-Identifier: MIT
// A monitor's calibration history: the getters of every entry.
#include <cmath>
#include <vector>

#include "bench/java_calls/raw_java.h"
#include "bench/support/measured.h"
#include "bench/support/workstation.h"

namespace {

using bench::measure;
using bench::raw;
using lumora::kov::KovCalibrationHisInfo;

void settleHistory(std::int64_t entries) {
  bench::workstation().settle("history.limit = 20000\nextra.history = " + std::to_string(entries));
}

void history(benchmark::State& state) {
  bench::colourMonitor();
  settleHistory(state.range(0));
  measure(state, [] { return bench::colourMonitor().getExtractCalibrationData(); });
  state.counters["entries"] =
      static_cast<double>(bench::colourMonitor().getExtractCalibrationData().size());
}

// Calls getters on one object; kChecked with the three steps of a call whose exception must not be
// missed, and with a global reference for each object that is kept while others are asked, which is
// what the library does; otherwise the least that works.
template <bool kChecked>
class Reader {
 public:
  Reader() : r(raw()) {}

  template <class Work>
  auto call(Work work) const {
    if constexpr (kChecked) return bench::checked(r.env, work);
    return work();
  }
  jobject object(jobject of, jmethodID id) const {
    return call([&] { return r.env->CallObjectMethod(of, id); });
  }
  jint number(jobject of, jmethodID id) const {
    return call([&] { return r.env->CallIntMethod(of, id); });
  }
  double real(jobject of, jmethodID id) const {
    return call([&] { return r.env->CallDoubleMethod(of, id); });
  }
  bool flag(jobject of, jmethodID id) const {
    return call([&] { return r.env->CallBooleanMethod(of, id); }) == JNI_TRUE;
  }
  std::string text(jobject of, jmethodID id) const {
    const jobject string = object(of, id);
    return string != nullptr ? bench::copyOfText(r.env, string) : std::string();
  }
  jobject kept(jobject local) const {
    if constexpr (!kChecked) return local;
    return local != nullptr ? r.env->NewGlobalRef(local) : nullptr;
  }
  void drop(jobject global) const {
    if constexpr (kChecked) {
      if (global != nullptr) r.env->DeleteGlobalRef(global);
    }
  }
  jint boxed(jobject of, jmethodID id) const {
    const jobject box = kept(object(of, id));
    const jint value = box != nullptr ? number(box, r.intValue) : 0;
    drop(box);
    return value;
  }
  double boxedReal(jobject of, jmethodID id) const {
    const jobject box = kept(object(of, id));
    const double value = box != nullptr ? real(box, r.doubleValue) : 0.0;
    drop(box);
    return value;
  }

 private:
  const bench::RawJava& r;
};

struct EntryIds {
  EntryIds() {
    JNIEnv* env = raw().env;
    const auto entry = [&](const char* name, const char* signature) {
      return env->GetMethodID(raw().entryClass, name, signature);
    };
    const auto target = [&](const char* name, const char* signature) {
      return env->GetMethodID(raw().targetClass, name, signature);
    };
    constexpr const char* kText = "()Ljava/lang/String;";
    constexpr const char* kBoxed = "()Ljava/lang/Integer;";
    lutNumber = entry("getLutNumber", "()I");
    verticalResolution = entry("getVerticalResolution", kBoxed);
    horizontalResolution = entry("getHorizontalResolution", kBoxed);
    workingHours = entry("getWorkingHours", kBoxed);
    performer = entry("getPerformer", kText);
    computerName = entry("getComputerName", kText);
    colorDepth = entry("getColorDepth", kBoxed);
    executeDate = entry("getExecuteDate", kText);
    horizontalFrequency = entry("getHorizontalFrequency", "()Ljava/lang/Double;");
    verticalFrequency = entry("getVerticalFrequency", kBoxed);
    sensor = entry("getBacklightSensorValue", kBoxed);
    deviceSerial = entry("getMeasurementDeviceSerialNumber", kText);
    deviceType = entry("getMeasurementDeviceType",
                       "()Lcom/orva/kov/library/api/MeasurementDeviceType;");
    targetValues = entry("getCalibrationTargetValues",
                         "()Lcom/orva/kov/library/api/CalibrationTargetValues;");
    typeName = env->GetMethodID(raw().deviceTypeClass, "getName", kText);
    typeId = env->GetMethodID(raw().deviceTypeClass, "getId", "()I");
    maxLuminance = target("getMaxLuminance", "()D");
    minLuminance = target("getMinLuminance", "()D");
    isColor = target("isColorCalibration", "()Z");
    colorX = target("getColorX", "()D");
    colorY = target("getColorY", "()D");
    gammaType = target("getGammaModelType", kText);
    gammaValue = target("getGammaValue", "()D");
    ambient = target("getAmbientLightValue", "()D");
  }
  jmethodID lutNumber, verticalResolution, horizontalResolution, workingHours, performer,
      computerName, colorDepth, executeDate, horizontalFrequency, verticalFrequency, sensor,
      deviceSerial, deviceType, targetValues, typeName, typeId, maxLuminance, minLuminance, isColor,
      colorX, colorY, gammaType, gammaValue, ambient;
};

template <bool kChecked>
void readTarget(const Reader<kChecked>& read, const EntryIds& id, jobject entry,
                KovCalibrationHisInfo& info) {
  const jobject target = read.kept(read.object(entry, id.targetValues));
  const jobject type = read.kept(read.object(entry, id.deviceType));
  info.target.deviceKind = read.text(type, id.typeName) == "None" ? 0 : 1;
  read.drop(type);
  info.target.calibrationKind = "STANDARD";
  info.target.maxLuminance = read.real(target, id.maxLuminance);
  info.target.minLuminance = read.real(target, id.minLuminance);
  info.target.colorMode = read.flag(target, id.isColor) ? "CUSTOM" : "OFF";
  if (info.target.colorMode == "CUSTOM") {
    info.target.colorX = read.real(target, id.colorX);
    info.target.colorY = read.real(target, id.colorY);
  }
  const std::string function = read.text(target, id.gammaType);
  if (function == "Gamma Function") {
    const double exponent = read.real(target, id.gammaValue);
    info.target.displayFunction = std::abs(exponent - 1.0) < 1e-6 ? 4 : 2;
    if (info.target.displayFunction == 2) {
      info.target.gammaValue = read.real(target, id.gammaValue);
    }
  } else {
    info.target.displayFunction = function == "CIE 1976" ? 1 : 0;
  }
  info.target.validFlag = true;
  info.target.ambientLight = read.real(target, id.ambient);
  read.drop(target);
}

template <bool kChecked>
KovCalibrationHisInfo readEntry(const Reader<kChecked>& read, const EntryIds& id, jobject entry) {
  KovCalibrationHisInfo info;
  info.lutNumber = static_cast<std::uint16_t>(read.number(entry, id.lutNumber) + 1);
  info.verticalResolution = static_cast<std::uint16_t>(read.boxed(entry, id.verticalResolution));
  info.horizontalResolution =
      static_cast<std::uint16_t>(read.boxed(entry, id.horizontalResolution));
  info.run.workingHours = read.boxed(entry, id.workingHours);
  info.run.performer = read.text(entry, id.performer);
  info.run.computerName = read.text(entry, id.computerName);
  info.colorDepth = static_cast<std::uint16_t>(read.boxed(entry, id.colorDepth));
  info.run.executeDate = read.text(entry, id.executeDate);
  info.horizontalFrequency =
      static_cast<std::int32_t>(read.boxedReal(entry, id.horizontalFrequency) * 1000.0);
  info.verticalFrequency = static_cast<std::uint16_t>(read.boxed(entry, id.verticalFrequency));
  readTarget(read, id, entry, info);
  info.backlightSensorValue = static_cast<std::uint16_t>(read.boxed(entry, id.sensor));
  const jobject type = read.kept(read.object(entry, id.deviceType));
  info.target.deviceId = read.number(type, id.typeId);
  read.drop(type);
  info.target.deviceSerialNumber = read.text(entry, id.deviceSerial);
  return info;
}

template <bool kChecked>
void historyByHand(benchmark::State& state) {
  const bench::RawJava& r = raw();
  static const EntryIds ids;
  settleHistory(state.range(0));
  const Reader<kChecked> read;
  measure(state, [&] {
    std::vector<KovCalibrationHisInfo> result;
    r.env->PushLocalFrame(1024);
    const jobject list = read.object(r.monitor, r.extractCalibrationData);
    const jint size = read.number(list, r.listSize);
    result.reserve(static_cast<std::size_t>(size));
    for (jint i = 0; i < size; ++i) {
      r.env->PushLocalFrame(32);  // else the references of all entries would lie there at once
      const jobject entry = read.kept(
          read.call([&] { return r.env->CallObjectMethod(list, r.listGet, i); }));
      result.push_back(readEntry(read, ids, entry));
      read.drop(entry);
      r.env->PopLocalFrame(nullptr);
    }
    r.env->PopLocalFrame(nullptr);
    return result;
  });
}

}  // namespace

BENCHMARK(history)->Name("history/library")->Arg(10)->Arg(100)->Arg(1000)->Arg(10000);
BENCHMARK(historyByHand<true>)->Name("history/raw")->Arg(10)->Arg(100)->Arg(1000)->Arg(10000);
BENCHMARK(historyByHand<false>)
    ->Name("history/raw_unchecked")->Arg(10)->Arg(100)->Arg(1000)->Arg(10000);
