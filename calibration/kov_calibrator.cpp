// SPDX-License-Identifier: MIT
#include "lumora/kov/kov_calibrator.h"

#include <cstdint>

#include "java/java_classes.h"
#include "java/kept.h"
#include "java/local_frame.h"
#include "lumora/kov/java/java_exception.h"
#include "lumora/kov/kov_monitor_manager.h"
#include "platform/platform.h"
#include "platform/vendor.h"

namespace lumora::kov {
namespace {

using java::JApiCalibrationTargetValues;
using java::JArrayList;
using java::JavaException;
using java::Kept;
using java::LocalFrame;

constexpr int kDefaultGraylevelCount = 52;
// Kept: fixed; the monitor and the Java side settle after an abort.
constexpr unsigned kSettlingMilliseconds = 10000;

// One entry per table up to the calibrated one; only that one carries a target.
JArrayList targetList(java::JavaEnv* thread, std::int32_t calModeValue, jobject target) {
  JArrayList list = JArrayList::create(thread);
  // Kept: inclusive and signed, so a negative mode gives an empty list. Counted in 64 bits, since
  // the largest mode must end too.
  for (std::int64_t i = 0; i <= calModeValue; ++i) list.add(i == calModeValue ? target : nullptr);
  return list;
}

}  // namespace

KovCalibrator::KovCalibrator(const std::string& monitorName, const std::string& monitorKey,
                             int calModeValue, void* measurementDevice,
                             const std::string& calibrationText, const std::string& auxiliaryText,
                             KovCalibratorDelegate* delegate)
    : calModeValue(calModeValue),
      graylevelCount(kDefaultGraylevelCount),
      monitorKey(monitorKey),
      monitorName(monitorName),
      measurementDevice(measurementDevice),
      calibrationText(calibrationText),
      auxiliaryText(auxiliaryText),
      delegate(delegate) {
  {
    const LocalFrame frame;
    resultList = std::make_unique<Kept<JArrayList>>(JArrayList::create(frame.thread()));
    targetValues = std::make_unique<Kept<JApiCalibrationTargetValues>>(
        JApiCalibrationTargetValues::create(frame.thread()));
  }
  deviceId = MDGetDeviceID(measurementDevice);
  // Kept: asked twice when there is one; the first text may not outlive the question.
  if (MDGetSerialNumber(measurementDevice) != nullptr) {
    const char* text = MDGetSerialNumber(measurementDevice);
    if (text != nullptr) deviceSerialNumber = text;  // unplugged between the two
  }
}

KovCalibrator::~KovCalibrator() = default;

OmError KovCalibrator::execute() {
  flags.beginRun();
  try {
    const LocalFrame frame(LocalFrame::kMany);
    const Monitor monitor = KovMonitorManager::get().getMonitorByName(monitorName, monitorKey);
    const JArrayList targets = targetList(frame.thread(), calModeValue, targetValues->reference());
    monitor.performCalibration(targets.reference(), useExternalSensors, graylevelCount,
                               measureBacklightResponse, calibrationText,
                               static_cast<long long>(reinterpret_cast<std::intptr_t>(this)));
  } catch (const JavaException& e) {
    return getErrorCode(e);
  } catch (const std::exception&) {
    return OM_ERR_COMMUNICATION;
  }
  if (!flags.canceled()) return OM_OK;
  platform::sleepMilliseconds(kSettlingMilliseconds);
  return OM_ERR_CANCELED;
}

OmError KovCalibrator::cancel() try {
  const Monitor monitor = KovMonitorManager::get().getMonitorByName(monitorName, monitorKey);
  if (flags.calibrationActive()) {
    monitor.abortCalibration();
    flags.setCanceled();  // Kept: after the abort, so a run that ends at once may still be done
  }
  return OM_OK;
} catch (const JavaException& e) {
  return getErrorCode(e);
} catch (const std::exception&) {
  return OM_ERR_COMMUNICATION;
}

OmError KovCalibrator::restore() try {
  const Monitor monitor = KovMonitorManager::get().getMonitorByName(monitorName, monitorKey);
  monitor.setCalModeValue(static_cast<unsigned int>(calModeValue));
  return OM_OK;
} catch (const JavaException& e) {
  return getErrorCode(e);
} catch (const std::exception&) {
  return OM_ERR_COMMUNICATION;
}

bool KovCalibrator::isCanceled() const { return flags.canceled(); }

}  // namespace lumora::kov
