// SPDX-License-Identifier: MIT
#ifndef L5KOV_SIMULATOR_METER_SIM_METER_H_
#define L5KOV_SIMULATOR_METER_SIM_METER_H_

#include <stdint.h>

// The simulated measuring instrument: the two functions of the maker's library, and what a host
// needs beside them to hold a simulated instrument in front of a simulated monitor. The maker's own
// library has no MDSim functions: a host that must work with both finds them by name at run time.
//
// An instrument may be used by one thread at a time; different ones are independent.

#ifdef __cplusplus
extern "C" {
#endif

/// Identifier of the kind of instrument; 0 for null.
uint32_t MDGetDeviceID(void* device);
/// Serial number, valid until the instrument is closed; null for null.
const char* MDGetSerialNumber(void* device);

enum {
  MDSIM_OK = 0,
  MDSIM_NO_PANEL_LIBRARY = 1,  ///< Java has not loaded KOVLibrary.jar's panels into this process
  MDSIM_UNKNOWN_MONITOR = 2,   ///< no monitor of that serial number has been found yet
  MDSIM_BAD_ARGUMENT = 3       ///< null, or a component that is not a number
};

/// An instrument of kind `deviceId`, held in front of the monitor with that serial number (the one
/// that the Java library calls it by, not the EDID's). A null serial number of the instrument is
/// kept as null. Gives null when the monitor's is null or memory is short. The monitor need not be
/// there yet.
void* MDSimOpen(uint32_t deviceId, const char* serialNumber, const char* monitorSerialNumber);
void MDSimClose(void* device);

/// Tells the simulation what the host has drawn in front of the instrument; components 0 to 1.
int MDSimShowPatch(void* device, double red, double green, double blue);
/// Luminance in cd/m² and CIE 1931 x, y. Untouched unless the answer is MDSIM_OK.
int MDSimMeasure(void* device, double* luminance, double* x, double* y);
/// How the panel is driven: three channels behind its look-up table and the backlight's share, each
/// 0 to 1. For a host whose instrument brings a panel's physics of its own.
int MDSimSignal(void* device, double signal[4]);
/// A sentence for one of the codes above.
const char* MDSimErrorText(int code);

#ifdef __cplusplus
}
#endif

#endif  // L5KOV_SIMULATOR_METER_SIM_METER_H_
