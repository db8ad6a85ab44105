// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_API_RECORDS_H_
#define L5KOV_JAVA_API_RECORDS_H_

#include "java/catalogue.h"

// The identifier records of the maker's classes.
namespace lumora::kov::java {

using JApiCalibrationResultValuesMethod = MethodRecord<catalogue::kCalibrationResultValues>;
using JApiCalibrationTargetValuesMethods = MethodRecord<catalogue::kCalibrationTargetValues>;
using JApiEdidInformationMethods = MethodRecord<catalogue::kEdidInformation>;
using JApiExtractedCalibrationDataMethod = MethodRecord<catalogue::kExtractedCalibrationData>;
using JApiLookUpTableMethods = MethodRecord<catalogue::kLookUpTable>;
using JApiMeasurementDeviceTypeMethods = MethodRecord<catalogue::kMeasurementDeviceType>;
using JApiMonitorMethods = MethodRecord<catalogue::kMonitor>;
using JApiMonitorLibraryMethods = MethodRecord<catalogue::kMonitorLibrary>;
using JApiOsdMethods = MethodRecord<catalogue::kOsd>;

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_API_RECORDS_H_
