// SPDX-License-Identifier: MIT
#include "display/sdl_screen.h"
#include "failure.h"

namespace kovctl {

std::unique_ptr<PatchScreen> makeSdlScreen(const SdlWindow&) {
  throw Failure(ExitCode::kUsage, "this kovctl was built without SDL 2: --display is not possible");
}

}  // namespace kovctl
