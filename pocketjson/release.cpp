// SPDX-License-Identifier: MIT
// Destroying containers without recursion and without memory.
//
// A value nested a million levels deep must not overrun the stack of the thread that drops the last
// share, and dropping it must not need memory. So a container that is to be destroyed, and has
// others in it, waits in a chain that is threaded through the waiting ones themselves: `waiting`
// owns the first of them, and the first place (element or member) of each owns the next. What had
// been in that first place is dealt with before its container is queued. When a container's turn
// comes, all its places are emptied and its own destructor finds nothing to go down into.
#include <utility>

#include "pocketjson/container.h"

namespace pocketjson {

namespace {

bool isNested(const Value& place) noexcept {
  return (place.type() & (Value::Object | Value::Array)) != 0;
}

bool hasNested(const Elements& elements) noexcept {
  for (const Value& element : elements) {
    if (isNested(element)) return true;
  }
  return false;
}

bool hasNested(const Members& members) noexcept {
  for (const auto& [name, member] : members) {
    if (isNested(member)) return true;
  }
  return false;
}

}  // namespace

// The first place of a container that cannot be destroyed at once; null for every other value.
Value* Value::placeForChain() const noexcept {
  if (tag == Object) {
    Members& members = held<Members>();
    return hasNested(members) ? &members.begin()->second : nullptr;
  }
  if (tag == Array) {
    Elements& elements = held<Elements>();
    return hasNested(elements) ? &elements.front() : nullptr;
  }
  return nullptr;
}

// Empties the place. If it owned a container that has to wait, that joins the chain.
void Value::bury(Value& place, Value& waiting) noexcept {
  while (isNested(place) && place.container() != nullptr &&
         place.payload.container->refCount == 1) {
    Value* first = place.placeForChain();
    if (first == nullptr) break;
    place.swap(waiting);  // the container now leads the chain ...
    place.swap(*first);   // ... with the rest behind it; next comes what was in its first place
  }
  AbstractContainer* shared = place.container();
  if (shared != nullptr && --shared->refCount == 0) delete shared;
  place.tag = Null;
  place.payload = Payload();
}

void Value::destroyContainer(Type kind, AbstractContainer* unowned) noexcept {
  unowned->refCount = 1;
  Value place(kind, unowned);
  Value waiting;
  bury(place, waiting);
  while (waiting.tag != Null) {
    place.swap(waiting);
    Value& first =
        place.tag == Array ? place.held<Elements>().front() : place.held<Members>().begin()->second;
    waiting.swap(first);
    if (place.tag == Array) {
      for (Value& element : place.held<Elements>()) bury(element, waiting);
    } else {
      for (auto& [name, member] : place.held<Members>()) bury(member, waiting);
    }
    delete place.payload.container;
    place.tag = Null;
    place.payload = Payload();
  }
}

}  // namespace pocketjson
