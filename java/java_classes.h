// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_JAVA_CLASSES_H_
#define L5KOV_JAVA_JAVA_CLASSES_H_

#include <optional>
#include <tuple>

#include "java/api_calibration.h"
#include "java/api_monitor.h"
#include "java/platform_classes.h"

namespace lumora::kov::java {

// The class bindings of one thread: seventeen slots, destroyed from the last to the first. They lie
// in the registry itself: a thread that comes and goes takes one piece of memory for all of them.
struct JavaClasses {
  std::optional<JArrayListClass> arrayList;
  std::optional<JIntegerClass> integer;
  std::optional<JDoubleClass> doubleClass;
  std::optional<JLangClassClass> langClass;
  std::optional<JListClass> list;
  std::optional<JLongClass> longClass;
  std::optional<JSystemClass> system;
  std::optional<JThrowableClass> throwable;
  std::optional<JApiCalibrationResultValuesClass> calibrationResultValues;
  std::optional<JApiCalibrationTargetValuesClass> calibrationTargetValues;
  std::optional<JApiEdidInformationClass> edidInformation;
  std::optional<JApiExtractedCalibrationDataClass> extractedCalibrationData;
  std::optional<JApiLookUpTableClass> lookUpTable;
  std::optional<JApiMeasurementDeviceTypeClass> measurementDeviceType;
  std::optional<JApiMonitorClass> monitor;
  std::optional<JApiMonitorLibraryClass> monitorLibrary;
  std::optional<JApiOsdClass> osd;

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
    (void)((found = std::is_same_v<W, typename Slots::value_type::WrapperType>,
            !found && ++index) &&
           ...);
    return index;
  }
};

template <class W>
W wrap(JavaEnv* javaEnv, jobject local) {
  return W(javaEnv->classes().of<W>(), local);
}

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_JAVA_CLASSES_H_
