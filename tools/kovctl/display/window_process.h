// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DISPLAY_WINDOW_PROCESS_H_
#define L5KOV_TOOLS_KOVCTL_DISPLAY_WINDOW_PROCESS_H_

#include "display/patch_screen.h"
#include "system/subprocess.h"

namespace kovctl {

/// The patch window in a process of its own. When a display goes away, the window system's library
/// ends the process that has a window there; that must not be the one that is calibrating. It also
/// lets the window answer to the window system while this process measures.
class WindowProcess : public PatchScreen {
 public:
  explicit WindowProcess(const ScreenOptions& chosen);

  void show(const Patch& patch) override;
  bool isOpen() override;

 private:
  /// Waits for the answer that begins with `wanted`.
  void await(const std::string& wanted);
  [[noreturn]] void fail();

  ScreenOptions options;
  sys::Subprocess process;
  std::string said;
  bool wasOpen = false;
  bool ended = false;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DISPLAY_WINDOW_PROCESS_H_
