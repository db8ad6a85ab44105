// SPDX-License-Identifier: MIT
#include <windows.h>

#include "platform/platform.h"

// ntdll's own mark, set once ExitProcess has ended every other thread; documented for nobody but
// exported since Windows XP, and what the C runtimes' own shutdown code asks. Imported by name: a
// look-up at this point would take the loader's lock.
extern "C" __declspec(dllimport) BOOLEAN NTAPI RtlDllShutdownInProgress(void);

namespace lumora::platform {

// From then on the virtual machine's threads are gone with whatever locks they held: a call into
// Java would wait for ever.
bool processIsEnding() noexcept { return ::RtlDllShutdownInProgress() != FALSE; }

}  // namespace lumora::platform
