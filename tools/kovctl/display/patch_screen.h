// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DISPLAY_PATCH_SCREEN_H_
#define L5KOV_TOOLS_KOVCTL_DISPLAY_PATCH_SCREEN_H_

#include <memory>
#include <string>

#include "instrument/instrument.h"

namespace kovctl {

/// Where patches are drawn for a real instrument. All calls from one thread.
class PatchScreen {
 public:
  virtual ~PatchScreen() = default;
  /// Returns when the patch is on the screen. @throws Failure(kInstrument) when the window is gone
  virtual void show(const Patch& patch) = 0;
  /// False when the window is gone: closed by the user, or its display has ended.
  virtual bool isOpen() = 0;
};

struct ScreenOptions {
  std::string choice;          ///< empty: none; "fullscreen", or "WIDTHxHEIGHT" for a window
  int display = 0;             ///< number of the display, from 0
  double settleSeconds = 0.3;  ///< from drawing to measuring
};

/// @throws Failure(kUsage) for a wrong choice
void checkScreenChoice(const std::string& choice);
/// Draws nowhere: for instruments that know the patch without a screen.
std::unique_ptr<PatchScreen> makeNoScreen();
/// @throws Failure(kUsage) for a wrong choice, Failure(kInstrument) when no window can be opened
std::unique_ptr<PatchScreen> makePatchScreen(const ScreenOptions& options);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DISPLAY_PATCH_SCREEN_H_
