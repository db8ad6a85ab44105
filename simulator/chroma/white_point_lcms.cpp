// SPDX-License-Identifier: MIT
#include <lcms2.h>

#include "white_point.h"

namespace chroma {

bool daylight(double kelvin, WhitePoint& white) {
  cmsCIExyY point;
  if (!cmsWhitePointFromTemp(&point, kelvin)) {
    return false;
  }
  white = {point.x, point.y};
  return true;
}

}  // namespace chroma
