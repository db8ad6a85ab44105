// SPDX-License-Identifier: MIT
// Reading and writing by key and by index.
//
// Every write first makes the complete new container and lets go of the old one last, so that a
// failed allocation changes nothing.
#include <memory>
#include <stdexcept>
#include <utility>

#include "pocketjson/members.h"

namespace pocketjson {

namespace {

constexpr const char* kIndexPastTheEnd = "array index out of range";

}  // namespace

Value& Value::operator[](std::string_view key) {
  if (tag == Object && payload.container->refCount == 1) {
    return findOrMakeMember(held<Members>(), key);
  }
  auto own = tag == Object ? std::make_unique<Container<Members>>(held<Members>())
                           : std::make_unique<Container<Members>>();
  Value& member = findOrMakeMember(own->held, key);
  *this = Value(Object, own.release());
  return member;
}

const Value& Value::operator[](std::string_view name) const noexcept {
  if (tag == Object) [[likely]] {
    if (const Value* found = findMember(held<Members>(), name)) return *found;
  }
  return missingValue();
}

Value& Value::operator[](std::size_t index) {
  const std::size_t length = tag == Array ? size() : 0;
  if (index > length) throw std::out_of_range(kIndexPastTheEnd);
  if (index == length) {
    append(Value());
  } else if (payload.container->refCount > 1) {
    *this = Value(Array, new Container<Elements>(held<Elements>()));
  }
  return held<Elements>()[index];
}

const Value& Value::operator[](std::size_t index) const noexcept {
  if (tag != Array) return missingValue();
  const Elements& elements = held<Elements>();
  return index < elements.size() ? elements[index] : missingValue();
}

void Value::append(const Value& element) {
  Value added = element;  // the element may lie in this very array, or be this value
  if (tag == Array && payload.container->refCount == 1) {
    held<Elements>().push_back(std::move(added));
    return;
  }
  auto own = std::make_unique<Container<Elements>>();
  if (tag == Array) {
    own->held.reserve(size() + 1);
    own->held = held<Elements>();
  }
  own->held.push_back(std::move(added));
  *this = Value(Array, own.release());
}

}  // namespace pocketjson
