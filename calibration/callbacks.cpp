// SPDX-License-Identifier: MIT
#include <jni.h>

#include <algorithm>
#include <iterator>
#include <optional>

#include "calibration/java_boundary.h"
#include "calibration/measurement_device_code_map.h"
#include "java/java_classes.h"
#include "java/kept.h"
#include "java/local_frame.h"
#include "lumora/kov/kov_calibrator.h"

// The native methods that the Java library calls while execute() is inside performCalibration(), on
// the same thread. Their local references live until they return to Java.
namespace lumora::kov {
namespace {

using java::JApiCalibrationResultValues;
using java::LocalFrame;

// Kept: the handle is the calibrator's address and nothing checks it.
KovCalibrator* calibratorOf(std::int64_t handle) {
  return reinterpret_cast<KovCalibrator*>(static_cast<std::intptr_t>(handle));
}

// A record of zeros. In two halves: of a whole one, compilers make a string instruction that takes
// longer to start than the halves' few stores take.
PatchRecord blankRecord() {
  PatchRecord record;
  std::fill_n(record.values, PatchRecord::kCount / 2, 0.0);
  std::fill_n(record.values + PatchRecord::kCount / 2, PatchRecord::kCount / 2, 0.0);
  return record;
}

constexpr double kFullComponent = 255.0;
constexpr double kPercent = 100.0;
constexpr const char* kFinishEvent = "FinishCalibration";

}  // namespace

OmError KovCalibrator::registerCallback() try {
  const auto entry = [](const char* name, const char* signature, auto* procedure) {
    return JNINativeMethod{const_cast<char*>(name), const_cast<char*>(signature),
                           reinterpret_cast<void*>(procedure)};
  };
  const JNINativeMethod table[] = {
      entry("jniSendProgress", "(IJ)V", &ProgressProc),
      entry("jniDrawTestpattern", "(IIIJ)V", &ShowColorPatchProc),
      entry("jniMeasureLuminance", "(J)[D", &MeasureProc),
      entry("jniFinishCalibration", "(Ljava/util/List;J)Z", &FinishCalibrationProc),
      entry("jniGetMeasurementSerialNumber", "(J)Ljava/lang/String;",
            &GetMeasurementSerialNumberProc),
      entry("jniGetMeasurementType", "(J)I", &GetMeasurementTypeProc),
  };
  const LocalFrame frame;
  JNIEnv* env = frame.thread()->env();
  const jclass clazz = java::jni::findClass(env, java::catalogue::kCallbackClass);
  const bool registered =
      clazz != nullptr &&
      java::jni::registerNatives(env, clazz, table, static_cast<jint>(std::size(table)));
  return registered ? OM_OK : OM_ERR_JAVA;
} catch (const java::JavaException& e) {
  return getErrorCode(e);
} catch (const std::exception&) {
  return OM_ERR_COMMUNICATION;
}

void KovCalibrator::ProgressProc(JNIEnv* env, jobject, std::int32_t percent, std::int64_t handle) {
  atJavaBoundary(env, [&] {
    const KovCalibrator* calibrator = calibratorOf(handle);
    if (calibrator->flags.canceled() || calibrator->delegate == nullptr) return;
    calibrator->delegate->progress(percent / kPercent);
  });
}

void KovCalibrator::ShowColorPatchProc(JNIEnv* env, jobject, std::int32_t c1, std::int32_t c2,
                                       std::int32_t c3, std::int64_t handle) {
  atJavaBoundary(env, [&] {
    KovCalibrator* calibrator = calibratorOf(handle);
    if (calibrator->flags.canceled() || calibrator->delegate == nullptr) return;
    PatchRecord patch = blankRecord();
    patch[PatchRecord::kComponent1] = c1 / kFullComponent;
    patch[PatchRecord::kComponent2] = c2 / kFullComponent;
    patch[PatchRecord::kComponent3] = c3 / kFullComponent;
    calibrator->delegate->showColorPatch(patch);
    calibrator->currentPatch = patch;
  });
}

jdoubleArray KovCalibrator::MeasureProc(JNIEnv* env, jobject, std::int64_t handle) {
  return atJavaBoundary(env, [&]() -> jdoubleArray {
    const KovCalibrator* calibrator = calibratorOf(handle);
    if (calibrator->flags.canceled() || calibrator->delegate == nullptr) return nullptr;
    PatchRecord patch = calibrator->currentPatch;
    PatchRecord result = blankRecord();
    calibrator->delegate->measure(calibrator->measurementDevice, &patch, &result);
    const double measured[] = {result[PatchRecord::kMeasured1], result[PatchRecord::kMeasured2],
                               result[PatchRecord::kMeasured3]};
    return java::jni::newDoubleArray(env, measured, static_cast<jsize>(std::size(measured)));
  });
}

unsigned char KovCalibrator::FinishCalibrationProc(JNIEnv* env, jobject, jobject resultList,
                                                   std::int64_t handle) {
  return atJavaBoundary(env, [&]() -> unsigned char {
    KovCalibrator* calibrator = calibratorOf(handle);
    // First, so that a cancel() from now on no longer aborts.
    calibrator->flags.clearCalibrationActive();
    const auto reported = java::wrap<java::JList>(java::readyEnv(), resultList);
    calibrator->appendResults(reported);
    // A calibrator without a delegate has nobody to tell; the others' checks end here, too.
    if (calibrator->delegate != nullptr) calibrator->delegate->notifyEvent(kFinishEvent);
    return JNI_TRUE;
  });
}

// Kept: results are appended and never cleared; the list's size is asked again after each.
void KovCalibrator::appendResults(const java::JList& reported) {
  java::JavaEnv* thread = java::readyEnv();
  const auto kept = resultList->on(thread);
  std::int32_t size = reported.size();
  std::optional<LocalFrame> further;  // a list of any length leaves no more than a frame announces
  for (std::int32_t i = 0; i < size; ++i) {
    if (i > 0 && i % LocalFrame::kFew == 0) further.emplace();
    const auto result = java::wrap<JApiCalibrationResultValues>(thread, reported.get(i));
    kept->add(result.reference());
    size = reported.size();
  }
}

// Kept: this and the next look neither at the flag nor at the delegate.
jstring KovCalibrator::GetMeasurementSerialNumberProc(JNIEnv* env, jobject, std::int64_t handle) {
  return atJavaBoundary(env, [&] {
    // Kept: through the thread's own environment, not the one passed in.
    return java::jni::newString(java::readyEnv()->env(), calibratorOf(handle)->deviceSerialNumber);
  });
}

std::int32_t KovCalibrator::GetMeasurementTypeProc(JNIEnv* env, jobject, std::int64_t handle) {
  return atJavaBoundary(env, [&] {
    return MeasurementDeviceCodeMap().deviceToCode(
        static_cast<std::int32_t>(calibratorOf(handle)->deviceId));
  });
}

}  // namespace lumora::kov
