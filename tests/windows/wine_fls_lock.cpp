// SPDX-License-Identifier: MIT
#include "tests/windows/wine_fls_lock.h"

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <cstring>

namespace wine_fls_lock {
namespace {

DWORD first = FLS_OUT_OF_INDEXES;
DWORD second = FLS_OUT_OF_INDEXES;
std::uint8_t* ntdll = nullptr;  // under Wine only
std::atomic<bool> failed{false};
std::atomic<CRITICAL_SECTION*> known{nullptr};

struct Memory {
  std::uint8_t* begin;
  std::uint8_t* end;

  bool holds(const void* what) const {
    const auto* const place = static_cast<const std::uint8_t*>(what);
    return begin <= place && place < end;
  }
};

const IMAGE_NT_HEADERS* headers() {
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(ntdll);
  return reinterpret_cast<const IMAGE_NT_HEADERS*>(ntdll + dos->e_lfanew);
}

// Held by this thread, once, and named so: Wine points to the name, "thread.c: fls_section", in the
// last eight bytes of the debug information, which are spare words elsewhere.
bool isTheLock(const CRITICAL_SECTION& section, const Memory& image) {
  const auto thread = static_cast<std::uintptr_t>(::GetCurrentThreadId());
  if (reinterpret_cast<std::uintptr_t>(section.OwningThread) != thread) return false;
  if (section.RecursionCount != 1 || !image.holds(section.DebugInfo)) return false;
  const auto* const end = reinterpret_cast<const std::uint8_t*>(section.DebugInfo + 1);
  const char* name = nullptr;
  std::memcpy(&name, end - sizeof name, sizeof name);
  return image.holds(name) && std::strstr(name, "fls_section") != nullptr;
}

// Reads memory only: what asks the loader would wait for its lock, with Wine's in hand.
CRITICAL_SECTION* find() {
  const Memory image{ntdll, ntdll + headers()->OptionalHeader.SizeOfImage};
  const IMAGE_SECTION_HEADER* const sections = IMAGE_FIRST_SECTION(headers());
  for (int i = 0; i < headers()->FileHeader.NumberOfSections; ++i) {
    if ((sections[i].Characteristics & IMAGE_SCN_MEM_WRITE) == 0) continue;
    std::uint8_t* const begin = ntdll + sections[i].VirtualAddress;
    std::uint8_t* const end = begin + sections[i].Misc.VirtualSize;
    for (auto* at = begin; at + sizeof(CRITICAL_SECTION) <= end; at += sizeof(void*)) {
      auto* const section = reinterpret_cast<CRITICAL_SECTION*>(at);
      if (isTheLock(*section, image)) return section;
    }
  }
  return nullptr;
}

bool isWine() { return ntdll != nullptr; }

// Here this thread holds the lock, so that it is found by its owner, and nobody else changes it.
void CALLBACK leave(void*) {
  if (known == nullptr) known = find();
  if (known == nullptr) {
    failed = true;
    return;
  }
  ::LeaveCriticalSection(known);
}

void CALLBACK takeAgain(void*) {
  if (known != nullptr) ::EnterCriticalSection(known);
}

}  // namespace

void before() {
  const HMODULE module = ::GetModuleHandleW(L"ntdll.dll");
  if (::GetProcAddress(module, "wine_get_version") == nullptr) return;
  ntdll = reinterpret_cast<std::uint8_t*>(module);
  first = ::FlsAlloc(&leave);
}

void after() {
  if (isWine()) second = ::FlsAlloc(&takeAgain);
}

void avoidOnThisThread() {
  if (!isWine()) return;
  // Callbacks are called in the order of their slots.
  if (first == FLS_OUT_OF_INDEXES || second == FLS_OUT_OF_INDEXES || first >= second) {
    failed = true;
    return;
  }
  // Any value will do; for none nothing is called.
  ::FlsSetValue(second, &known);
  ::FlsSetValue(first, &known);
}

bool avoided() { return !isWine() || (!failed && known != nullptr); }

}  // namespace wine_fls_lock
