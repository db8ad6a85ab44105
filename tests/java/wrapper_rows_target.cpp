// SPDX-License-Identifier: MIT
#include "tests/java/wrapper_rows.h"

namespace kovtest {
namespace {

using kov::JApiCalibrationResultValues;
using kov::JApiCalibrationTargetValues;
using kov::JApiMeasurementDeviceType;

std::vector<WrapperRow> resultRows() {
  using W = JApiCalibrationResultValues;
  return {
      creation<W>("(DDI)V", "250.5,0.5,812",
                  [](const Arguments& a) { return shown(W::create(a.env, 250.5, 0.5, 812)); }),
      intGetter<W>("getBacklightSensorValue",
                   [](auto& w, auto&) { return shown(w.getBacklightSensorValue()); }),
      doubleGetter<W>("getMaxLuminance", [](auto& w, auto&) { return shown(w.getMaxLuminance()); }),
      doubleGetter<W>("getMinLuminance", [](auto& w, auto&) { return shown(w.getMinLuminance()); }),
      setter<W>("setBacklightSensorValue", "(I)V", "-1",
                [](auto& w, auto&) {
                  w.setBacklightSensorValue(-1);
                  return "";
                }),
      setter<W>("setMaxLuminance", "(D)V", "0.25",
                [](auto& w, auto&) {
                  w.setMaxLuminance(0.25);
                  return "";
                }),
      setter<W>("setMinLuminance", "(D)V", "0.25",
                [](auto& w, auto&) {
                  w.setMinLuminance(0.25);
                  return "";
                }),
  };
}

std::vector<WrapperRow> deviceTypeRows() {
  using W = JApiMeasurementDeviceType;
  return {
      creation<W>("()V", "", [](const Arguments& a) { return shown(W::create(a.env)); }),
      intGetter<W>("getId", [](auto& w, auto&) { return shown(w.getId()); }),
      textGetter<W>("getName", [](auto& w, auto&) { return w.getName(); }),
  };
}

std::vector<WrapperRow> rowsOfTargetGetters() {
  using W = JApiCalibrationTargetValues;
  const auto answer = std::make_shared<fakejvm::Object>("[D", "answer");
  return {
      creation<W>("()V", "", [](const Arguments& a) { return shown(W::create(a.env)); }),
      creation<W>("(Lcom/orva/kov/library/api/CalibrationTargetValues;)V", "other",
                  [](const Arguments& a) { return shown(W::copyOf(a.env, a.other)); }),
      row<W>(
          "equals(Ljava/lang/Object;)Z", true,
          [](auto& w, const Arguments& a) { return shown(w.equals(a.element)); },
          guarded("CallBooleanMethodV CalibrationTargetValues.equals(element)"), "true"),
      doubleGetter<W>("getAmbientLightValue",
                      [](auto& w, auto&) { return shown(w.getAmbientLightValue()); }),
      doubleGetter<W>("getColorX", [](auto& w, auto&) { return shown(w.getColorX()); }),
      doubleGetter<W>("getColorY", [](auto& w, auto&) { return shown(w.getColorY()); }),
      textGetter<W>("getGammaModelTag", [](auto& w, auto&) { return w.getGammaModelTag(); }),
      textGetter<W>("getGammaModelType", [](auto& w, auto&) { return w.getGammaModelType(); }),
      doubleGetter<W>("getGammaValue", [](auto& w, auto&) { return shown(w.getGammaValue()); }),
      doubleGetter<W>("getMaxLuminance", [](auto& w, auto&) { return shown(w.getMaxLuminance()); }),
      doubleGetter<W>("getMinLuminance", [](auto& w, auto&) { return shown(w.getMinLuminance()); }),
      row<W>(
          "getUserDefinedData()[D", answer,
          [](auto& w, auto&) { return shown(w.getUserDefinedData()); },
          guarded("CallObjectMethodV CalibrationTargetValues.getUserDefinedData()"), "answer"),
      intGetter<W>("hashCode", [](auto& w, auto&) { return shown(w.hashCode()); }),
      boolGetter<W>("isColorCalibration",
                    [](auto& w, auto&) { return shown(w.isColorCalibration()); }),
      boolGetter<W>("isUseMinimumLuminance",
                    [](auto& w, auto&) { return shown(w.isUseMinimumLuminance()); }),
      textGetter<W>("toString", [](auto& w, auto&) { return w.toString(); }),
  };
}

std::vector<WrapperRow> rowsOfTargetSetters() {
  using W = JApiCalibrationTargetValues;
  return {
      setter<W>("setAmbientLightValue", "(D)V", "0.25",
                [](auto& w, auto&) {
                  w.setAmbientLightValue(0.25);
                  return "";
                }),
      setter<W>("setColorCalibration", "(Z)V", "1",
                [](auto& w, auto&) {
                  w.setColorCalibration(true);
                  return "";
                }),
      setter<W>("setColorX", "(D)V", "0.25",
                [](auto& w, auto&) {
                  w.setColorX(0.25);
                  return "";
                }),
      setter<W>("setColorY", "(D)V", "0.25",
                [](auto& w, auto&) {
                  w.setColorY(0.25);
                  return "";
                }),
      textSetter<W>("setGammaModelTag",
                    [](auto& w, auto&) {
                      w.setGammaModelTag("text");
                      return "";
                    }),
      textSetter<W>("setGammaModelType",
                    [](auto& w, auto&) {
                      w.setGammaModelType("text");
                      return "";
                    }),
      setter<W>("setGammaValue", "(D)V", "0.25",
                [](auto& w, auto&) {
                  w.setGammaValue(0.25);
                  return "";
                }),
      setter<W>("setMaxLuminance", "(D)V", "0.25",
                [](auto& w, auto&) {
                  w.setMaxLuminance(0.25);
                  return "";
                }),
      setter<W>("setMinLuminance", "(D)V", "0.25",
                [](auto& w, auto&) {
                  w.setMinLuminance(0.25);
                  return "";
                }),
      setter<W>("setUseMinimumLuminance", "(Z)V", "1",
                [](auto& w, auto&) {
                  w.setUseMinimumLuminance(true);
                  return "";
                }),
      setter<W>("setUserDefinedData", "([D)V", "numbers",
                [](auto& w, const Arguments& a) {
                  w.setUserDefinedData(a.numbers);
                  return "";
                }),
  };
}

}  // namespace

std::vector<WrapperRow> targetRows() {
  std::vector<WrapperRow> rows = resultRows();
  for (const auto& part : {deviceTypeRows(), rowsOfTargetGetters(), rowsOfTargetSetters()}) {
    rows.insert(rows.end(), part.begin(), part.end());
  }
  return rows;
}

}  // namespace kovtest
