// SPDX-License-Identifier: MIT
#include "tests/support/kov_world.h"

#include <algorithm>
#include <mutex>

#include "tests/support/kov_beans.h"

namespace kovtest {

using fakejvm::Call;
using fakejvm::nothing;
using fakejvm::ObjectRef;
using fakejvm::returns;
using fakejvm::Value;

// Shared with the scripts, which run on any thread. `mutex` guards it.
struct KovWorld::State {
  std::mutex mutex;
  std::vector<ObjectRef> statuses;
  std::size_t polls = 0;
  std::function<void(CalibrationRun&)> calibration = simpleCalibration;
  std::function<void()> abortAction;
  int aborts = 0;

  template <typename Action>
  auto locked(Action action) {
    const std::lock_guard<std::mutex> guard(mutex);
    return action();
  }
};

namespace {

Value findMonitor(Call& call) {
  for (const Value& element : call.self->field("monitors").asObject()->elements()) {
    const ObjectRef& monitor = element.asObject();
    if (monitor->field("model").asText() == call.args.at(0).asText() &&
        monitor->field("serialNumber").asText() == call.args.at(1).asText()) {
      return monitor;
    }
  }
  return nullptr;
}

// The table becomes the active one of the monitor that it belongs to.
Value activate(Call& call) {
  const ObjectRef monitor = call.runtime.find(call.self->field("monitor").asText());
  for (const Value& lut : monitor->field("lookUpTables").asObject()->elements()) {
    lut.asObject()->setField("active", lut.asObject() == call.self);
  }
  monitor->setField("activeLut", call.self);
  return {};
}

}  // namespace

KovWorld::KovWorld(FakeJvm& fake) : jvm(fake), state(std::make_shared<State>()) {
  scriptBeans(jvm.runtime);
  library = jvm.object("library", kLibraryClass);
  library->setField("monitors", fakejvm::makeList({}, "monitors"));
  const auto status = [&](const char* name) {
    const ObjectRef constant = jvm.object(name, kStatusClass);
    jvm.runtime.setStaticField(kStatusClass, name, constant);
    return constant;
  };
  statusFinished = status("FINISHED");
  statusNone = status("NONE");
  statusRunning = status("RUNNING");
  state->statuses = {statusFinished};
  scriptLibrary();
  scriptMonitors();
}

void KovWorld::scriptLibrary() {
  fakejvm::Runtime& runtime = jvm.runtime;
  runtime.extends(kLibraryClass, "com/orva/kov/library/api/MonitorLibrary");
  runtime.script(kLibraryClass, "getInstance", returns(library));
  runtime.script(kLibraryClass, "startMonitorSearch", nothing());
  runtime.script(kLibraryClass, "getMonitors",
                 [](Call& call) { return call.self->field("monitors"); });
  runtime.script(kLibraryClass, "getMonitor", findMonitor);
  runtime.script(kLibraryClass, "getSearchStatus", [s = state](Call&) -> Value {
    return s->locked([&] { return s->statuses[std::min(s->polls++, s->statuses.size() - 1)]; });
  });
}

void KovWorld::scriptMonitors() {
  fakejvm::Runtime& runtime = jvm.runtime;
  runtime.script(kLutClass, "activate", activate);
  runtime.script(kMonitorClass, "extractCalibrationData",
                 [](Call& call) { return call.self->field("history"); });
  runtime.script(kMonitorClass, "performCalibration", [s = state](Call& call) -> Value {
    const auto calibration = s->locked([&] { return s->calibration; });
    CalibrationRun run(call);
    calibration(run);
    return {};
  });
  runtime.script(kMonitorClass, "abortCalibration", [s = state](Call&) -> Value {
    const auto action = s->locked([&] {
      ++s->aborts;
      return s->abortAction;
    });
    if (action) action();
    return {};
  });
}

void KovWorld::setSearchStatuses(std::vector<ObjectRef> statuses) {
  state->locked([&] {
    state->statuses = std::move(statuses);
    state->polls = 0;
  });
}

MonitorObjects KovWorld::addMonitor(const std::string& name) {
  fakejvm::Runtime& runtime = jvm.runtime;
  MonitorObjects made;
  made.monitor = runtime.object(name, kMonitorClass);
  made.edid = runtime.object(name + "Edid", kEdidClass);
  made.edid->setField("modelName", "L5X240")
      .setField("serialNumber", "1234")
      .setField("yearOfManufacture", 2019);
  made.osd = runtime.object(name + "Osd", kOsdClass);
  made.osd->setField("lockSupported", true).setField("locked", false);
  for (int i = 0; i < 2; ++i) {
    const ObjectRef lut = runtime.object(name + "Lut" + std::to_string(i), kLutClass);
    lut->setField("index", i)
        .setField("name", "LUT " + std::to_string(i + 1))
        .setField("active", i == 0)
        .setField("monitor", name);
    made.luts.push_back(lut);
  }
  made.history = fakejvm::makeList({}, name + "History");
  made.monitor->setField("model", "L5-X240")
      .setField("serialNumber", "SN0001")
      .setField("colorType", "Color")
      .setField("connectionType", "USB")
      .setField("workingHours", 4321)
      .setField("edidInformation", made.edid)
      .setField("lookUpTables", fakejvm::makeList({made.luts[0], made.luts[1]}, name + "Luts"))
      .setField("activeLut", made.luts[0])
      .setField("osd", made.osd)
      .setField("history", made.history);
  library->field("monitors").asObject()->addElement(made.monitor);
  return made;
}

HistoryObjects KovWorld::addHistory(const MonitorObjects& monitor, int lutNumber,
                                    const std::string& name) {
  HistoryObjects made;
  made.target = target(name + "Target");
  made.target->setField("maxLuminance", 250.5)
      .setField("minLuminance", 0.5)
      .setField("ambientLightValue", 0.25)
      .setField("gammaModelType", "Dicom 14")
      .setField("gammaModelTag", "tag-" + name);
  made.deviceType = jvm.object(name + "DeviceType", kDeviceTypeClass);
  made.deviceType->setField("id", 7).setField("name", "Puck");
  made.entry = jvm.object(name, kHistoryClass);
  made.entry->setField("lutNumber", lutNumber)
      .setField("verticalResolution", 2048)
      .setField("horizontalResolution", 1536)
      .setField("workingHours", 1234)
      .setField("performer", "Performer")
      .setField("computerName", "HOST-1")
      .setField("colorDepth", 30)
      .setField("executeDate", "2024-05-06 07:08:09")
      .setField("horizontalFrequency", 75.5)
      .setField("verticalFrequency", 60)
      .setField("calibrationTargetValues", made.target)
      .setField("backlightSensorValue", 812)
      .setField("measurementDeviceType", made.deviceType)
      .setField("measurementDeviceSerialNumber", "DEV-77");
  monitor.history->addElement(made.entry);
  return made;
}

ObjectRef KovWorld::target(const std::string& name) {
  const ObjectRef made = jvm.object(name, kTargetClass);
  setTargetDefaults(*made);
  return made;
}

ObjectRef KovWorld::result(const std::string& name, double maxLuminance, double minLuminance,
                           int backlight) {
  const ObjectRef made = jvm.object(name, kResultClass);
  made->setField("maxLuminance", maxLuminance)
      .setField("minLuminance", minLuminance)
      .setField("backlightSensorValue", backlight);
  return made;
}

void KovWorld::onCalibrate(std::function<void(CalibrationRun&)> calibration) {
  state->locked([&] { state->calibration = std::move(calibration); });
}

int KovWorld::abortCount() const {
  return state->locked([&] { return state->aborts; });
}

void KovWorld::onAbort(std::function<void()> action) {
  state->locked([&] { state->abortAction = std::move(action); });
}

}  // namespace kovtest
