// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_REAL_SUPPORT_H_
#define L5KOV_TESTS_REAL_SUPPORT_H_

#include <l5kov.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace realtest {

// The simulated workstation of one test: its settings and the monitors' memories lie in a folder of
// their own. To be made before the first call into Java; a process has one.
class Workstation {
 public:
  // `settings` are lines of simulator.properties beside those that keep a test quick and repeatable
  // (no noise, no waiting for the search).
  explicit Workstation(const std::string& settings = "");
  ~Workstation();
  Workstation(const Workstation&) = delete;
  Workstation& operator=(const Workstation&) = delete;

  // Lines of faults.properties; they hold from the next search on.
  void order(const std::string& faults) const;
  // Searches and gives the handle of the colour monitor.
  static lumora::Monitor findColourMonitor();

  // The application-data folder that the library uses.
  static std::filesystem::path root();

 private:
  std::filesystem::path home;
};

// Model and serial number of the simulated monitors that tests speak of.
struct MonitorName {
  const char* model;
  const char* serial;
};
inline constexpr MonitorName kColour{"OR-C321", "30210045"};
inline constexpr MonitorName kMonochrome{"OR-M215", "21500012"};
inline constexpr MonitorName kShortSerial{"OR-C240", "24000777"};
inline constexpr MonitorName kWithoutHistory{"OR-C190", "19000003"};

struct Measured {
  double red;
  double luminance;
};

// A delegate that holds the simulated instrument in front of a simulated monitor.
class Instrument : public lumora::kov::KovCalibratorDelegate {
 public:
  explicit Instrument(const MonitorName& monitor);
  ~Instrument() override;
  Instrument(const Instrument&) = delete;
  Instrument& operator=(const Instrument&) = delete;

  void* device() const { return meter; }

  void showColorPatch(lumora::kov::PatchRecord& patch) override;
  void measure(void* device, lumora::kov::PatchRecord* patch,
               lumora::kov::PatchRecord* result) override;
  void progress(double fraction) override;
  void notifyEvent(std::string event) override;

  std::vector<Measured> measurements;
  std::vector<double> fractions;
  std::vector<std::string> events;
  std::atomic<int> patches{0};
  // Runs at the beginning of each showColorPatch, with the patch's number from 1.
  std::function<void(int)> onPatch;

 private:
  void* meter;
};

// A calibrator for a table of a monitor, with its instrument.
struct Calibration {
  explicit Calibration(const MonitorName& monitor, int calModeValue = 0);
  Instrument instrument;
  lumora::kov::KovCalibrator calibrator;
};

// The target that the checks of the simulator are written for: 0.5 to 250 cd/m², DICOM, no colour,
// 52 levels, ambient light 0.1 cd/m².
pocketjson::Value dicomTarget();
OmError setTarget(Calibration& run, const pocketjson::Value& target);

}  // namespace realtest

#endif  // L5KOV_TESTS_REAL_SUPPORT_H_
