// SPDX-License-Identifier: MIT
#include "cli/context.h"

#include "system/streams.h"

namespace kovctl {
bool Context::isInteractive() const {
  return !quiet && !json && !jsonLines && sys::isTerminal(sys::Stream::kIn) &&
         sys::isTerminal(sys::Stream::kErr);
}

}  // namespace kovctl
