// SPDX-License-Identifier: MIT
#include <windows.h>

#include "loaded_panel.h"

namespace simmeter {
namespace {

template <typename Function>
Function find(HMODULE library, const char* name) {
  // By way of void*: the compilers warn of a direct cast between function types.
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace

LoadedPanel findLoadedPanel() {
  HMODULE library = nullptr;
  LoadedPanel panel;
  // Pinned, so that the functions stay callable as long as the process lives.
  if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, L"kovpanel.dll", &library) != 0) {
    panel.show = find<decltype(panel.show)>(library, "kovpanel_show");
    panel.measure = find<decltype(panel.measure)>(library, "kovpanel_measure");
    panel.signal = find<decltype(panel.signal)>(library, "kovpanel_signal");
  }
  return panel;
}

}  // namespace simmeter
