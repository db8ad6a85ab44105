// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_KOV_KOV_CALIBRATOR_H_
#define L5KOV_LUMORA_KOV_KOV_CALIBRATOR_H_

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "l5kov/export.h"
#include "lumora/kov/java/jni_names.h"
#include "lumora/kov/kov_calibrator_delegate.h"
#include "lumora/kov/om_error.h"
#include "lumora/kov/patch_record.h"
#include "pocketjson/value.h"

namespace lumora {
namespace kov {

namespace java {
class JApiCalibrationTargetValues;
class JArrayList;
class JavaException;
class JList;
template <class Wrapper>
class Kept;
}  // namespace java

/// Runs calibrations of one monitor. In this order: construct; registerCallback();
/// setCalibrationTarget(); execute(), which blocks; getCalibrationData(); restore() if wanted.
///
/// The calibrator's address is the handle that the Java library gives back in its callbacks, so it
/// must outlive execute(), and it can be neither copied nor moved.
///
/// Threads: any thread may use a calibrator, one at a time; only cancel() and isCanceled() may be
/// called while another thread is inside execute(). setCalibrationTarget() must not overlap
/// execute().
///
/// Exceptions: where an operation names none, nothing but std::bad_alloc leaves it. Those that name
/// what java::Env() throws also throw std::logic_error after DeleteJavaVM() on the thread. OmError
/// results: OM_ERR_JAVA and OM_ERR_COMMUNICATION as described there; the message of the last Java
/// failure stays available through getErrorMsg().
class L5KOV_API KovCalibrator {
 public:
  /// @param monitorName, monitorKey  the monitor: the two texts of
  ///        KovMonitorManager::getMonitorByName()
  /// @param calModeValue       position of the look-up table to calibrate, counted from 0
  /// @param measurementDevice  handle of the host's measuring instrument, handed to the
  ///        measurement-device library and to the delegate; never owned. Its identifier and serial
  ///        number are read once, here.
  /// @param calibrationText    handed to the Java library unchanged
  /// @param auxiliaryText      stored and never used
  /// @param delegate           not owned; must outlive execute()
  /// @throws java::JavaException, and what java::Env() throws
  KovCalibrator(const std::string& monitorName, const std::string& monitorKey, int calModeValue,
                void* measurementDevice, const std::string& calibrationText,
                const std::string& auxiliaryText, KovCalibratorDelegate* delegate);
  KovCalibrator(const KovCalibrator&) = delete;
  KovCalibrator& operator=(const KovCalibrator&) = delete;
  /// Neither aborts a calibration nor touches the monitor.
  ~KovCalibrator();

  /// Sets what the next execute() aims at.
  ///
  /// `target` is an object with these members; a missing one, or one that cannot be converted,
  /// reads as the default:
  ///   "LmaxValue", "LminValue"   double, 0.0: luminances in cd/m²
  ///   "IsUsedMeasurementLmin"    bool, false: true keeps the measured minimum luminance
  ///   "IsUsedLamb"               bool, false: whether `ambientLight` is used
  ///   "ColorTemperatureType"     string: "OFF" (no colour calibration), "CUSTOM" (the next two
  ///                              members), "K" and a temperature in kelvin ("K6500"); any other
  ///                              text: colour calibration towards 0.0, 0.0
  ///   "ColorXValue", "ColorYValue"  double, 0.0: CIE 1931 chromaticity
  ///   "DisplayFunctionType"      string: "DICOM", "CIE", "EXP", "LOG_LINEAR", "LINEAR", "NATIVE",
  ///                              "USER_DEFINE"; any other text leaves the function as it is
  ///   "ExpValue"                 double, 0.0: exponent of "EXP"
  ///   "IsUsedExternalSensors"    bool, false
  ///   "numberOfGraylevels"       int, 0: gray levels to measure; 0 lets the Java library choose
  ///   "measureBacklightResponse" bool, false
  /// `curve` is the array of numbers for "USER_DEFINE"; anything else leaves the curve as it is.
  /// `unused1` and `unused2` are accepted and not read. `ambientLight` is
  /// handed to the Java library as it is.
  ///
  /// Stops at the first failure; what was set before it stays set.
  /// @return OM_OK, OM_ERR_JAVA or OM_ERR_COMMUNICATION
  /// @throws std::invalid_argument "invalid stol argument": a "K" temperature without digits
  /// @throws std::out_of_range "stol argument out of range": one beyond 32 bits
  /// @throws what java::Env() throws
  OmError setCalibrationTarget(const pocketjson::Value& target, const pocketjson::Value& curve,
                               const pocketjson::Value& unused1, double ambientLight, bool unused2);

  /// Calibrates; returns when the calibration is over. The delegate is called on this thread.
  /// OM_OK is no proof of a new calibration where cancel() was called: see there.
  /// @return OM_OK; OM_ERR_CANCELED no sooner than 10 s after a canceled calibration came back
  ///         (the monitor settles meanwhile); OM_ERR_JAVA; OM_ERR_COMMUNICATION
  OmError execute();

  /// Asks the running calibration to abort; to be called from another thread. Has no effect once
  /// the calibration has delivered its results. isCanceled() is set after the monitor has taken the
  /// request, so a calibration that ends before that returns OM_OK from execute(), at once and
  /// whether it was finished or given up. Finished it was when the run has called the delegate's
  /// notifyEvent with "FinishCalibration"; given up, the monitor still needs its ten seconds.
  /// On a calibrator that has not run, it aborts and sets isCanceled() all the same.
  /// @return OM_OK, OM_ERR_JAVA or OM_ERR_COMMUNICATION
  OmError cancel();

  /// Activates the calibrator's look-up table on the monitor again.
  /// @return OM_OK, OM_ERR_JAVA or OM_ERR_COMMUNICATION
  OmError restore();

  /// True from a cancel() that took effect to the next execute().
  bool isCanceled() const;

  /// The message of the last Java failure of this calibrator; empty when there was none, and not
  /// changed by failures of another kind.
  std::string getErrorMsg() const;

  /// What the calibration found, for the calibrated table:
  ///   "calibrationTarget" / "lmin"  double, cd/m²; only when the target kept the measured minimum
  ///   "photoSensorAD"               integer, backlight sensor reading; only when there is one
  /// The empty string value, not an object, when there is neither, also when no calibration was
  /// finished (getErrorMsg() then has the Java library's message). Results of several runs
  /// accumulate: the first run's are reported.
  /// @throws std::logic_error after DeleteJavaVM() on this thread, and what java::Env() throws
  pocketjson::Value getCalibrationData();

  /// Lets the Java library call this library; once per process is enough.
  /// @return OM_OK; OM_ERR_JAVA when the plug-in's callback class is missing or refuses;
  ///         OM_ERR_COMMUNICATION when the Java runtime cannot be had
  OmError registerCallback();

 private:
  // `canceled` and `calibrationActive`: one two-byte word, set together at the start of a run and
  // singly after; written and read by different threads without a lock.
  class RunFlags {
   public:
    bool canceled() const noexcept { return (word.load() & kCanceled) != 0; }
    bool calibrationActive() const noexcept { return (word.load() & kActive) != 0; }
    void beginRun() noexcept { word.store(kActive); }
    void setCanceled() noexcept { word.fetch_or(kCanceled); }
    void clearCalibrationActive() noexcept {
      word.fetch_and(static_cast<std::uint16_t>(~static_cast<unsigned>(kActive)));
    }

   private:
    static constexpr std::uint16_t kCanceled = 0x0001;
    static constexpr std::uint16_t kActive = 0x0100;
    std::atomic<std::uint16_t> word{kActive};  // Kept: active from the start, see cancel()
    static_assert(sizeof(word) == 2 && decltype(word)::is_always_lock_free, "one word, no lock");
  };

  OmError getErrorCode(const java::JavaException& e);
  OmError setTargetLuminance(const pocketjson::Value& target, double ambientLight);
  OmError setDisplayFunction(const pocketjson::Value& target, const pocketjson::Value& curve);
  OmError setGammaModelTag();

  // The native methods of the Java library's callback class. `handle` is the calibrator.
  static void ProgressProc(JNIEnv*, jobject, std::int32_t percent, std::int64_t handle);
  static void ShowColorPatchProc(JNIEnv*, jobject, std::int32_t c1, std::int32_t c2,
                                 std::int32_t c3, std::int64_t handle);
  static jdoubleArray MeasureProc(JNIEnv*, jobject, std::int64_t handle);
  static unsigned char FinishCalibrationProc(JNIEnv*, jobject, jobject resultList,
                                             std::int64_t handle);
  static jstring GetMeasurementSerialNumberProc(JNIEnv*, jobject, std::int64_t handle);
  static std::int32_t GetMeasurementTypeProc(JNIEnv*, jobject, std::int64_t handle);

  void appendResults(const java::JList& reported);

  std::unique_ptr<java::Kept<java::JApiCalibrationTargetValues>> targetValues;
  std::unique_ptr<java::Kept<java::JArrayList>> resultList;
  RunFlags flags;
  std::int32_t calModeValue;
  bool useExternalSensors = false;
  std::int32_t graylevelCount;
  bool measureBacklightResponse = false;
  std::string monitorKey;
  std::string monitorName;
  void* measurementDevice;
  std::string deviceSerialNumber;
  std::uint32_t deviceId = 0;
  std::string calibrationText;
  std::string auxiliaryText;  // Kept: stored and never read
  KovCalibratorDelegate* delegate;
  PatchRecord currentPatch = {};
  std::string lastErrorMessage;
};

}  // namespace kov
}  // namespace lumora

#endif  // L5KOV_LUMORA_KOV_KOV_CALIBRATOR_H_
