// SPDX-License-Identifier: MIT
#include <windows.h>

#include <atomic>
#include <new>

#include "platform/platform.h"
#include "platform/windows/pinned_module.h"

// The system's own slots and not thread_local: mingw keeps thread_local objects in memory that is
// given back, at the end of a thread, before their destructors run.
namespace lumora::platform {
namespace {

struct Slots {
  Slots() {
    for (DWORD& slot : index) slot = ::TlsAlloc();
  }
  DWORD index[kThreadSlots];
};

// Never given back: a thread may end while the process does. Allocated by the first set, which
// comes after callAtThreadEnd() has pinned the module: one that goes again has taken none.
constinit std::atomic<const Slots*> slots{nullptr};

const Slots& allocateSlots() noexcept {
  static const Slots allocated;
  slots.store(&allocated);
  return allocated;
}

// Called before the thread's modules are told of its end, so the loader's lock is free: the virtual
// machine may be starting threads of its own, which need it. (Wine 8 holds a lock of its own here,
// which threads that start need too; see docs/windows.md.) Called for the end of a fiber too; a
// host's fibers share their thread's environment, which then stays.
void NTAPI atEnd(void* function) {
  if (function == nullptr || ::IsThreadAFiber()) return;
  reinterpret_cast<void (*)()>(function)();
}

// The module is pinned before any thread's end can call into it: a thread that ends after the
// module has gone would hang or crash. Everything else that leaves something of ours on a thread or
// in the virtual machine comes after callAtThreadEnd(), so this one place is enough.
DWORD endIndex() noexcept {
  static const DWORD index = windows::pinModuleOf(reinterpret_cast<const void*>(&atEnd))
                                 ? ::FlsAlloc(&atEnd)
                                 : FLS_OUT_OF_INDEXES;
  return index;
}

}  // namespace

// TlsGetValue clears the thread's last error, which is the host's.
void* threadSlot(ThreadSlot slot) noexcept {
  const Slots* const allocated = slots.load();
  if (allocated == nullptr) return nullptr;
  const DWORD error = ::GetLastError();
  void* value = ::TlsGetValue(allocated->index[static_cast<int>(slot)]);
  ::SetLastError(error);
  return value;
}

void setThreadSlot(ThreadSlot slot, void* value) {
  const DWORD index = allocateSlots().index[static_cast<int>(slot)];
  if (!::TlsSetValue(index, value)) throw std::bad_alloc();
}

void callAtThreadEnd(void (*function)()) {
  if (!::FlsSetValue(endIndex(), reinterpret_cast<void*>(function))) throw std::bad_alloc();
}

}  // namespace lumora::platform
