// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_API_MONITOR_H_
#define L5KOV_JAVA_API_MONITOR_H_

#include <string>

#include "java/api_records.h"
#include "java/platform_classes.h"

// Wrappers of the monitor library, its monitors and what a monitor hands out.
namespace lumora::kov::java {

class JApiEdidInformation : public JObject<JApiEdidInformationMethods> {
 public:
  using JObject::JObject;

  std::string getModelName() const { return call<"getModelName", std::string()>(); }
  std::string getSerialNumber() const { return call<"getSerialNumber", std::string()>(); }
  std::int32_t getYearOfManufacture() const {
    return call<"getYearOfManufacture", std::int32_t()>();
  }
};

class JApiLookUpTable : public JObject<JApiLookUpTableMethods> {
 public:
  using JObject::JObject;

  void activate() const { call<"activate", void()>(); }
  std::int32_t getIndex() const { return call<"getIndex", std::int32_t()>(); }
  std::string getName() const { return call<"getName", std::string()>(); }
  bool isActive() const { return call<"isActive", bool()>(); }
};

class JApiOsd : public JObject<JApiOsdMethods> {
 public:
  using JObject::JObject;

  bool isLockSupported() const { return call<"isLockSupported", bool()>(); }
  bool isLocked() const { return call<"isLocked", bool()>(); }
  void setLocked(bool locked) const { call<"setLocked", void(bool)>(locked); }
};

class JApiMonitor : public JObject<JApiMonitorMethods> {
 public:
  using JObject::JObject;

  void abortCalibration() const { call<"abortCalibration", void()>(); }
  JList extractCalibrationData() const { return call<"extractCalibrationData", JList()>(); }
  JApiLookUpTable getActiveLut() const { return call<"getActiveLut", JApiLookUpTable()>(); }
  std::string getColorType() const { return call<"getColorType", std::string()>(); }
  std::string getConnectionType() const { return call<"getConnectionType", std::string()>(); }
  JApiEdidInformation getEdidInformation() const {
    return call<"getEdidInformation", JApiEdidInformation()>();
  }
  JList getLookUpTables() const { return call<"getLookUpTables", JList()>(); }
  std::string getModel() const { return call<"getModel", std::string()>(); }
  JApiOsd getOsd() const { return call<"getOsd", JApiOsd()>(); }
  std::string getSerialNumber() const { return call<"getSerialNumber", std::string()>(); }
  std::int32_t getWorkingHours() const { return call<"getWorkingHours", std::int32_t()>(); }
  // `targets` is a java.util.List.
  void performCalibration(jobject targets, bool useExternalSensors, std::int32_t graylevelCount,
                          bool measureBacklightResponse, const std::string& calibrationText,
                          std::int64_t handle) const {
    call<"performCalibration", void(jobject, bool, std::int32_t, bool, std::string, std::int64_t)>(
        targets, useExternalSensors, graylevelCount, measureBacklightResponse, calibrationText,
        handle);
  }
};

class JApiMonitorLibrary : public JObject<JApiMonitorLibraryMethods> {
 public:
  using JObject::JObject;
  // The library's one instance.
  static JApiMonitorLibrary getInstance(JavaEnv* javaEnv);

  JApiMonitor getMonitor(const std::string& first, const std::string& second) const {
    return call<"getMonitor", JApiMonitor(std::string, std::string)>(first, second);
  }
  JList getMonitors() const { return call<"getMonitors", JList()>(); }
  // One of the constants of JApiSearchStatus, as a local reference.
  jobject getSearchStatus() const { return call<"getSearchStatus", jobject()>(); }
  void startMonitorSearch() const { call<"startMonitorSearch", void()>(); }
};

class JApiEdidInformationClass : public JClass<JApiEdidInformation, JApiEdidInformationMethods> {
 public:
  explicit JApiEdidInformationClass(JavaEnv* owner) : JClass(owner) {}
};
class JApiLookUpTableClass : public JClass<JApiLookUpTable, JApiLookUpTableMethods> {
 public:
  explicit JApiLookUpTableClass(JavaEnv* owner) : JClass(owner) {}
};
class JApiMonitorClass : public JClass<JApiMonitor, JApiMonitorMethods> {
 public:
  explicit JApiMonitorClass(JavaEnv* owner) : JClass(owner) {}
};
class JApiMonitorLibraryClass : public JClass<JApiMonitorLibrary, JApiMonitorLibraryMethods> {
 public:
  explicit JApiMonitorLibraryClass(JavaEnv* owner) : JClass(owner) {}
  jobject getInstance() const {
    return jni::callStaticObject(*env, target<rowOf<jobject()>(Methods::table, "getInstance")>());
  }
};
class JApiOsdClass : public JClass<JApiOsd, JApiOsdMethods> {
 public:
  explicit JApiOsdClass(JavaEnv* owner) : JClass(owner) {}
};

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_API_MONITOR_H_
