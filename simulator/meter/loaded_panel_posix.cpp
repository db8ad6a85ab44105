// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include "loaded_panel.h"

namespace simmeter {

LoadedPanel findLoadedPanel() {
  // Found by its SONAME, from whatever folder it came. The reference that this takes is kept: the
  // functions stay callable as long as the process lives.
  void* const library = dlopen("libkovpanel.so", RTLD_LAZY | RTLD_NOLOAD);
  LoadedPanel panel;
  if (library != nullptr) {
    panel.show = reinterpret_cast<decltype(panel.show)>(dlsym(library, "kovpanel_show"));
    panel.measure = reinterpret_cast<decltype(panel.measure)>(dlsym(library, "kovpanel_measure"));
    panel.signal = reinterpret_cast<decltype(panel.signal)>(dlsym(library, "kovpanel_signal"));
  }
  return panel;
}

}  // namespace simmeter
