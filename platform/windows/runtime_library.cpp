// SPDX-License-Identifier: MIT
#include <windows.h>

#include "platform/platform.h"
#include "platform/windows/encoding.h"

namespace lumora::platform {
namespace {

// Keeps the module that holds `address` in the process until it ends. Never released: once a thread
// has an environment of ours, its end runs our code, and a module that is gone by then hangs the
// thread.
void pinModuleOf(const void* address) {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       static_cast<const wchar_t*>(address), &module);
}

const char pinned = 0;  // an address inside this module

}  // namespace

// Everything that leaves something of ours on a thread begins here, so this is where this library
// makes sure that it stays. The runtime stays too: the virtual machine is never destroyed, and its
// threads run that code when the library is given back.
RuntimeLibrary loadRuntimeLibrary(const std::string& path) {
  pinModuleOf(&pinned);
  // The plain call: what the runtime itself needs is searched beside the host and in the system's
  // folders, not beside jvm.dll.
  const HMODULE library = ::LoadLibraryW(windows::wideFromUtf8(path).c_str());
  if (library != nullptr) pinModuleOf(library);
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
