// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_API_CALIBRATION_H_
#define L5KOV_JAVA_API_CALIBRATION_H_

#include <string>

#include "java/api_records.h"
#include "java/platform_classes.h"

// Wrappers of what a calibration aims at, finds and leaves behind.
namespace lumora::kov::java {

class JApiCalibrationResultValues : public JObject<JApiCalibrationResultValuesMethod> {
 public:
  using JObject::JObject;
  static JApiCalibrationResultValues create(JavaEnv* javaEnv, double maxLuminance,
                                            double minLuminance, std::int32_t backlightSensorValue);

  std::int32_t getBacklightSensorValue() const {
    return call<"getBacklightSensorValue", std::int32_t()>();
  }
  double getMaxLuminance() const { return call<"getMaxLuminance", double()>(); }
  double getMinLuminance() const { return call<"getMinLuminance", double()>(); }
  void setBacklightSensorValue(std::int32_t value) const {
    call<"setBacklightSensorValue", void(std::int32_t)>(value);
  }
  void setMaxLuminance(double value) const { call<"setMaxLuminance", void(double)>(value); }
  void setMinLuminance(double value) const { call<"setMinLuminance", void(double)>(value); }
};

class JApiCalibrationTargetValues : public JObject<JApiCalibrationTargetValuesMethods> {
 public:
  using JObject::JObject;
  static JApiCalibrationTargetValues create(JavaEnv* javaEnv);
  static JApiCalibrationTargetValues copyOf(JavaEnv* javaEnv,
                                            const JApiCalibrationTargetValues& other);

  bool equals(jobject other) const { return call<"equals", bool(jobject)>(other); }
  double getAmbientLightValue() const { return call<"getAmbientLightValue", double()>(); }
  double getColorX() const { return call<"getColorX", double()>(); }
  double getColorY() const { return call<"getColorY", double()>(); }
  std::string getGammaModelTag() const { return call<"getGammaModelTag", std::string()>(); }
  std::string getGammaModelType() const { return call<"getGammaModelType", std::string()>(); }
  double getGammaValue() const { return call<"getGammaValue", double()>(); }
  double getMaxLuminance() const { return call<"getMaxLuminance", double()>(); }
  double getMinLuminance() const { return call<"getMinLuminance", double()>(); }
  jdoubleArray getUserDefinedData() const { return call<"getUserDefinedData", jdoubleArray()>(); }
  std::int32_t hashCode() const { return call<"hashCode", std::int32_t()>(); }
  bool isColorCalibration() const { return call<"isColorCalibration", bool()>(); }
  bool isUseMinimumLuminance() const { return call<"isUseMinimumLuminance", bool()>(); }
  void setAmbientLightValue(double value) const {
    call<"setAmbientLightValue", void(double)>(value);
  }
  void setColorCalibration(bool value) const { call<"setColorCalibration", void(bool)>(value); }
  void setColorX(double value) const { call<"setColorX", void(double)>(value); }
  void setColorY(double value) const { call<"setColorY", void(double)>(value); }
  void setGammaModelTag(const std::string& tag) const {
    call<"setGammaModelTag", void(std::string)>(tag);
  }
  void setGammaModelType(const std::string& type) const {
    call<"setGammaModelType", void(std::string)>(type);
  }
  void setGammaValue(double value) const { call<"setGammaValue", void(double)>(value); }
  void setMaxLuminance(double value) const { call<"setMaxLuminance", void(double)>(value); }
  void setMinLuminance(double value) const { call<"setMinLuminance", void(double)>(value); }
  void setUseMinimumLuminance(bool value) const {
    call<"setUseMinimumLuminance", void(bool)>(value);
  }
  void setUserDefinedData(jdoubleArray values) const {
    call<"setUserDefinedData", void(jdoubleArray)>(values);
  }
  std::string toString() const { return call<"toString", std::string()>(); }
};

class JApiMeasurementDeviceType : public JObject<JApiMeasurementDeviceTypeMethods> {
 public:
  using JObject::JObject;
  static JApiMeasurementDeviceType create(JavaEnv* javaEnv);

  std::int32_t getId() const { return call<"getId", std::int32_t()>(); }
  std::string getName() const { return call<"getName", std::string()>(); }
};

// One entry of the calibration history. The boxed getters give a wrapper of null for an absent
// value.
class JApiExtractedCalibrationData : public JObject<JApiExtractedCalibrationDataMethod> {
 public:
  using JObject::JObject;

  bool equals(jobject other) const { return call<"equals", bool(jobject)>(other); }
  JInteger getBacklightSensorValue() const { return call<"getBacklightSensorValue", JInteger()>(); }
  JApiCalibrationTargetValues getCalibrationTargetValues() const {
    return call<"getCalibrationTargetValues", JApiCalibrationTargetValues()>();
  }
  JInteger getColorDepth() const { return call<"getColorDepth", JInteger()>(); }
  std::string getComputerName() const { return call<"getComputerName", std::string()>(); }
  std::string getExecuteDate() const { return call<"getExecuteDate", std::string()>(); }
  JDouble getHorizontalFrequency() const { return call<"getHorizontalFrequency", JDouble()>(); }
  JInteger getHorizontalResolution() const { return call<"getHorizontalResolution", JInteger()>(); }
  std::int32_t getLutNumber() const { return call<"getLutNumber", std::int32_t()>(); }
  std::string getMeasurementDeviceSerialNumber() const {
    return call<"getMeasurementDeviceSerialNumber", std::string()>();
  }
  JApiMeasurementDeviceType getMeasurementDeviceType() const {
    return call<"getMeasurementDeviceType", JApiMeasurementDeviceType()>();
  }
  std::string getPerformer() const { return call<"getPerformer", std::string()>(); }
  JInteger getVerticalFrequency() const { return call<"getVerticalFrequency", JInteger()>(); }
  JInteger getVerticalResolution() const { return call<"getVerticalResolution", JInteger()>(); }
  JInteger getWorkingHours() const { return call<"getWorkingHours", JInteger()>(); }
  std::int32_t hashCode() const { return call<"hashCode", std::int32_t()>(); }
  void setBacklightSensorValue(const JInteger& value) const {
    call<"setBacklightSensorValue", void(JInteger)>(value.reference());
  }
  void setCalibrationTargetValues(const JApiCalibrationTargetValues& value) const {
    call<"setCalibrationTargetValues", void(JApiCalibrationTargetValues)>(value.reference());
  }
  void setColorDepth(const JInteger& value) const {
    call<"setColorDepth", void(JInteger)>(value.reference());
  }
  void setComputerName(const std::string& value) const {
    call<"setComputerName", void(std::string)>(value);
  }
  void setExecuteDate(const std::string& value) const {
    call<"setExecuteDate", void(std::string)>(value);
  }
  // `date` is a java.util.Date.
  void setExecuteDate(jobject date) const { call<"setExecuteDate", void(jobject)>(date); }
  void setHorizontalFrequency(double value) const {
    call<"setHorizontalFrequency", void(double)>(value);
  }
  void setHorizontalResolution(const JInteger& value) const {
    call<"setHorizontalResolution", void(JInteger)>(value.reference());
  }
  void setLutNumber(std::int32_t value) const { call<"setLutNumber", void(std::int32_t)>(value); }
  void setMeasurementDeviceSerialNumber(const std::string& value) const {
    call<"setMeasurementDeviceSerialNumber", void(std::string)>(value);
  }
  void setMeasurementDeviceType(const std::string& name) const {
    call<"setMeasurementDeviceType", void(std::string)>(name);
  }
  void setPerformer(const std::string& value) const {
    call<"setPerformer", void(std::string)>(value);
  }
  void setVerticalFrequency(const JInteger& value) const {
    call<"setVerticalFrequency", void(JInteger)>(value.reference());
  }
  void setVerticalResolution(const JInteger& value) const {
    call<"setVerticalResolution", void(JInteger)>(value.reference());
  }
  void setWorkingHours(const JInteger& value) const {
    call<"setWorkingHours", void(JInteger)>(value.reference());
  }
  std::string toString() const { return call<"toString", std::string()>(); }
};

class JApiCalibrationResultValuesClass
    : public JClass<JApiCalibrationResultValues, JApiCalibrationResultValuesMethod> {
 public:
  explicit JApiCalibrationResultValuesClass(JavaEnv* owner) : JClass(owner) {}
};
class JApiCalibrationTargetValuesClass
    : public JClass<JApiCalibrationTargetValues, JApiCalibrationTargetValuesMethods> {
 public:
  explicit JApiCalibrationTargetValuesClass(JavaEnv* owner) : JClass(owner) {}
};
class JApiExtractedCalibrationDataClass
    : public JClass<JApiExtractedCalibrationData, JApiExtractedCalibrationDataMethod> {
 public:
  explicit JApiExtractedCalibrationDataClass(JavaEnv* owner) : JClass(owner) {}
};
class JApiMeasurementDeviceTypeClass
    : public JClass<JApiMeasurementDeviceType, JApiMeasurementDeviceTypeMethods> {
 public:
  explicit JApiMeasurementDeviceTypeClass(JavaEnv* owner) : JClass(owner) {}
};

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_API_CALIBRATION_H_
