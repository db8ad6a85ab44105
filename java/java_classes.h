// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_JAVA_CLASSES_H_
#define L5KOV_JAVA_JAVA_CLASSES_H_

#include <memory>
#include <tuple>

#include "java/api_calibration.h"
#include "java/api_monitor.h"
#include "java/platform_classes.h"

namespace lumora::kov::java {

// The class bindings of one thread: seventeen slots, destroyed from the last to the first.
struct JavaClasses {
  std::unique_ptr<JArrayListClass> arrayList;
  std::unique_ptr<JIntegerClass> integer;
  std::unique_ptr<JDoubleClass> doubleClass;
  std::unique_ptr<JLangClassClass> langClass;
  std::unique_ptr<JListClass> list;
  std::unique_ptr<JLongClass> longClass;
  std::unique_ptr<JSystemClass> system;
  std::unique_ptr<JThrowableClass> throwable;
  std::unique_ptr<JApiCalibrationResultValuesClass> calibrationResultValues;
  std::unique_ptr<JApiCalibrationTargetValuesClass> calibrationTargetValues;
  std::unique_ptr<JApiEdidInformationClass> edidInformation;
  std::unique_ptr<JApiExtractedCalibrationDataClass> extractedCalibrationData;
  std::unique_ptr<JApiLookUpTableClass> lookUpTable;
  std::unique_ptr<JApiMeasurementDeviceTypeClass> measurementDeviceType;
  std::unique_ptr<JApiMonitorClass> monitor;
  std::unique_ptr<JApiMonitorLibraryClass> monitorLibrary;
  std::unique_ptr<JApiOsdClass> osd;

  // Builds every binding on the calling thread, which must be `owner`'s.
  void build(JavaEnv* owner);

  // The binding whose wrapper is W.
  template <class W>
  const auto& of() const {
    const auto all = std::tie(arrayList, integer, doubleClass, list, calibrationResultValues,
                              calibrationTargetValues, edidInformation, extractedCalibrationData,
                              lookUpTable, measurementDeviceType, monitor, monitorLibrary, osd);
    return *std::get<indexOf<W>(static_cast<decltype(all)*>(nullptr))>(all);
  }

 private:
  template <class W, class... Slots>
  static consteval std::size_t indexOf(const std::tuple<const Slots&...>*) {
    std::size_t index = 0;
    bool found = false;
    (void)((found = std::is_same_v<W, typename Slots::element_type::WrapperType>, !found && ++index) && ...);
    return index;
  }
};

template <class W>
W wrap(JavaEnv* javaEnv, jobject local) {
  return W(javaEnv->classes().of<W>(), local);
}

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_JAVA_CLASSES_H_
