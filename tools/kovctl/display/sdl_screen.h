// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DISPLAY_SDL_SCREEN_H_
#define L5KOV_TOOLS_KOVCTL_DISPLAY_SDL_SCREEN_H_

#include <memory>

#include "display/patch_screen.h"

namespace kovctl {

struct SdlWindow {
  int width;  ///< 0: the whole display
  int height;
  ScreenOptions options;
};

/// @throws Failure(kInstrument) without a display; Failure(kUsage) in a build without SDL
std::unique_ptr<PatchScreen> makeSdlScreen(const SdlWindow& wanted);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DISPLAY_SDL_SCREEN_H_
