// SPDX-License-Identifier: MIT
#include "display/patch_window.h"
#include "system/streams.h"

namespace kovctl {

ExitCode runPatchWindow(const std::string&, int) {
  sys::write(sys::Stream::kErr, "this kovctl was built without SDL 2\n");
  return ExitCode::kInstrument;
}

}  // namespace kovctl
