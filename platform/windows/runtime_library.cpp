// SPDX-License-Identifier: MIT
#include <windows.h>

#include "platform/platform.h"
#include "platform/windows/encoding.h"
#include "platform/windows/pinned_module.h"

namespace lumora::platform {

// The runtime stays: the virtual machine is never destroyed, and its threads run that code when the
// library is given back.
RuntimeLibrary loadRuntimeLibrary(const std::string& path) {
  // The plain call: what the runtime itself needs is searched beside the host and in the system's
  // folders, not beside jvm.dll.
  const HMODULE library = ::LoadLibraryW(windows::wideFromUtf8(path).c_str());
  if (library != nullptr) windows::pinModuleOf(library);
  return library;
}

void* findExport(RuntimeLibrary library, const char* name) {
  return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(library), name));
}

void freeRuntimeLibrary(RuntimeLibrary library) noexcept {
  if (library != nullptr) ::FreeLibrary(static_cast<HMODULE>(library));
}

// Kept: UTF-8 as composed, with ";" after the last entry too. The virtual machine reads options in
// the ANSI code page, so jars below a folder with other than ASCII characters are not found.
std::string runtimeOption(const std::string& option) { return option; }

}  // namespace lumora::platform
