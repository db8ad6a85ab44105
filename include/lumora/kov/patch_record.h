// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_KOV_PATCH_RECORD_H_
#define L5KOV_LUMORA_KOV_PATCH_RECORD_H_

#include <cstddef>

namespace lumora {
namespace kov {

/// One test patch or one measurement: 18 binary64 numbers, 144 bytes.
///
/// As a patch (KovCalibratorDelegate::showColorPatch): 4, 5 and 6 are the colour components in
/// [0, 1], the Java library's integers divided by 255. As a measurement (the record that measure()
/// fills): 8, 10 and 11 go back to the Java library in this order; it takes them as luminance in
/// cd/m² and the CIE 1931 chromaticity x and y. All other numbers are the delegate's own: zero when
/// a record is made, kept and handed on unchanged.
struct PatchRecord {
  enum Index : std::size_t {
    kComponent1 = 4,
    kComponent2 = 5,
    kComponent3 = 6,
    kMeasured1 = 8,
    kMeasured2 = 10,  // Kept: 9 is never returned
    kMeasured3 = 11,
    kCount = 18,
  };

  double values[kCount];

  double& operator[](std::size_t i) { return values[i]; }
  const double& operator[](std::size_t i) const { return values[i]; }
};

static_assert(sizeof(PatchRecord) == 144, "18 doubles");

}  // namespace kov
}  // namespace lumora

#endif  // L5KOV_LUMORA_KOV_PATCH_RECORD_H_
