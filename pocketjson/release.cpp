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

// The steps of it, with access to the inside of a value.
class Burial {
 public:
  // Takes over a container that nobody owns any more.
  static void run(Value::Type kind, Value::AbstractContainer* unowned) noexcept {
    unowned->refCount = 1;
    Value place(kind, unowned);
    Value waiting;
    empty(place, waiting);
    while (waiting.tag != Value::Null) {
      place.swap(waiting);
      waiting.swap(*firstPlace(place));
      emptyAll(place, waiting);
      delete place.payload.container;
      forget(place);
    }
  }

 private:
  static Value* firstPlace(const Value& owner) noexcept {
    return owner.tag == Value::Object ? &owner.held<Members>().begin()->second
                                      : &owner.held<Elements>().front();
  }

  // Whether the place owns the last share of a container that cannot be destroyed at once.
  static bool mustWait(const Value& place) noexcept {
    if (!isNested(place) || place.container() == nullptr) return false;
    if (place.payload.container->refCount != 1) return false;
    return place.tag == Value::Object ? hasNested(place.held<Members>())
                                      : hasNested(place.held<Elements>());
  }

  static void empty(Value& place, Value& waiting) noexcept {
    while (mustWait(place)) {
      Value* first = firstPlace(place);
      place.swap(waiting);  // the container now leads the chain ...
      place.swap(*first);   // ... with the rest behind it; next comes what was in its first place
    }
    Value::AbstractContainer* shared = place.container();
    if (shared != nullptr && --shared->refCount == 0) delete shared;
    forget(place);
  }

  static void emptyAll(const Value& owner, Value& waiting) noexcept {
    if (owner.tag == Value::Object) {
      for (auto& [name, member] : owner.held<Members>()) empty(member, waiting);
    } else {
      for (Value& element : owner.held<Elements>()) empty(element, waiting);
    }
  }

  static void forget(Value& place) noexcept {
    place.tag = Value::Null;
    place.payload = Value::Payload();
  }
};

void Value::destroyContainer(Type kind, AbstractContainer* unowned) noexcept {
  if (kind == String) {
    delete unowned;
  } else {
    Burial::run(kind, unowned);
  }
}

}  // namespace pocketjson
