// SPDX-License-Identifier: MIT
#ifndef L5KOV_POCKETJSON_CONTAINER_H_
#define L5KOV_POCKETJSON_CONTAINER_H_

#include <atomic>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <pocketjson/value.h>

#include "pocketjson/first_node.h"
#include "pocketjson/member_key.h"

namespace pocketjson {

using Elements = std::vector<Value>;
using Members = std::map<MemberKey, Value, KeyLess, FirstNodeAllocator<Member>>;

/// The held type is one of std::string, Elements and Members; the tag of the value that owns the
/// container says which.
template <typename T>
class Value::Container final : public AbstractContainer {
 public:
  template <typename... Args>
  explicit Container(Args&&... args) : held(std::forward<Args>(args)...) {}

  T held;
};

/// The first member of an object lies inside it.
template <>
class Value::Container<Members> final : public AbstractContainer {
 public:
  Container() : held(Members::allocator_type(room)) {}
  explicit Container(const Members& members) : held(members, Members::allocator_type(room)) {}
  template <class Iterator>
  Container(Iterator first, Iterator last) : held(first, last, Members::allocator_type(room)) {}

 private:
  FirstNodeRoom room;

 public:
  Members held;
};

template <typename T>
T& Value::held() const noexcept {
  return static_cast<Container<T>*>(payload.container)->held;
}

/// Where Value::nullValue() is, once it has been made.
extern std::atomic<const Value*> madeNullValue;

/// nullValue(), without the call where it is there already.
inline const Value& missingValue() noexcept {
  const Value* const made = madeNullValue.load(std::memory_order_acquire);
  return made != nullptr ? *made : Value::nullValue();
}

}  // namespace pocketjson

#endif  // L5KOV_POCKETJSON_CONTAINER_H_
