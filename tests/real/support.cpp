// SPDX-License-Identifier: MIT
#include "tests/real/support.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "simulator/meter/sim_meter.h"
#include "tests/real/system.h"

namespace realtest {
namespace {

constexpr std::uint32_t kDeviceId = 163;  // reported to Java as 7
constexpr const char* kInstrumentSerial = "METER-17";

void check(int answer) {
  if (answer != MDSIM_OK) throw std::runtime_error(MDSimErrorText(answer));
}

}  // namespace

Workstation::Workstation(const std::string& settings) {
  home = system::makeFolder();
  std::ofstream(home / "simulator.properties") << "search.ms = 0\nnoise = off\n"
                                               << settings << '\n';
  system::setVariable("KOV_SIM_HOME", home.string());
}

Workstation::~Workstation() { std::filesystem::remove_all(home); }

void Workstation::order(const std::string& faults) const {
  std::ofstream(home / "faults.properties") << faults;
}

lumora::Monitor Workstation::findColourMonitor() {
  auto& manager = lumora::kov::KovMonitorManager::get();
  manager.find();
  return manager.getMonitorByName(kColour.model, kColour.serial);
}

std::filesystem::path Workstation::root() { return std::getenv("L5KOV_COMMON_APPDATA"); }

Instrument::Instrument(const MonitorName& monitor)
    : meter(MDSimOpen(kDeviceId, kInstrumentSerial, monitor.serial)) {
  if (meter == nullptr) throw std::runtime_error("no instrument");
}

Instrument::~Instrument() { MDSimClose(meter); }

void Instrument::showColorPatch(lumora::kov::PatchRecord& patch) {
  ++patches;
  if (onPatch) onPatch(patches);
  check(MDSimShowPatch(meter, patch[4], patch[5], patch[6]));
}

void Instrument::measure(void* device, lumora::kov::PatchRecord* patch,
                         lumora::kov::PatchRecord* result) {
  EXPECT_EQ(device, meter);
  check(MDSimMeasure(meter, &(*result)[8], &(*result)[10], &(*result)[11]));
  measurements.push_back({(*patch)[4], (*result)[8]});
}

void Instrument::progress(double fraction) { fractions.push_back(fraction); }
void Instrument::notifyEvent(std::string event) { events.push_back(std::move(event)); }

Calibration::Calibration(const MonitorName& monitor, int calModeValue)
    : instrument(monitor),
      calibrator(monitor.model, monitor.serial, calModeValue, instrument.device(), "room 3", "",
                 &instrument) {}

pocketjson::Value dicomTarget() {
  pocketjson::Value target;
  target["LmaxValue"] = 250.0;
  target["LminValue"] = 0.5;
  target["IsUsedLamb"] = true;
  target["ColorTemperatureType"] = "OFF";
  target["DisplayFunctionType"] = "DICOM";
  target["numberOfGraylevels"] = 52;
  return target;
}

OmError setTarget(Calibration& run, const pocketjson::Value& target) {
  return run.calibrator.setCalibrationTarget(target, {}, {}, 0.1, false);
}

}  // namespace realtest
