// SPDX-License-Identifier: MIT
#ifndef L5KOV_SIMULATOR_PANEL_KOV_PANEL_H_
#define L5KOV_SIMULATOR_PANEL_KOV_PANEL_H_

#include <stdint.h>

// The panels of the simulated monitors: what their screens show when a patch is drawn, and what a
// meter in front of them reads. The firmware (in KOVLibrary.jar) sets the registers, the instrument
// (libmeter_x64) looks at the screen; both meet here, in one copy of the library per process.
//
// All calls may come from any thread. Every function returns one of the codes below.

#ifdef __cplusplus
extern "C" {
#endif

enum {
  KOVPANEL_OK = 0,
  KOVPANEL_UNKNOWN_SERIAL = 1,  ///< no panel of that serial number is registered
  KOVPANEL_BAD_ARGUMENT = 2,    ///< null, out of range, not finite, or colours that make no screen
  KOVPANEL_NO_MEMORY = 3
};

enum { KOVPANEL_TABLES = 16, KOVPANEL_ENTRIES = 256, KOVPANEL_CHANNELS = 3 };

/// What a panel is made of. Luminances in cd/m², colours as CIE 1931 x, y, times in seconds.
typedef struct KovPanelParameters {
  double blackLuminance;
  double whiteLuminance;  ///< at full backlight, warm
  double gamma25;         ///< exponent of the transmission at 25 % drive,
  double gamma50;         ///< at 50 %
  double gamma75;         ///< and at 75 %; a quadratic runs through the three
  double redX, redY, greenX, greenY, blueX, blueY;
  double whiteX, whiteY;
  double blackX, blackY;
  double coldDeficit;            ///< share of the light that is missing when just switched on
  double warmUpSeconds;          ///< time constant of the approach to the warm state
  double startSeconds;           ///< how long the panel has been on when it is registered
  double secondsPerPatch;        ///< what drawing a patch takes
  double secondsPerMeasurement;  ///< what a measurement takes
  double noiseRelative;          ///< standard deviation of a reading, as a share of it
  double noiseAbsolute;          ///< and in cd/m²; the two add as independent errors
  double sensorFullScale;        ///< counts of the backlight sensor at full backlight, warm
  uint32_t lutBits;              ///< width of a look-up table's output, 8 to 16
  uint32_t monochrome;           ///< not 0: the three components drive equal parts of a gray pixel
  uint64_t seed;                 ///< of the meter's noise
} KovPanelParameters;

/// Makes a panel, or makes it anew: the clock starts again, noise too, registers are as delivered
/// (every table straight, full backlight, table 0 active).
int kovpanel_register(const char* serial, const KovPanelParameters* parameters);
int kovpanel_remove(const char* serial);

/// Registers of the firmware. A table has 256 entries per channel.
int kovpanel_set_table(const char* serial, int table, int channel, const uint16_t* entries);
int kovpanel_set_backlight(const char* serial, int table, double share);
int kovpanel_activate(const char* serial, int table);
/// Backlight sensor in counts: follows the backlight, not the picture.
int kovpanel_sensor(const char* serial, int32_t* counts);

/// Draws a uniform patch; components 0 to 1, as 8-bit pictures are sent.
int kovpanel_show(const char* serial, double red, double green, double blue);
/// What the meter reads: luminance in cd/m², x, y. Takes time and carries noise.
int kovpanel_measure(const char* serial, double reading[3]);
/// What the screen emits at this moment, without noise and without taking time.
int kovpanel_emission(const char* serial, double emission[3]);
/// How the panel is driven at this moment: the three channels behind the look-up table and the
/// backlight's share, each 0 to 1. For instruments that bring a panel's physics of their own.
int kovpanel_signal(const char* serial, double signal[4]);

/// The panel's own clock, in seconds since it was registered. Nothing but patches, measurements and
/// waiting moves it, so the same calls give the same readings on every machine.
int kovpanel_wait(const char* serial, double seconds);
int kovpanel_clock(const char* serial, double* seconds);

#ifdef __cplusplus
}
#endif

#endif  // L5KOV_SIMULATOR_PANEL_KOV_PANEL_H_
