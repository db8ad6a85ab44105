// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_JAVA_VALUE_H_
#define L5KOV_TESTS_FAKE_JVM_JAVA_VALUE_H_

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace fakejvm {

class Object;
using ObjectRef = std::shared_ptr<Object>;

// What a Java variable can hold here: nothing (void), a primitive, or a reference (maybe null).
// Conversions between the primitive kinds are lenient, so that a test may write 1 for 1.0.
class Value {
 public:
  enum class Kind { kVoid, kBoolean, kInt, kLong, kDouble, kObject };

  Value() = default;
  Value(std::nullptr_t) : kindOf(Kind::kObject) {}
  Value(bool v) : kindOf(Kind::kBoolean), integer(v ? 1 : 0) {}
  template <std::integral T>
  requires(!std::same_as<T, bool>) Value(T v)
      : kindOf(sizeof(T) > 4 ? Kind::kLong : Kind::kInt), integer(static_cast<int64_t>(v)) {}
  Value(double v) : kindOf(Kind::kDouble), real(v) {}
  Value(ObjectRef v) : kindOf(Kind::kObject), reference(std::move(v)) {}
  // A Java string of these modified UTF-8 bytes.
  Value(const std::string& text);
  Value(const char* text) : Value(std::string(text)) {}

  Kind kind() const { return kindOf; }
  bool isNull() const { return kindOf == Kind::kObject && !reference; }
  int64_t asLong() const { return kindOf == Kind::kDouble ? static_cast<int64_t>(real) : integer; }
  int32_t asInt() const { return static_cast<int32_t>(asLong()); }
  bool asBool() const { return asLong() != 0; }
  double asDouble() const { return kindOf == Kind::kDouble ? real : static_cast<double>(integer); }
  const ObjectRef& asObject() const { return reference; }
  // The bytes of a Java string; empty for anything else.
  std::string asText() const;

 private:
  Kind kindOf = Kind::kVoid;
  int64_t integer = 0;
  double real = 0.0;
  ObjectRef reference;
};

// A Java object. One type serves all classes: `fields` for beans, boxes ("value") and throwables
// ("message"), `elements` for lists, `doubles` for double[], `text` for strings. Thread-safe.
class Object {
 private:
  template <typename Action>
  auto locked(Action action) const {
    const std::lock_guard<std::mutex> guard(mutex);
    return action();
  }

 public:
  // `objectName` is how the log calls it; an empty one is filled in when it is first logged
  // ("Integer#2").
  explicit Object(std::string internalClassName, std::string objectName = {})
      : className(std::move(internalClassName)), nameText(std::move(objectName)) {}

  // "java/util/ArrayList"; "[D" for double[].
  const std::string className;

  std::string name() const {
    return locked([&] { return nameText; });
  }
  void setName(std::string name) {
    locked([&] { nameText = std::move(name); });
  }

  bool hasField(const std::string& field) const {
    return locked([&] { return fields.count(field) > 0; });
  }
  // Void when the field was never set.
  Value field(const std::string& field) const {
    return locked([&] {
      const auto found = fields.find(field);
      return found == fields.end() ? Value() : found->second;
    });
  }
  Object& setField(const std::string& field, Value value) {
    locked([&] { fields[field] = std::move(value); });
    return *this;
  }

  std::vector<Value> elements() const {
    return locked([&] { return elementList; });
  }
  void setElements(std::vector<Value> list) {
    locked([&] { elementList = std::move(list); });
  }
  void addElement(Value value) {
    locked([&] { elementList.push_back(std::move(value)); });
  }

  std::vector<double> doubles() const {
    return locked([&] { return doubleList; });
  }
  void setDoubles(std::vector<double> list) {
    locked([&] { doubleList = std::move(list); });
  }

  std::string text() const {
    return locked([&] { return textBytes; });
  }
  void setText(std::string bytes) {
    locked([&] { textBytes = std::move(bytes); });
  }

 private:
  mutable std::mutex mutex;
  std::string nameText;
  std::map<std::string, Value> fields;
  std::vector<Value> elementList;
  std::vector<double> doubleList;
  std::string textBytes;
};

inline constexpr const char* kStringClass = "java/lang/String";

inline ObjectRef makeString(std::string bytes) {
  auto string = std::make_shared<Object>(kStringClass);
  string->setText(std::move(bytes));
  return string;
}
inline ObjectRef makeList(std::vector<Value> elements, std::string name = {}) {
  auto list = std::make_shared<Object>("java/util/ArrayList", std::move(name));
  list->setElements(std::move(elements));
  return list;
}
inline ObjectRef makeDoubles(std::vector<double> values) {
  auto array = std::make_shared<Object>("[D");
  array->setDoubles(std::move(values));
  return array;
}

inline Value::Value(const std::string& text) : Value(makeString(text)) {}
inline std::string Value::asText() const {
  return reference && reference->className == kStringClass ? reference->text() : std::string();
}

// Thrown (in C++) by a scripted member to raise a Java exception. A missing message is a Java null.
struct JavaThrow {
  std::string className;
  std::optional<std::string> message;
  // When set, this very object is thrown and the two texts are ignored.
  ObjectRef throwable;

  explicit JavaThrow(std::string internalClassName, std::optional<std::string> text = std::nullopt)
      : className(std::move(internalClassName)), message(std::move(text)) {}
  explicit JavaThrow(ObjectRef object) : throwable(std::move(object)) {}
};

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_JAVA_VALUE_H_
