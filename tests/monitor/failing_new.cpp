// SPDX-License-Identifier: MIT
#include "tests/monitor/failing_new.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();
thread_local std::size_t failFrom = kNever;

}  // namespace

namespace kovtest {

FailingNew::FailingNew(std::size_t fromBytes) { failFrom = fromBytes; }
FailingNew::~FailingNew() { failFrom = kNever; }

}  // namespace kovtest

void* operator new(std::size_t size) {
  void* const memory = size >= failFrom ? nullptr : std::malloc(size > 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void* operator new[](std::size_t size) { return ::operator new(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
