// SPDX-License-Identifier: MIT
#include "describe.h"

#include <cstring>
#include <ostream>
#include <sstream>

using pocketjson::Value;

namespace {

void write(const Value& value, std::ostream& out);

void writeElements(const Value& value, std::ostream& out) {
  out << '[';
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (i != 0) out << ',';
    write(value[i], out);
  }
  out << ']';
}

void writeMembers(const Value& value, std::ostream& out) {
  const char* separator = "";
  out << '{';
  for (const std::string& key : value.keys()) {
    out << separator << key << ':';
    write(value[key], out);
    separator = ",";
  }
  out << '}';
}

void write(const Value& value, std::ostream& out) {
  switch (value.type()) {
    case Value::Null:
      out << "null";
      return;
    case Value::Bool:
      out << value.asString();
      return;
    case Value::Int:
      out << 'i' << value.asString();
      return;
    case Value::Double:
      out << 'd' << value.asString();
      return;
    case Value::String:
      out << "s\"" << value.asString() << '"';
      return;
    case Value::Array:
      writeElements(value, out);
      return;
    case Value::Object:
      writeMembers(value, out);
      return;
  }
  out << "unknown type " << value.type();
}

}  // namespace

std::string describe(const Value& value) {
  std::ostringstream out;
  write(value, out);
  return out.str();
}

std::uint64_t payloadOf(const Value& value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, reinterpret_cast<const char*>(&value) + 8, sizeof bits);
  return bits;
}

const Value::AbstractContainer* containerOf(const Value& value) {
  if ((value.type() & Value::kContainerMask) == 0) return nullptr;
  const Value::AbstractContainer* container = nullptr;
  const std::uint64_t bits = payloadOf(value);
  std::memcpy(&container, &bits, sizeof container);
  return container;
}

std::uint32_t shares(const Value& value) {
  const Value::AbstractContainer* container = containerOf(value);
  return container != nullptr ? container->refCount : 0;
}
