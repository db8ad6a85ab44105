// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_VALUES_TARGET_MEMBERS_H_
#define L5KOV_BENCH_VALUES_TARGET_MEMBERS_H_

#include <variant>

namespace bench {

// A calibration target as hosts send it: twelve members, in the order in which they are read.
using Scalar = std::variant<double, bool, int, const char*>;

struct TargetMember {
  const char* key;
  Scalar value;
};

inline constexpr TargetMember kTarget[] = {
    {"LmaxValue", 250.0},
    {"LminValue", 0.5},
    {"IsUsedMeasurementLmin", false},
    {"IsUsedLamb", true},
    {"ColorTemperatureType", "CUSTOM"},
    {"ColorXValue", 0.3127},
    {"ColorYValue", 0.3290},
    {"DisplayFunctionType", "DICOM"},
    {"IsUsedExternalSensors", false},
    {"numberOfGraylevels", 52},
    {"measureBacklightResponse", false},
    {"ExpValue", 2.2},
};

// What the twelve reads come to, so that none of them can be left out.
struct Sum {
  double numbers = 0.0;
  int flags = 0;
  unsigned long letters = 0;
};

}  // namespace bench

#endif  // L5KOV_BENCH_VALUES_TARGET_MEMBERS_H_
