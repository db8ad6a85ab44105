// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_OM_TYPES_H_
#define L5KOV_LUMORA_OM_TYPES_H_

#include <cstdint>

/// Colour type of a panel.
enum OmCtrlPanelType : std::int32_t {
  OmCtrlPanelMonochrome = 0,  ///< the monitor reports the colour type "Monochrome"
  OmCtrlPanelColor = 1,       ///< any other reported colour type
};

/// Lock state of the keys of a monitor's on-screen display.
// Kept: 10 for locked. Hosts store and compare these numbers.
enum OmCtrlKeyLockState : std::int32_t {
  OmCtrlKeyLockUnlocked = 0,  ///< the keys are usable
  OmCtrlKeyLockLocked = 10,   ///< the keys are locked; as an argument, any other value unlocks
};

/// A monitor's time of use.
struct OMC_USAGETIME {
  std::int32_t workingHours;  ///< accumulated working time in hours, as the Java library reports it
  std::int32_t reserved;      ///< always 0  (Kept: part of the layout)
};

static_assert(sizeof(OmCtrlPanelType) == 4 && sizeof(OmCtrlKeyLockState) == 4, "32-bit enums");
static_assert(sizeof(OMC_USAGETIME) == 8, "two 32-bit fields");

#endif  // L5KOV_LUMORA_OM_TYPES_H_
