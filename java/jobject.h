// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_JOBJECT_H_
#define L5KOV_JAVA_JOBJECT_H_

#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "java/conversion.h"
#include "java/descriptor.h"
#include "lumora/kov/java/java_env.h"

namespace lumora::kov::java {

struct BorrowTag {};

// The wrapper of a null or non-null local reference, made with the calling thread's binding.
template <class W>
W wrap(JavaEnv* javaEnv, jobject local);

// Holds one Java object through a global reference of its own and calls its bound members through
// guarded calls. Belongs to the thread that made it, whose environment it reads through the cell.
//
// A wrapper of null is possible; calling a member on it throws JavaException of class
// java.lang.NullPointerException.
template <class MethodsT>
class JObject {
 public:
  using Methods = MethodsT;
  static constexpr std::string_view kDescriptorClass = Methods::table.name;

  template <class Binding>
    requires std::is_same_v<typename Binding::Methods, Methods>
  JObject(const Binding& binding, jobject local)
      : javaEnv(binding.owner()),
        env(binding.cell()),
        object(jni::requiredGlobalRef(*env, local)),
        methods(binding.identifiers()) {}

  // A view of `kept` through another thread's environment, without a reference of its own: see
  // Borrowed, which keeps it from releasing one.
  JObject(BorrowTag, const JObject& kept, JavaEnv* here)
      : javaEnv(here), env(here->cell()), object(kept.object), methods(kept.methods) {}

  JObject(JObject&& other) noexcept
      : javaEnv(other.javaEnv), env(other.env), object(other.forget()), methods(other.methods) {}
  JObject& operator=(JObject&&) = delete;
  JObject(const JObject&) = delete;
  JObject& operator=(const JObject&) = delete;
  virtual ~JObject() {
    if (object != nullptr) jni::deleteGlobalRef(*env, object);
  }

  bool isNull() const { return object == nullptr; }
  // The global reference; owned by this wrapper.
  jobject reference() const { return object; }
  // Hands the global reference over to the caller.
  jobject forget() noexcept { return std::exchange(object, nullptr); }

 protected:
  // Calls the member `kName`, whose row must have the descriptor of Signature: call<"getIndex",
  // std::int32_t()>(). Arguments become Java values before the guard clears, left to right (the
  // braces fix the order).
  template <Name kName, class Signature, class... Arguments>
  auto call(Arguments&&... arguments) const {
    constexpr std::size_t row = rowOf<Signature>(Methods::table, kName.view());
    const jni::Target target{object, methods.ids[Methods::table.slots[row]], Methods::table.name,
                             Methods::table.members[row]};
    const std::tuple javaArguments{toJava(*env, std::forward<Arguments>(arguments))...};
    return std::apply(
        [&](auto... values) {
          return dispatch(static_cast<Signature*>(nullptr), target, values...);
        },
        javaArguments);
  }

  JavaEnv* javaEnv;
  JNIEnv** env;
  jobject object;
  Methods methods;

 private:
  template <class Result, class... Parameters, class... Values>
  Result dispatch(Result (*)(Parameters...), const jni::Target& target, Values... values) const {
    static_assert(kArgumentsFit<Result(Parameters...), Values...>,
                  "an argument would reach Java with another type than its descriptor says");
    if constexpr (std::is_void_v<Result>) {
      jni::callVoid(*env, target, values...);
    } else if constexpr (std::is_same_v<Result, bool>) {
      return jni::callBoolean(*env, target, values...);
    } else if constexpr (std::is_same_v<Result, std::int32_t>) {
      return static_cast<std::int32_t>(jni::callInt(*env, target, values...));
    } else if constexpr (std::is_same_v<Result, std::int64_t>) {
      return static_cast<std::int64_t>(jni::callLong(*env, target, values...));
    } else if constexpr (std::is_same_v<Result, double>) {
      return jni::callDouble(*env, target, values...);
    } else if constexpr (std::is_same_v<Result, std::string>) {
      return toText(*env, jni::callObject(*env, target, values...));
    } else if constexpr (Wrapper<Result>) {
      return wrap<Result>(javaEnv, jni::callObject(*env, target, values...));
    } else {
      return static_cast<Result>(jni::callObject(*env, target, values...));
    }
  }
};

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_JOBJECT_H_
