// SPDX-License-Identifier: MIT
#include "lumora/kov/kov_calibrator_delegate.h"

namespace lumora::kov {

KovCalibratorDelegate::KovCalibratorDelegate() = default;
KovCalibratorDelegate::KovCalibratorDelegate(const KovCalibratorDelegate&) = default;
KovCalibratorDelegate& KovCalibratorDelegate::operator=(const KovCalibratorDelegate&) = default;
KovCalibratorDelegate::~KovCalibratorDelegate() = default;

}  // namespace lumora::kov
