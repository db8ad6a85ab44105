// SPDX-License-Identifier: MIT
#include "tests/reliability/flow.h"

#include <cstdint>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <thread>

namespace reliability {

using lumora::Monitor;
using lumora::kov::KovCalibrator;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::JavaException;

namespace {

std::string inWords(OmError error, const KovCalibrator& calibrator) {
  const std::string message = calibrator.getErrorMsg();
  switch (error) {
    case OM_OK:
      return "OM_OK";
    case OM_ERR_JAVA:
      return "OM_ERR_JAVA " + message;
    case OM_ERR_COMMUNICATION:
      return "OM_ERR_COMMUNICATION " + message;
    default:
      return std::to_string(static_cast<std::int32_t>(error));
  }
}

std::string inWords(const lumora::kov::KovCalibrationHisInfo& info) {
  return std::to_string(info.lutNumber) + "," + info.run.performer + "," +
         std::to_string(info.horizontalFrequency) + "," +
         std::to_string(info.target.displayFunction) + "," + info.target.deviceSerialNumber;
}

std::string inWords(const pocketjson::Value& value) {
  if (value.type() != pocketjson::Value::Object) return value.asString("null");
  std::string text;
  for (const std::string& key : value.keys()) text += key + "=" + inWords(value[key]) + ";";
  return text;
}

std::string outcomeOf(const std::function<std::string()>& operation) {
  try {
    return operation();
  } catch (const JavaException& e) {
    return e.getClassName() + ": " + e.what();
  } catch (const std::bad_alloc&) {
    return "bad_alloc";
  } catch (const std::logic_error& e) {
    return std::string("logic_error: ") + e.what();
  } catch (const std::runtime_error& e) {
    return std::string("runtime_error: ") + e.what();
  }
}

pocketjson::Value target() {
  pocketjson::Value made;
  made["LmaxValue"] = 250.0;
  made["LminValue"] = 0.5;
  made["IsUsedMeasurementLmin"] = true;
  made["IsUsedLamb"] = true;
  made["ColorTemperatureType"] = "K6500";
  made["DisplayFunctionType"] = "USER_DEFINE";
  made["numberOfGraylevels"] = 52;
  return made;
}

pocketjson::Value curve() {
  pocketjson::Value made;
  for (int i = 0; i < 3; ++i) made.append(0.5 * i);
  return made;
}

}  // namespace

void furnish(kovtest::KovWorld& world, kovtest::FakeJvm& jvm) {
  const kovtest::MonitorObjects objects = world.addMonitor();
  world.addHistory(objects, 0, "entry0");
  const kovtest::HistoryObjects colour = world.addHistory(objects, 1, "entry1");
  colour.target->setField("colorCalibration", true)
      .setField("gammaModelType", "Gamma Function")
      .setField("gammaValue", 2.2);
  const kovtest::MonitorObjects broken = world.addMonitor("broken");
  broken.monitor->setField("serialNumber", "SN0002");
  jvm->script(broken.monitor, "getColorType", fakejvm::throws("java/io/IOException", "torn cable"));
}

void Flow::run() {
  done.clear();
  std::thread([this] { onThread(); }).join();
}

const Step* Flow::stepOf(int call) const {
  for (const Step& step : done) {
    if (call > step.firstCall && call <= step.lastCall) return &step;
  }
  return nullptr;
}

void Flow::step(const std::string& name, const std::function<std::string()>& operation) {
  Step made;
  made.name = name;
  made.firstCall = jvm->callCount();
  jvm.log.clear();
  made.outcome = outcomeOf(operation);
  made.lastCall = jvm->callCount();
  made.calls = jvm.log.lines();
  done.push_back(std::move(made));
}

void Flow::onThread() {
  step("start", [] {
    lumora::kov::java::Env();
    return std::string("ready");
  });
  step("find", [] {
    KovMonitorManager::get().find();
    return std::string("found");
  });
  step("getMonitors", [] { return std::to_string(KovMonitorManager::get().getMonitors().size()); });
  std::optional<Monitor> monitor, broken;
  step("getMonitorByName", [&] {
    monitor = KovMonitorManager::get().getMonitorByName("L5-X240", "SN0001");
    return std::string("found");
  });
  step("getMonitorByName broken", [&] {
    broken = KovMonitorManager::get().getMonitorByName("L5-X240", "SN0002");
    return std::string("found");
  });
  step("brokenQuery", [&] {
    if (!broken) return std::string("not run");
    return std::to_string(static_cast<int>(broken->getMonitorColorType()));
  });
  if (monitor) queries(*monitor);
  calibrate();
  step("release", [&] {
    monitor.reset();
    broken.reset();
    lumora::kov::java::DeleteJavaVM();
    return std::string("released");
  });
}

void Flow::queries(const Monitor& m) {
  step("getModelName", [&] { return m.getModelName(); });
  step("getSerialNumber", [&] { return m.getSerialNumber(); });
  step("getPackageName", [&] { return m.getPackageName(); });
  step("getEdidModelName", [&] { return m.getEdidModelName(); });
  step("getEdidSerialNumber", [&] { return m.getEdidSerialNumber(); });
  step("getEdidProductYear", [&] { return std::to_string(m.getEdidProductYear()); });
  step("getConnectionType", [&] { return m.getConnectionType(); });
  step("getCalibrationTargetData", [&] { return inWords(m.getCalibrationTargetData(1)); });
  step("getUsageTime", [&] { return std::to_string(m.getUsageTime().workingHours); });
  step("getCalModeValue", [&] { return std::to_string(m.getCalModeValue()); });
  step("setCalModeValue", [&] {
    m.setCalModeValue(1);
    return std::string("set");
  });
  step("getExtractCalibrationData", [&] {
    std::string text;
    for (const auto& info : m.getExtractCalibrationData()) text += inWords(info) + ";";
    return text;
  });
  step("getMonitorColorType", [&] { return std::to_string(m.getMonitorColorType()); });
  step("isKeyLockSupported", [&] { return std::to_string(m.isKeyLockSupported()); });
  step("getKeyLockState", [&] { return std::to_string(m.getKeyLockState()); });
  step("setKeyLockState", [&] {
    m.setKeyLockState(OmCtrlKeyLockLocked);
    return std::string("set");
  });
  step("getGammaModelTag", [&] { return m.getGammaModelTag(1); });
  step("abortCalibration", [&] {
    m.abortCalibration();
    return std::string("aborted");
  });
}

void Flow::calibrate() {
  QuietDelegate delegate;
  std::unique_ptr<KovCalibrator> calibrator;
  step("construct", [&] {
    calibrator =
        std::make_unique<KovCalibrator>("L5-X240", "SN0001", 1, &delegate, "text", "", &delegate);
    return std::string("made");
  });
  if (calibrator == nullptr) return;
  const auto coded = [&](const char* name, const std::function<OmError()>& operation) {
    step(name, [&] { return inWords(operation(), *calibrator); });
  };
  coded("registerCallback", [&] { return calibrator->registerCallback(); });
  coded("setCalibrationTarget",
        [&] { return calibrator->setCalibrationTarget(target(), curve(), {}, 0.1, false); });
  coded("cancel", [&] { return calibrator->cancel(); });
  coded("execute", [&] { return calibrator->execute(); });
  step("getCalibrationData", [&] {
    const std::string data = inWords(calibrator->getCalibrationData());
    return data + "[" + calibrator->getErrorMsg() + "]";
  });
  coded("restore", [&] { return calibrator->restore(); });
  step("destroy", [&] {
    calibrator.reset();
    return std::string("destroyed");
  });
}

}  // namespace reliability
