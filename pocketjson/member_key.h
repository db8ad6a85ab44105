// SPDX-License-Identifier: MIT
#ifndef L5KOV_POCKETJSON_MEMBER_KEY_H_
#define L5KOV_POCKETJSON_MEMBER_KEY_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

#include "pocketjson/key_order.h"

namespace pocketjson {

/// The beginning of a key, to look up where the names that begin like it lie.
struct SoughtFront {
  explicit SoughtFront(std::string_view key) noexcept : front(frontOf(key)) {}

  std::uint64_t front;
};

/// A whole key while it is looked up.
struct SoughtKey : SoughtFront {
  explicit SoughtKey(std::string_view key) noexcept : SoughtFront(key), text(key) {}

  std::string_view text;
};

/// The name of a member. Names of up to 24 bytes lie inside it, so that walking a tree of them
/// follows no further pointer and copying an object allocates nothing but its nodes. 40 bytes: with
/// these, a node of the tree takes the same piece of memory as with a std::string.
class MemberKey {
 public:
  explicit MemberKey(const SoughtKey& key) : front(key.front), length(key.text.size()) {
    char* room = place.inside;
    if (isOutside()) room = place.outside = roomFor(length);
    key.text.copy(room, length);
  }
  explicit MemberKey(std::string_view key) : MemberKey(SoughtKey(key)) {}
  MemberKey(const MemberKey& other) : front(other.front), length(other.length), place(other.place) {
    if (isOutside()) std::memcpy(place.outside = roomFor(length), other.place.outside, length);
  }
  MemberKey& operator=(const MemberKey&) = delete;
  ~MemberKey() {
    if (isOutside()) delete[] place.outside;
  }

  std::string_view text() const noexcept {
    return {isOutside() ? place.outside : place.inside, length};
  }
  bool beginsLike(const SoughtFront& key) const noexcept { return front == key.front; }
  /// Whether it is that key, which begins like it.
  bool hasRestOf(std::string_view key) const noexcept { return sameRest(text(), key); }

 private:
  friend struct KeyLess;

  static constexpr std::size_t kInside = 24;
  bool isOutside() const noexcept { return length > kInside; }
  // With the limit of a standard string, and its error.
  static char* roomFor(std::size_t length) {
    if (length > std::string().max_size()) throw std::length_error("string too long");
    return new char[length];
  }

  std::uint64_t front;
  std::size_t length;
  union {
    char inside[kInside];
    char* outside;
  } place;
};

/// The order of std::less<std::string>: bytes as unsigned numbers, the shorter key first.
struct KeyLess {
  using is_transparent = void;

  bool operator()(const MemberKey& left, const SoughtFront& right) const noexcept {
    return left.front < right.front;
  }
  bool operator()(const MemberKey& left, const SoughtKey& right) const noexcept {
    if (left.front != right.front) return left.front < right.front;
    return restBefore(left.text(), right.text);
  }
  bool operator()(const MemberKey& left, const MemberKey& right) const noexcept {
    if (left.front != right.front) return left.front < right.front;
    return restBefore(left.text(), right.text());
  }
};

}  // namespace pocketjson

#endif  // L5KOV_POCKETJSON_MEMBER_KEY_H_
