// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_SEARCH_STATUS_H_
#define L5KOV_JAVA_SEARCH_STATUS_H_

#include "java/catalogue.h"
#include "java/jclass.h"

namespace lumora::kov::java {

// No methods, but the three constants of the enumeration: the local references that the look-ups
// gave.
struct JNullMethods {
  jmethodID empty = nullptr;  // Kept: never resolved
  jobject finished = nullptr;
  jobject none = nullptr;
  jobject running = nullptr;
};

// The states of the monitor search. Looked up when a search begins, not at start-up, and gone with
// that operation's local frame.
class JApiSearchStatus : public JClass<JNull, JNullMethods> {
 public:
  explicit JApiSearchStatus(JavaEnv* owner) : JClass(owner, catalogue::kSearchStatusClass) {
    methods.finished = constant(catalogue::kSearchStatusFields[0]);
    methods.none = constant(catalogue::kSearchStatusFields[1]);
    methods.running = constant(catalogue::kSearchStatusFields[2]);
  }

  bool isFinished(jobject status) const { return is(status, methods.finished); }
  bool isNone(jobject status) const { return is(status, methods.none); }
  bool isRunning(jobject status) const { return is(status, methods.running); }

 private:
  jobject constant(const char* name) const {
    return jni::staticObjectField(*env, clazz, name, catalogue::kSearchStatusSignature);
  }
  // By identity. A constant that was not found is no state: to Java, null is the same object as
  // null.
  bool is(jobject status, jobject known) const {
    return known != nullptr && jni::isSameObject(*env, status, known);
  }
};

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_SEARCH_STATUS_H_
