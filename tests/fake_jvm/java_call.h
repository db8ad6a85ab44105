// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_JAVA_CALL_H_
#define L5KOV_TESTS_FAKE_JVM_JAVA_CALL_H_

#include <jni.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/fake_jvm/entry.h"

namespace fakejvm {

// Reads a call's raw arguments, whichever way they came (list, va_list, array).
using ArgumentReader = std::function<std::vector<jvalue>(const Signature&)>;

// The form of the slot that was called.
struct CallForm {
  const char* slot;
  Member::Kind kind;
  char result;  // 'L' stands for arrays too
};

// One Call<Type>Method or CallStatic<Type>Method.
jvalue callMember(JNIEnv* env, const CallForm& form, jobject target, jmethodID id,
                  const ArgumentReader& reader);
jobject newObject(JNIEnv* env, const char* slot, jclass clazz, jmethodID id,
                  const ArgumentReader& reader);

// Runs the script of a member with the mutex released. Void after a Java exception (then pending)
// and when nothing is scripted (then a problem).
Value runScript(Entry& call, const Member& member, const ObjectRef& self,
                const std::vector<Value>& args);

// A raw argument or result of that type ('I', 'L' ...), and back. Numbers returned for an object
// are boxed as `type` says: "Ljava/lang/Integer;".
Value toValue(Entry& call, char type, const jvalue& raw);
jvalue toRaw(Entry& call, const std::string& type, const Value& value);
std::vector<Value> toValues(Entry& call, const Signature& signature,
                            const std::vector<jvalue>& raw);

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_JAVA_CALL_H_
