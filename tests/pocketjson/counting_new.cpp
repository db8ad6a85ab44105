// SPDX-License-Identifier: MIT
#include "counting_new.h"

#include <cstdlib>
#include <new>

namespace counting {

std::atomic<long long> allocations{0};
std::atomic<long long> alive{0};
std::atomic<long long> fuse{-1};

namespace {

void* take(std::size_t size) {
  long long left = fuse;
  if (left == 0) throw std::bad_alloc();
  if (left > 0) --fuse;
  void* memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  ++allocations;
  ++alive;
  return memory;
}

void give(void* memory) noexcept {
  if (memory == nullptr) return;
  --alive;
  std::free(memory);
}

}  // namespace

}  // namespace counting

void* operator new(std::size_t size) { return counting::take(size); }
void* operator new[](std::size_t size) { return counting::take(size); }
void operator delete(void* memory) noexcept { counting::give(memory); }
void operator delete[](void* memory) noexcept { counting::give(memory); }
void operator delete(void* memory, std::size_t) noexcept { counting::give(memory); }
void operator delete[](void* memory, std::size_t) noexcept { counting::give(memory); }
