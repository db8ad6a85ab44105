// SPDX-License-Identifier: MIT
#include <pocketjson/value.h>

#include <cstddef>
#include <type_traits>
#include <utility>

#include "pocketjson/container.h"

namespace pocketjson {

static_assert(sizeof(Value) == 16 && alignof(Value) == 8, "hosts have this layout compiled in");
static_assert(std::is_nothrow_move_constructible_v<Value>, "else growing an array could throw");
static_assert(std::is_nothrow_copy_constructible_v<Value>);

constinit std::atomic<const Value*> madeNullValue{nullptr};

Value::AbstractContainer::~AbstractContainer() = default;

Value::Value(const char* text) : Value() {
  if (text != nullptr) *this = Value(String, new Container<std::string>(text));
}

Value::Value(const std::string& text) : Value(String, new Container<std::string>(text)) {}

Value::Value(std::string&& text) : Value(String, new Container<std::string>(std::move(text))) {}

Value::Value(std::string_view text) : Value(String, new Container<std::string>(text)) {}

Value::Value(const std::vector<Value>& elements)
    : Value(Array, new Container<Elements>(elements)) {}

Value::Value(std::vector<Value>&& elements)
    : Value(Array, new Container<Elements>(std::move(elements))) {}

Value::Value(const std::map<std::string, Value>& members)
    : Value(Object, new Container<Members>(members.begin(), members.end())) {}

void Value::setType(Type wanted) {
  if (wanted == tag) return;
  switch (wanted) {
    case String:
      *this = Value(String, new Container<std::string>());
      return;
    case Object:
      *this = Value(Object, new Container<Members>());
      return;
    case Array:
      *this = Value(Array, new Container<Elements>());
      return;
    default:
      *this = Value(wanted, nullptr);
  }
}

std::size_t Value::size() const noexcept {
  switch (tag) {
    case String:
      return held<std::string>().size();
    case Object:
      return held<Members>().size();
    case Array:
      return held<Elements>().size();
    default:
      return 0;
  }
}

std::vector<std::string> Value::keys() const {
  std::vector<std::string> names;
  if (tag != Object) return names;
  names.reserve(size());
  for (const auto& [name, member] : held<Members>()) names.emplace_back(name.text());
  return names;
}

const Value& Value::nullValue() noexcept {
  static const Value null;
  madeNullValue.store(&null, std::memory_order_release);
  return null;
}

}  // namespace pocketjson
