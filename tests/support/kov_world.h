// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_SUPPORT_KOV_WORLD_H_
#define L5KOV_TESTS_SUPPORT_KOV_WORLD_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/calibration_run.h"
#include "tests/support/fake_jvm.h"

namespace kovtest {

// JNI names of the maker's classes.
inline constexpr const char* kApi = "com/orva/kov/library/api/";
inline constexpr const char* kMonitorClass = "com/orva/kov/library/api/Monitor";
inline constexpr const char* kLibraryClass = "com/orva/kov/library/impl/KovMonitorLibrary";
inline constexpr const char* kStatusClass = "com/orva/kov/library/api/MonitorLibrary$SearchStatus";
inline constexpr const char* kEdidClass = "com/orva/kov/library/api/EdidInformation";
inline constexpr const char* kLutClass = "com/orva/kov/library/api/LookUpTable";
inline constexpr const char* kOsdClass = "com/orva/kov/library/api/Osd";
inline constexpr const char* kTargetClass = "com/orva/kov/library/api/CalibrationTargetValues";
inline constexpr const char* kResultClass = "com/orva/kov/library/api/CalibrationResultValues";
inline constexpr const char* kHistoryClass = "com/orva/kov/library/api/ExtractedCalibrationData";
inline constexpr const char* kDeviceTypeClass = "com/orva/kov/library/api/MeasurementDeviceType";
inline constexpr const char* kCallbackClass = "com/orva/kov/library/api/CallbackJniFunctions";

// Beans of the maker's API. Each member without a script of its own reads or writes the field that
// it names: "getModel" reads "model", "isLocked" reads "locked", "setMaxLuminance" writes
// "maxLuminance". So `osd->setField("locked", true)` changes what Java answers, a field set to
// nullptr makes the getter answer null, and `jvm->script(osd, "isLocked", throws(...))` overrides.
// Numbers in fields of boxed getters are boxed by the runtime.
struct MonitorObjects {
  // Fields: model, serialNumber, colorType, connectionType, workingHours, edidInformation,
  // lookUpTables, activeLut, osd, history (what extractCalibrationData answers; a list).
  fakejvm::ObjectRef monitor;
  fakejvm::ObjectRef edid;               // modelName, serialNumber, yearOfManufacture
  fakejvm::ObjectRef osd;                // lockSupported, locked
  std::vector<fakejvm::ObjectRef> luts;  // index, name, active
  fakejvm::ObjectRef history;            // the list; empty at first
};

struct HistoryObjects {
  // Fields: as the getters of ExtractedCalibrationData ("lutNumber", "executeDate", ...).
  fakejvm::ObjectRef entry;
  fakejvm::ObjectRef target;      // CalibrationTargetValues
  fakejvm::ObjectRef deviceType;  // id, name
};

// The maker's Java library in its simplest form: one library object ("library"), a search that is
// FINISHED at once, no monitors.
class KovWorld {
 public:
  explicit KovWorld(FakeJvm& fake);

  fakejvm::ObjectRef library;
  fakejvm::ObjectRef statusFinished, statusNone, statusRunning;

  // What getSearchStatus answers, call by call; the last one for ever. May hold null and objects
  // that are no known status.
  void setSearchStatuses(std::vector<fakejvm::ObjectRef> statuses);

  // A colour monitor with two look-up tables ("<name>Lut0", "<name>Lut1"; the first active),
  // "<name>Edid", "<name>Osd" and an empty history ("<name>History"); getMonitor finds it by model
  // and serial number, "L5-X240" and "SN0001" unless changed.
  MonitorObjects addMonitor(const std::string& name = "monitor");
  // A complete history entry ("<name>", "<name>Target", "<name>DeviceType"), appended.
  HistoryObjects addHistory(const MonitorObjects& monitor, int lutNumber,
                            const std::string& name = "entry");
  // A CalibrationTargetValues with what its Java constructor sets: zeros, false, null texts.
  fakejvm::ObjectRef target(const std::string& name);
  fakejvm::ObjectRef result(const std::string& name, double maxLuminance, double minLuminance,
                            int backlight);

  // What performCalibration does from now on, on every monitor. At first: simpleCalibration.
  void onCalibrate(std::function<void(CalibrationRun&)> calibration);
  // Calls of abortCalibration so far, and what it does beside counting.
  int abortCount() const;
  void onAbort(std::function<void()> action);

 private:
  struct State;
  void scriptLibrary();
  void scriptMonitors();

  FakeJvm& jvm;
  std::shared_ptr<State> state;
};

}  // namespace kovtest

#endif  // L5KOV_TESTS_SUPPORT_KOV_WORLD_H_
