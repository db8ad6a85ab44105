// SPDX-License-Identifier: MIT
#include "tests/reliability/failing_allocation.h"

#include <link.h>
#include <unwind.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

namespace reliability {
namespace {

struct Range {
  std::uintptr_t begin = 0;
  std::uintptr_t end = 0;
  bool holds(std::uintptr_t address) const { return address >= begin && address < end; }
};

// Where the code lies: the library, the fake runtime, the test program.
struct Modules {
  Range library, runtime, program;
};
Modules modules;

thread_local int left = 0;  // requests until the one that fails; 0 while nothing is armed
thread_local int counted = 0;
thread_local bool hasStruck = false;
thread_local bool searching = false;

int noteModule(dl_phdr_info* info, std::size_t, void*) {
  Range range{UINTPTR_MAX, 0};
  for (int i = 0; i < info->dlpi_phnum; ++i) {
    const auto& part = info->dlpi_phdr[i];
    if (part.p_type != PT_LOAD) continue;
    const std::uintptr_t begin = info->dlpi_addr + part.p_vaddr;
    if (begin < range.begin) range.begin = begin;
    if (begin + part.p_memsz > range.end) range.end = begin + part.p_memsz;
  }
  // By the file's name alone: the folders above it may be called anything.
  const char* const slash = std::strrchr(info->dlpi_name, '/');
  const std::string_view name = slash != nullptr ? slash + 1 : info->dlpi_name;
  if (name.starts_with("libl5kov")) modules.library = range;
  if (name.starts_with("libjvm")) modules.runtime = range;
  if (*info->dlpi_name == '\0') modules.program = range;
  return 0;
}

bool isThisFile(std::uintptr_t address);

struct Search {
  bool library = false;
};

_Unwind_Reason_Code visit(_Unwind_Context* context, void* argument) {
  const std::uintptr_t address = _Unwind_GetIP(context);
  if (isThisFile(address)) return _URC_NO_REASON;
  if (modules.library.holds(address)) {
    static_cast<Search*>(argument)->library = true;
    return _URC_NORMAL_STOP;
  }
  const bool other = modules.runtime.holds(address) || modules.program.holds(address);
  return other ? _URC_NORMAL_STOP : _URC_NO_REASON;
}

[[gnu::noinline]] bool calledByLibrary() {
  Search search;
  searching = true;
  _Unwind_Backtrace(visit, &search);
  searching = false;
  return search.library;
}

[[gnu::noinline]] bool mustFail() {
  if (left == 0 || searching || !calledByLibrary()) return false;
  ++counted;
  if (--left > 0) return false;
  hasStruck = true;
  return true;
}

[[gnu::noinline]] void* take(std::size_t size) {
  if (mustFail()) throw std::bad_alloc();
  void* const memory = std::malloc(size > 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

FailingAllocation::FailingAllocation(int number) {
  dl_iterate_phdr(noteModule, nullptr);
  counted = 0;
  hasStruck = false;
  left = number;
}
FailingAllocation::~FailingAllocation() {
  left = 0;
}
bool FailingAllocation::struck() const {
  return hasStruck;
}

int countedAllocations() {
  return counted;
}

}  // namespace reliability

void* operator new(std::size_t size) {
  return reliability::take(size);
}
void* operator new[](std::size_t size) {
  return reliability::take(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace reliability {
namespace {

// The frames between a request and its caller: the functions above.
bool isThisFile(std::uintptr_t address) {
  const void* const functionOf = _Unwind_FindEnclosingFunction(reinterpret_cast<void*>(address));
  const auto is = [&](auto* function) {
    return functionOf == reinterpret_cast<const void*>(function);
  };
  return is(&calledByLibrary) || is(&mustFail) || is(&take) ||
         is(static_cast<void* (*)(std::size_t)>(&::operator new)) ||
         is(static_cast<void* (*)(std::size_t)>(&::operator new[]));
}

}  // namespace
}  // namespace reliability
