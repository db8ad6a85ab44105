// SPDX-License-Identifier: MIT
#include "tests/java/wrapper_rows.h"

namespace kovtest {
namespace {

using W = kov::JApiExtractedCalibrationData;

constexpr const char* kInteger = "java/lang/Integer";
const std::string kApi = "com/orva/kov/library/api/";

std::vector<WrapperRow> historyGetters() {
  return {
      row<W>(
          "equals(Ljava/lang/Object;)Z", true,
          [](auto& w, const Arguments& a) { return shown(w.equals(a.element)); },
          guarded("CallBooleanMethodV ExtractedCalibrationData.equals(element)"), "true"),
      wrapperGetter<W>("getBacklightSensorValue", kInteger,
                       [](auto& w, auto&) { return shown(w.getBacklightSensorValue()); }),
      wrapperGetter<W>("getCalibrationTargetValues", kApi + "CalibrationTargetValues",
                       [](auto& w, auto&) { return shown(w.getCalibrationTargetValues()); }),
      wrapperGetter<W>("getColorDepth", kInteger,
                       [](auto& w, auto&) { return shown(w.getColorDepth()); }),
      textGetter<W>("getComputerName", [](auto& w, auto&) { return w.getComputerName(); }),
      textGetter<W>("getExecuteDate", [](auto& w, auto&) { return w.getExecuteDate(); }),
      wrapperGetter<W>("getHorizontalFrequency", "java/lang/Double",
                       [](auto& w, auto&) { return shown(w.getHorizontalFrequency()); }),
      wrapperGetter<W>("getHorizontalResolution", kInteger,
                       [](auto& w, auto&) { return shown(w.getHorizontalResolution()); }),
      intGetter<W>("getLutNumber", [](auto& w, auto&) { return shown(w.getLutNumber()); }),
      textGetter<W>("getMeasurementDeviceSerialNumber",
                    [](auto& w, auto&) { return w.getMeasurementDeviceSerialNumber(); }),
      wrapperGetter<W>("getMeasurementDeviceType", kApi + "MeasurementDeviceType",
                       [](auto& w, auto&) { return shown(w.getMeasurementDeviceType()); }),
      textGetter<W>("getPerformer", [](auto& w, auto&) { return w.getPerformer(); }),
      wrapperGetter<W>("getVerticalFrequency", kInteger,
                       [](auto& w, auto&) { return shown(w.getVerticalFrequency()); }),
      wrapperGetter<W>("getVerticalResolution", kInteger,
                       [](auto& w, auto&) { return shown(w.getVerticalResolution()); }),
      wrapperGetter<W>("getWorkingHours", kInteger,
                       [](auto& w, auto&) { return shown(w.getWorkingHours()); }),
      intGetter<W>("hashCode", [](auto& w, auto&) { return shown(w.hashCode()); }),
      textGetter<W>("toString", [](auto& w, auto&) { return w.toString(); }),
  };
}

// Kept: the asymmetries between getters and setters are the Java library's own.
std::vector<WrapperRow> historySetters() {
  return {
      setter<W>("setBacklightSensorValue", "(Ljava/lang/Integer;)V", "boxed",
                [](auto& w, const Arguments& a) {
                  w.setBacklightSensorValue(a.boxed);
                  return "";
                }),
      setter<W>("setCalibrationTargetValues",
                "(Lcom/orva/kov/library/api/CalibrationTargetValues;)V", "other",
                [](auto& w, const Arguments& a) {
                  w.setCalibrationTargetValues(a.other);
                  return "";
                }),
      setter<W>("setColorDepth", "(Ljava/lang/Integer;)V", "boxed",
                [](auto& w, const Arguments& a) {
                  w.setColorDepth(a.boxed);
                  return "";
                }),
      textSetter<W>("setComputerName",
                    [](auto& w, auto&) {
                      w.setComputerName("text");
                      return "";
                    }),
      textSetter<W>("setExecuteDate",
                    [](auto& w, auto&) {
                      w.setExecuteDate("text");
                      return "";
                    }),
      setter<W>("setExecuteDate", "(Ljava/util/Date;)V", "element",
                [](auto& w, const Arguments& a) {
                  w.setExecuteDate(a.element);
                  return "";
                }),
      setter<W>("setHorizontalFrequency", "(D)V", "0.25",
                [](auto& w, auto&) {
                  w.setHorizontalFrequency(0.25);
                  return "";
                }),
      setter<W>("setHorizontalResolution", "(Ljava/lang/Integer;)V", "boxed",
                [](auto& w, const Arguments& a) {
                  w.setHorizontalResolution(a.boxed);
                  return "";
                }),
      setter<W>("setLutNumber", "(I)V", "3",
                [](auto& w, auto&) {
                  w.setLutNumber(3);
                  return "";
                }),
      textSetter<W>("setMeasurementDeviceSerialNumber",
                    [](auto& w, auto&) {
                      w.setMeasurementDeviceSerialNumber("text");
                      return "";
                    }),
      textSetter<W>("setMeasurementDeviceType",
                    [](auto& w, auto&) {
                      w.setMeasurementDeviceType("text");
                      return "";
                    }),
      textSetter<W>("setPerformer",
                    [](auto& w, auto&) {
                      w.setPerformer("text");
                      return "";
                    }),
      setter<W>("setVerticalFrequency", "(Ljava/lang/Integer;)V", "boxed",
                [](auto& w, const Arguments& a) {
                  w.setVerticalFrequency(a.boxed);
                  return "";
                }),
      setter<W>("setVerticalResolution", "(Ljava/lang/Integer;)V", "boxed",
                [](auto& w, const Arguments& a) {
                  w.setVerticalResolution(a.boxed);
                  return "";
                }),
      setter<W>("setWorkingHours", "(Ljava/lang/Integer;)V", "boxed",
                [](auto& w, const Arguments& a) {
                  w.setWorkingHours(a.boxed);
                  return "";
                }),
  };
}

}  // namespace

std::vector<WrapperRow> historyRows() {
  std::vector<WrapperRow> rows = historyGetters();
  const std::vector<WrapperRow> more = historySetters();
  rows.insert(rows.end(), more.begin(), more.end());
  return rows;
}

}  // namespace kovtest
