// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_DESCRIPTOR_H_
#define L5KOV_JAVA_DESCRIPTOR_H_

#include <jni.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

// Compares C++ function types with JNI descriptors at compile time, so that a wrapper that does not
// fit its catalogue row does not compile: the Java runtime itself notices nothing when a member is
// called with the wrong types.
namespace lumora::kov::java {

// A text usable as a template argument: the name of a member.
template <std::size_t kSize>
struct Name {
  consteval Name(const char (&text)[kSize]) {
    for (std::size_t i = 0; i < kSize; ++i) characters[i] = text[i];
  }
  constexpr std::string_view view() const { return {characters, kSize - 1}; }
  char characters[kSize] = {};
};

template <class T>
concept Wrapper = requires { T::kDescriptorClass; };

namespace descriptor {

// Takes one type off the front of `rest`; false when it is not the descriptor of T.
template <class T>
consteval bool take(std::string_view& rest) {
  const auto takeText = [&rest](std::string_view text) {
    if (!rest.starts_with(text)) return false;
    rest.remove_prefix(text.size());
    return true;
  };
  if constexpr (std::is_void_v<T>) {
    return takeText("V");
  } else if constexpr (std::is_same_v<T, bool>) {
    return takeText("Z");
  } else if constexpr (std::is_same_v<T, std::int32_t>) {
    return takeText("I");
  } else if constexpr (std::is_same_v<T, std::int64_t>) {
    return takeText("J");
  } else if constexpr (std::is_same_v<T, double>) {
    return takeText("D");
  } else if constexpr (std::is_same_v<T, std::string>) {
    return takeText("Ljava/lang/String;");
  } else if constexpr (std::is_same_v<T, jdoubleArray>) {
    return takeText("[D");
  } else if constexpr (Wrapper<T>) {
    return takeText("L") && takeText(T::kDescriptorClass) && takeText(";");
  } else {
    static_assert(std::is_same_v<T, jobject>, "not a type that crosses into Java");
    // Any class but String, which crosses as text.
    if (!rest.starts_with('L') || rest.starts_with("Ljava/lang/String;")) return false;
    rest.remove_prefix(rest.find(';') + 1);
    return true;
  }
}

template <class Function>
struct Matcher;

template <class Result, class... Parameters>
struct Matcher<Result(Parameters...)> {
  static consteval bool fits(std::string_view signature) {
    if (!signature.starts_with('(')) return false;
    signature.remove_prefix(1);
    if (!(take<Parameters>(signature) && ...)) return false;
    if (!signature.starts_with(')')) return false;
    signature.remove_prefix(1);
    return take<Result>(signature) && signature.empty();
  }
};

}  // namespace descriptor

// The row of `table` with this name whose descriptor is that of Function. No such row: no compile.
template <class Function>
consteval std::size_t rowOf(const auto& table, std::string_view name) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table.members[i].name == name &&
        descriptor::Matcher<Function>::fits(table.members[i].signature)) {
      return i;
    }
  }
  throw "the catalogue has no such member with this result and these parameters";
}

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_DESCRIPTOR_H_
