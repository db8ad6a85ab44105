// SPDX-License-Identifier: MIT
#ifndef L5KOV_SIMULATOR_CHROMA_COLOUR_TMP2XY_H_
#define L5KOV_SIMULATOR_CHROMA_COLOUR_TMP2XY_H_

#ifdef __cplusplus
extern "C" {
#endif

enum {
  COLOUR_OK = 0,
  COLOUR_CLAMPED = 1,      ///< below 4000 K or above 25000 K: the answer is that of the nearest end
  COLOUR_BAD_ARGUMENT = 2  ///< a null record; nothing is written
};

/// The colour of CIE daylight. `in`: 144 bytes, the temperature in kelvin as a signed 32-bit number
/// at byte 96. `out`: at least 96 bytes; x goes to byte 80 and y to byte 88, both binary64, and no
/// other byte is touched. Neither record needs to be aligned. Any thread.
int Colour_tmp2xy(void* out, const void* in);

#ifdef __cplusplus
}
#endif

#endif  // L5KOV_SIMULATOR_CHROMA_COLOUR_TMP2XY_H_
