// SPDX-License-Identifier: MIT
#include "bench/support/counted_memory.h"

#include <malloc.h>

#include <cstddef>

// glibc's own names of its allocator: functions defined here under the public names shadow it for
// every library of the process.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);
}

namespace bench {
namespace {

// In the program's own block of thread-local memory, so that touching it allocates nothing.
constinit thread_local Memory* counting = nullptr;

void* taken(void* memory, std::size_t size) noexcept {
  if (counting == nullptr || memory == nullptr) return memory;
  ++counting->allocations;
  counting->bytes += static_cast<std::int64_t>(size);
  counting->held += static_cast<std::int64_t>(::malloc_usable_size(memory));
  return memory;
}

void given(void* memory) noexcept {
  if (counting == nullptr || memory == nullptr) return;
  counting->held -= static_cast<std::int64_t>(::malloc_usable_size(memory));
}

}  // namespace

CountedMemory::CountedMemory() noexcept { counting = &counted; }
CountedMemory::~CountedMemory() { counting = nullptr; }

}  // namespace bench

extern "C" {

void* malloc(std::size_t size) { return bench::taken(__libc_malloc(size), size); }

void* calloc(std::size_t count, std::size_t size) {
  return bench::taken(__libc_calloc(count, size), count * size);
}

void* realloc(void* memory, std::size_t size) {
  bench::given(memory);
  return bench::taken(__libc_realloc(memory, size), size);
}

void free(void* memory) {
  bench::given(memory);
  __libc_free(memory);
}

}  // extern "C"
