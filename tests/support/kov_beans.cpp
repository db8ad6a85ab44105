// SPDX-License-Identifier: MIT
#include "tests/support/kov_beans.h"

#include <cctype>
#include <initializer_list>

#include "tests/support/kov_world.h"

namespace kovtest {
namespace {

using fakejvm::Call;
using fakejvm::Handler;
using fakejvm::Value;

// "getModelName", "isLocked", "setLocked" become "modelName", "locked", "locked".
std::string fieldOf(const std::string& member) {
  std::string field = member.substr(member.rfind("is", 0) == 0 ? 2 : 3);
  field[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(field[0])));
  return field;
}

Handler accessor(const std::string& member) {
  const std::string field = fieldOf(member);
  if (member.rfind("set", 0) == 0) {
    return [field](Call& call) -> Value {
      call.self->setField(field, call.args.at(0));
      return {};
    };
  }
  return [field](Call& call) { return call.self->field(field); };
}

void bean(fakejvm::Runtime& runtime, const char* className,
          std::initializer_list<const char*> members) {
  for (const char* member : members) runtime.script(className, member, accessor(member));
}

void scriptMonitorBeans(fakejvm::Runtime& runtime) {
  bean(runtime, kMonitorClass,
       {"getModel", "getSerialNumber", "getColorType", "getConnectionType", "getWorkingHours",
        "getEdidInformation", "getLookUpTables", "getActiveLut", "getOsd"});
  bean(runtime, kEdidClass, {"getModelName", "getSerialNumber", "getYearOfManufacture"});
  bean(runtime, kLutClass, {"getIndex", "getName", "isActive"});
  bean(runtime, kOsdClass, {"isLockSupported", "isLocked", "setLocked"});
  bean(runtime, kDeviceTypeClass, {"getId", "getName"});
  bean(runtime, kHistoryClass,
       {"getBacklightSensorValue", "getCalibrationTargetValues", "getColorDepth", "getComputerName",
        "getExecuteDate", "getHorizontalFrequency", "getHorizontalResolution", "getLutNumber",
        "getMeasurementDeviceSerialNumber", "getMeasurementDeviceType", "getPerformer",
        "getVerticalFrequency", "getVerticalResolution", "getWorkingHours"});
}

void scriptCalibrationBeans(fakejvm::Runtime& runtime) {
  bean(runtime, kTargetClass,
       {"getAmbientLightValue",
        "getColorX",
        "getColorY",
        "getGammaModelTag",
        "getGammaModelType",
        "getGammaValue",
        "getMaxLuminance",
        "getMinLuminance",
        "getUserDefinedData",
        "isColorCalibration",
        "isUseMinimumLuminance",
        "setAmbientLightValue",
        "setColorCalibration",
        "setColorX",
        "setColorY",
        "setGammaModelTag",
        "setGammaModelType",
        "setGammaValue",
        "setMaxLuminance",
        "setMinLuminance",
        "setUseMinimumLuminance",
        "setUserDefinedData"});
  bean(runtime, kResultClass,
       {"getBacklightSensorValue", "getMaxLuminance", "getMinLuminance", "setBacklightSensorValue",
        "setMaxLuminance", "setMinLuminance"});
  runtime.script(kTargetClass, "<init>()V", [](Call& call) -> Value {
    setTargetDefaults(*call.self);
    return {};
  });
  runtime.script(kResultClass, "<init>(DDI)V", [](Call& call) -> Value {
    call.self->setField("maxLuminance", call.args.at(0))
        .setField("minLuminance", call.args.at(1))
        .setField("backlightSensorValue", call.args.at(2));
    return {};
  });
}

}  // namespace

void scriptBeans(fakejvm::Runtime& runtime) {
  scriptMonitorBeans(runtime);
  scriptCalibrationBeans(runtime);
}

fakejvm::ObjectRef makeResult(double maxLuminance, double minLuminance, int backlight,
                              const std::string& name) {
  auto result = std::make_shared<fakejvm::Object>(kResultClass, name);
  result->setField("maxLuminance", maxLuminance)
      .setField("minLuminance", minLuminance)
      .setField("backlightSensorValue", backlight);
  return result;
}

void setTargetDefaults(fakejvm::Object& target) {
  for (const char* number :
       {"ambientLightValue", "colorX", "colorY", "gammaValue", "maxLuminance", "minLuminance"}) {
    target.setField(number, 0.0);
  }
  target.setField("colorCalibration", false).setField("useMinimumLuminance", false);
  for (const char* reference : {"gammaModelTag", "gammaModelType", "userDefinedData"}) {
    target.setField(reference, nullptr);
  }
}

}  // namespace kovtest
