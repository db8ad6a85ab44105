// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_CATALOGUE_H_
#define L5KOV_JAVA_CATALOGUE_H_

#include "java/catalogue_row.h"

// Every Java class and member that the library binds, to be laid beside the Java library's own
// table row by row. Members without a caller are bound all the same: order and failure behaviour of
// the look-ups are part of what the Java runtime sees.
namespace lumora::kov::java::catalogue {

// A row a line.
// clang-format off

// ---- Java platform ----

inline constexpr ClassTable kArrayList{"java/util/ArrayList", {
    constructor("()V"),
    method("add", "(Ljava/lang/Object;)Z"),
    method("get", "(I)Ljava/lang/Object;"),
    method("size", "()I"),
}};

inline constexpr ClassTable kInteger{"java/lang/Integer", {
    constructor("(I)V"),
    method("intValue", "()I"),
}};

inline constexpr ClassTable kDouble{"java/lang/Double", {
    constructor("(D)V"),
    method("doubleValue", "()D"),
}};

inline constexpr ClassTable kLangClass{"java/lang/Class", {
    kEmptySlot,  // Kept: null
    method("getName", "()Ljava/lang/String;"),
}};

inline constexpr ClassTable kList{"java/util/List", {
    method("size", "()I"),
    method("get", "(I)Ljava/lang/Object;"),
}};

inline constexpr ClassTable kLong{"java/lang/Long", {
    constructor("(J)V"),
    method("longValue", "()J"),
}};

inline constexpr ClassTable kSystem{"java/lang/System", {
    kEmptySlot,  // Kept: null
    staticMethod("gc", "()V"),
}};

inline constexpr ClassTable kThrowable{"java/lang/Throwable", {
    constructor("()V"),
    method("getMessage", "()Ljava/lang/String;"),
}};

// ---- The maker's library ----

inline constexpr ClassTable kCalibrationResultValues{
    "com/orva/kov/library/api/CalibrationResultValues", {
    constructor("(DDI)V"),  // maximum luminance, minimum luminance, backlight sensor value
    method("getBacklightSensorValue", "()I"),
    method("getMaxLuminance", "()D"),
    method("getMinLuminance", "()D"),
    method("setBacklightSensorValue", "(I)V"),
    method("setMaxLuminance", "(D)V"),
    method("setMinLuminance", "(D)V"),
}};

inline constexpr ClassTable kCalibrationTargetValues{
    "com/orva/kov/library/api/CalibrationTargetValues", {
    constructor("()V"),
    constructor("(Lcom/orva/kov/library/api/CalibrationTargetValues;)V"),
    method("equals", "(Ljava/lang/Object;)Z"),
    method("getAmbientLightValue", "()D"),
    method("getColorX", "()D"),
    method("getColorY", "()D"),
    method("getGammaModelTag", "()Ljava/lang/String;"),
    method("getGammaModelType", "()Ljava/lang/String;"),
    method("getGammaValue", "()D"),
    method("getMaxLuminance", "()D"),
    method("getMinLuminance", "()D"),
    method("getUserDefinedData", "()[D"),
    method("hashCode", "()I"),
    method("isColorCalibration", "()Z"),
    method("isUseMinimumLuminance", "()Z"),
    method("setAmbientLightValue", "(D)V"),
    method("setColorCalibration", "(Z)V"),
    method("setColorX", "(D)V"),
    method("setColorY", "(D)V"),
    method("setGammaModelTag", "(Ljava/lang/String;)V"),
    method("setGammaModelType", "(Ljava/lang/String;)V"),
    method("setGammaValue", "(D)V"),
    method("setMaxLuminance", "(D)V"),
    method("setMinLuminance", "(D)V"),
    method("setUseMinimumLuminance", "(Z)V"),
    method("setUserDefinedData", "([D)V"),
    method("toString", "()Ljava/lang/String;"),
}};

inline constexpr ClassTable kEdidInformation{"com/orva/kov/library/api/EdidInformation", {
    method("getModelName", "()Ljava/lang/String;"),
    method("getSerialNumber", "()Ljava/lang/String;"),
    method("getYearOfManufacture", "()I"),
}};

// Kept: the asymmetries between getters and setters are the Java library's own.
inline constexpr ClassTable kExtractedCalibrationData{
    "com/orva/kov/library/api/ExtractedCalibrationData", {
    method("equals", "(Ljava/lang/Object;)Z"),
    method("getBacklightSensorValue", "()Ljava/lang/Integer;"),
    method("getCalibrationTargetValues", "()Lcom/orva/kov/library/api/CalibrationTargetValues;"),
    method("getColorDepth", "()Ljava/lang/Integer;"),
    method("getComputerName", "()Ljava/lang/String;"),
    method("getExecuteDate", "()Ljava/lang/String;"),
    method("getHorizontalFrequency", "()Ljava/lang/Double;"),
    method("getHorizontalResolution", "()Ljava/lang/Integer;"),
    method("getLutNumber", "()I"),
    method("getMeasurementDeviceSerialNumber", "()Ljava/lang/String;"),
    method("getMeasurementDeviceType", "()Lcom/orva/kov/library/api/MeasurementDeviceType;"),
    method("getPerformer", "()Ljava/lang/String;"),
    method("getVerticalFrequency", "()Ljava/lang/Integer;"),
    method("getVerticalResolution", "()Ljava/lang/Integer;"),
    method("getWorkingHours", "()Ljava/lang/Integer;"),
    method("hashCode", "()I"),
    method("setBacklightSensorValue", "(Ljava/lang/Integer;)V"),
    method("setCalibrationTargetValues", "(Lcom/orva/kov/library/api/CalibrationTargetValues;)V"),
    method("setColorDepth", "(Ljava/lang/Integer;)V"),
    method("setComputerName", "(Ljava/lang/String;)V"),
    method("setExecuteDate", "(Ljava/lang/String;)V"),  // Kept: two overloads, two slots
    method("setExecuteDate", "(Ljava/util/Date;)V"),
    method("setHorizontalFrequency", "(D)V"),
    method("setHorizontalResolution", "(Ljava/lang/Integer;)V"),
    method("setLutNumber", "(I)V"),
    method("setMeasurementDeviceSerialNumber", "(Ljava/lang/String;)V"),
    method("setMeasurementDeviceType", "(Ljava/lang/String;)V"),
    method("setPerformer", "(Ljava/lang/String;)V"),
    method("setVerticalFrequency", "(Ljava/lang/Integer;)V"),
    method("setVerticalResolution", "(Ljava/lang/Integer;)V"),
    method("setWorkingHours", "(Ljava/lang/Integer;)V"),
    method("toString", "()Ljava/lang/String;"),
}};

inline constexpr ClassTable kLookUpTable{"com/orva/kov/library/api/LookUpTable", {
    method("activate", "()V"),
    method("getIndex", "()I"),
    method("getName", "()Ljava/lang/String;"),
    method("isActive", "()Z"),
}};

inline constexpr ClassTable kMeasurementDeviceType{
    "com/orva/kov/library/api/MeasurementDeviceType", {
    constructor("()V"),
    method("getId", "()I"),
    method("getName", "()Ljava/lang/String;"),
}};

inline constexpr ClassTable kMonitor{"com/orva/kov/library/api/Monitor", {
    method("abortCalibration", "()V"),
    method("extractCalibrationData", "()Ljava/util/List;"),
    method("getActiveLut", "()Lcom/orva/kov/library/api/LookUpTable;"),
    method("getColorType", "()Ljava/lang/String;"),
    method("getConnectionType", "()Ljava/lang/String;"),
    method("getEdidInformation", "()Lcom/orva/kov/library/api/EdidInformation;"),
    method("getLookUpTables", "()Ljava/util/List;"),
    method("getModel", "()Ljava/lang/String;"),
    method("getOsd", "()Lcom/orva/kov/library/api/Osd;"),
    method("getSerialNumber", "()Ljava/lang/String;"),
    method("getWorkingHours", "()I"),
    method("performCalibration", "(Ljava/util/List;ZIZLjava/lang/String;J)V"),
}};

// Resolved on the implementation class, not on the interface that getInstance() declares.
inline constexpr ClassTable kMonitorLibrary{"com/orva/kov/library/impl/KovMonitorLibrary", {
    // Kept: looked up first, stored last.
    staticMethod("getInstance", "()Lcom/orva/kov/library/api/MonitorLibrary;").lastSlot(),
    method("getMonitor",
           "(Ljava/lang/String;Ljava/lang/String;)Lcom/orva/kov/library/api/Monitor;"),
    method("getMonitors", "()Ljava/util/List;"),
    method("getSearchStatus", "()Lcom/orva/kov/library/api/MonitorLibrary$SearchStatus;"),
    method("startMonitorSearch", "()V"),
}};

inline constexpr ClassTable kOsd{"com/orva/kov/library/api/Osd", {
    method("isLockSupported", "()Z"),
    method("isLocked", "()Z"),
    method("setLocked", "(Z)V"),
}};

// ---- Not bound at start-up ----

inline constexpr const char* kSearchStatusClass =
    "com/orva/kov/library/api/MonitorLibrary$SearchStatus";
inline constexpr const char* kSearchStatusSignature =
    "Lcom/orva/kov/library/api/MonitorLibrary$SearchStatus;";
inline constexpr const char* kSearchStatusFields[] = {"FINISHED", "NONE", "RUNNING"};

inline constexpr const char* kCallbackClass = "com/orva/kov/library/api/CallbackJniFunctions";

// clang-format on

}  // namespace lumora::kov::java::catalogue

#endif  // L5KOV_JAVA_CATALOGUE_H_
