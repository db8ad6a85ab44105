// SPDX-License-Identifier: MIT
#include "sim_meter.h"

#include <exception>
#include <optional>
#include <string>

#include "../panel/kov_panel.h"
#include "loaded_panel.h"

namespace {

struct Instrument {
  std::uint32_t deviceId;
  std::optional<std::string> serialNumber;
  std::string monitor;
  simmeter::LoadedPanel panel;  ///< looked for at the first use that needs it
};

Instrument* instrumentOf(void* device) { return static_cast<Instrument*>(device); }

int fromPanel(int code) {
  switch (code) {
    case KOVPANEL_OK:
      return MDSIM_OK;
    case KOVPANEL_UNKNOWN_SERIAL:
      return MDSIM_UNKNOWN_MONITOR;
    default:
      return MDSIM_BAD_ARGUMENT;
  }
}

bool hasPanel(Instrument& instrument) {
  if (!instrument.panel.isThere()) {
    instrument.panel = simmeter::findLoadedPanel();
  }
  return instrument.panel.isThere();
}

}  // namespace

std::uint32_t MDGetDeviceID(void* device) {
  return device == nullptr ? 0 : instrumentOf(device)->deviceId;
}

const char* MDGetSerialNumber(void* device) {
  if (device == nullptr || !instrumentOf(device)->serialNumber) {
    return nullptr;
  }
  return instrumentOf(device)->serialNumber->c_str();
}

void* MDSimOpen(std::uint32_t deviceId, const char* serialNumber, const char* monitorSerialNumber) {
  if (monitorSerialNumber == nullptr) {
    return nullptr;
  }
  try {
    std::optional<std::string> serial;
    if (serialNumber != nullptr) {
      serial = serialNumber;
    }
    return new Instrument{deviceId, serial, monitorSerialNumber, {}};
  } catch (const std::exception&) {
    return nullptr;
  }
}

void MDSimClose(void* device) { delete instrumentOf(device); }

int MDSimShowPatch(void* device, double red, double green, double blue) {
  if (device == nullptr) {
    return MDSIM_BAD_ARGUMENT;
  }
  Instrument& instrument = *instrumentOf(device);
  if (!hasPanel(instrument)) {
    return MDSIM_NO_PANEL_LIBRARY;
  }
  return fromPanel(instrument.panel.show(instrument.monitor.c_str(), red, green, blue));
}

int MDSimMeasure(void* device, double* luminance, double* x, double* y) {
  if (device == nullptr || luminance == nullptr || x == nullptr || y == nullptr) {
    return MDSIM_BAD_ARGUMENT;
  }
  Instrument& instrument = *instrumentOf(device);
  if (!hasPanel(instrument)) {
    return MDSIM_NO_PANEL_LIBRARY;
  }
  double reading[3] = {};
  const int code = fromPanel(instrument.panel.measure(instrument.monitor.c_str(), reading));
  if (code == MDSIM_OK) {
    *luminance = reading[0];
    *x = reading[1];
    *y = reading[2];
  }
  return code;
}

int MDSimSignal(void* device, double signal[4]) {
  if (device == nullptr || signal == nullptr) {
    return MDSIM_BAD_ARGUMENT;
  }
  Instrument& instrument = *instrumentOf(device);
  if (!hasPanel(instrument)) {
    return MDSIM_NO_PANEL_LIBRARY;
  }
  return fromPanel(instrument.panel.signal(instrument.monitor.c_str(), signal));
}

const char* MDSimErrorText(int code) {
  switch (code) {
    case MDSIM_OK:
      return "Measured.";
    case MDSIM_NO_PANEL_LIBRARY:
      return "The simulated panels are not in this process: search for monitors first.";
    case MDSIM_UNKNOWN_MONITOR:
      return "No simulated monitor has this serial number: search for monitors first.";
    case MDSIM_BAD_ARGUMENT:
      return "The simulated instrument was given a wrong argument.";
    default:
      return "Not an answer of the simulated instrument.";
  }
}
