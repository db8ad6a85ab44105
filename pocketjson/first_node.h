// SPDX-License-Identifier: MIT
#ifndef L5KOV_POCKETJSON_FIRST_NODE_H_
#define L5KOV_POCKETJSON_FIRST_NODE_H_

#include <cstddef>
#include <memory>
#include <utility>

#include <pocketjson/value.h>

#include "pocketjson/member_key.h"

// Room for one node of a tree beside the tree itself: an object with one member, as nested writes
// make them, then takes one piece of memory instead of two.

namespace pocketjson {

using Member = std::pair<const MemberKey, Value>;

/// Given away once, to the first who asks for no more than there is: with some libraries that is
/// not a member's node but the tree's own.
class FirstNodeRoom {
 public:
  FirstNodeRoom() noexcept = default;
  FirstNodeRoom(const FirstNodeRoom&) = delete;
  FirstNodeRoom& operator=(const FirstNodeRoom&) = delete;

  void* take(std::size_t bytes) noexcept {
    if (taken || bytes > sizeof place) return nullptr;
    taken = true;
    return place;
  }
  bool isIn(const void* memory) const noexcept { return memory == place; }

 private:
  // With three pointers and two marks, as the common standard libraries make their nodes.
  alignas(Member) std::byte place[4 * sizeof(void*) + sizeof(Member)];
  bool taken = false;
};

/// For a tree that lies beside its room, after it, and is never moved or swapped: what is in the
/// room stays there.
template <class T>
class FirstNodeAllocator {
 public:
  using value_type = T;

  explicit FirstNodeAllocator(FirstNodeRoom& room) noexcept : room(&room) {}
  template <class U>
  FirstNodeAllocator(const FirstNodeAllocator<U>& other) noexcept : room(other.room) {}

  T* allocate(std::size_t count) {
    static_assert(alignof(T) <= alignof(Member));
    if (void* const inside = room->take(count * sizeof(T))) return static_cast<T*>(inside);
    return std::allocator<T>().allocate(count);
  }
  void deallocate(T* nodes, std::size_t count) noexcept {
    if (!room->isIn(nodes)) std::allocator<T>().deallocate(nodes, count);
  }
  template <class U>
  bool operator==(const FirstNodeAllocator<U>& other) const noexcept {
    return room == other.room;
  }

 private:
  template <class>
  friend class FirstNodeAllocator;

  FirstNodeRoom* room;
};

}  // namespace pocketjson

#endif  // L5KOV_POCKETJSON_FIRST_NODE_H_
