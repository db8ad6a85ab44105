// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_JCLASS_H_
#define L5KOV_JAVA_JCLASS_H_

#include <cstddef>
#include <tuple>
#include <utility>

#include "java/catalogue_row.h"
#include "java/conversion.h"
#include "java/descriptor.h"
#include "lumora/kov/java/java_env.h"

namespace lumora::kov::java {

// Resolves `count` members in the order of the rows, each into its slot of `ids`. No result is
// tested: a member that is missing keeps a null identifier, and calling it says so.
void lookUpMembers(JNIEnv* env, jclass clazz, const Member* rows, const std::size_t* slots,
                   std::size_t count, jmethodID* ids);

// A Java class and the identifiers of its bound members, resolved once per thread. T is the wrapper
// that it serves. `clazz` is the local reference that FindClass gave, kept as it is: it belongs to
// the frame in which the thread's first operation ran (the thread's base frame, unless a host
// called from inside a native method of its own) and lives as long as that.
template <class T, class MethodsT>
class JClass {
 public:
  using WrapperType = T;
  using Methods = MethodsT;

  JClass(const JClass&) = delete;
  JClass& operator=(const JClass&) = delete;
  virtual ~JClass() = default;

  JavaEnv* owner() const { return javaEnv; }
  JNIEnv** cell() const { return env; }
  jclass javaClass() const { return clazz; }
  const Methods& identifiers() const { return methods; }

  // A new Java object, as a local reference. Signature is that of the constructor, e.g. void(int).
  template <class Signature, class... Arguments>
  jobject construct(Arguments&&... arguments) const {
    constexpr std::size_t row = rowOf<Signature>(Methods::table, "<init>");
    const std::tuple javaArguments{toJava(*env, std::forward<Arguments>(arguments))...};
    return std::apply(
        [&](auto... values) {
          static_assert(kArgumentsFit<Signature, decltype(values)...>,
                        "an argument would reach Java with another type than its descriptor says");
          return jni::newObject(*env, target<row>(), values...);
        },
        javaArguments);
  }

 protected:
  JClass(JavaEnv* owner, const char* javaName)
      : javaEnv(owner), env(owner->cell()), clazz(jni::findClass(*env, javaName)) {}

  explicit JClass(JavaEnv* owner) : JClass(owner, Methods::table.name) {
    const auto& table = Methods::table;
    lookUpMembers(*env, clazz, table.members.data(), table.slots.data(), table.size(),
                  methods.ids.data());
  }

  template <std::size_t kRow>
  jni::Target target() const {
    return {clazz, methods.ids[Methods::table.slots[kRow]], Methods::table.name,
            Methods::table.members[kRow]};
  }

  JavaEnv* javaEnv;
  JNIEnv** env;
  jclass clazz;
  Methods methods;
};

// Stands where a binding has no wrapper.
struct JNull {};

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_JCLASS_H_
