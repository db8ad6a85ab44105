// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_PLATFORM_CLASSES_H_
#define L5KOV_JAVA_PLATFORM_CLASSES_H_

#include "java/catalogue.h"
#include "java/jclass.h"
#include "java/jobject.h"

// Bindings and wrappers of the Java platform's classes.
namespace lumora::kov::java {

using JArrayListMethod = MethodRecord<catalogue::kArrayList>;
using JIntegerMethods = MethodRecord<catalogue::kInteger>;
using JDoubleMethods = MethodRecord<catalogue::kDouble>;
using JLangClassMethods = MethodRecord<catalogue::kLangClass>;
using JListMethod = MethodRecord<catalogue::kList>;
using JLongMethods = MethodRecord<catalogue::kLong>;
using JSystemMethods = MethodRecord<catalogue::kSystem>;
using JThrowableMethods = MethodRecord<catalogue::kThrowable>;

class JArrayList : public JObject<JArrayListMethod> {
 public:
  using JObject::JObject;
  static JArrayList create(JavaEnv* javaEnv);

  bool add(jobject element) const { return call<"add", bool(jobject)>(element); }
  jobject get(std::int32_t index) const { return call<"get", jobject(std::int32_t)>(index); }
  std::int32_t size() const { return call<"size", std::int32_t()>(); }
};

class JList : public JObject<JListMethod> {
 public:
  using JObject::JObject;

  std::int32_t size() const { return call<"size", std::int32_t()>(); }
  jobject get(std::int32_t index) const { return call<"get", jobject(std::int32_t)>(index); }
};

// A boxed int; null stands for an absent value.
class JInteger : public JObject<JIntegerMethods> {
 public:
  using JObject::JObject;
  static JInteger create(JavaEnv* javaEnv, std::int32_t value);

  std::int32_t intValue() const { return call<"intValue", std::int32_t()>(); }
  std::int32_t valueOr(std::int32_t absent) const { return isNull() ? absent : intValue(); }
};

// A boxed double; null stands for an absent value.
class JDouble : public JObject<JDoubleMethods> {
 public:
  using JObject::JObject;
  static JDouble create(JavaEnv* javaEnv, double value);

  double doubleValue() const { return call<"doubleValue", double()>(); }
  double valueOr(double absent) const { return isNull() ? absent : doubleValue(); }
};

class JArrayListClass : public JClass<JArrayList, JArrayListMethod> {
 public:
  explicit JArrayListClass(JavaEnv* owner) : JClass(owner) {}
};
class JIntegerClass : public JClass<JInteger, JIntegerMethods> {
 public:
  explicit JIntegerClass(JavaEnv* owner) : JClass(owner) {}
};
class JDoubleClass : public JClass<JDouble, JDoubleMethods> {
 public:
  explicit JDoubleClass(JavaEnv* owner) : JClass(owner) {}
};
class JLangClassClass : public JClass<JNull, JLangClassMethods> {
 public:
  explicit JLangClassClass(JavaEnv* owner) : JClass(owner) {}
};
class JListClass : public JClass<JList, JListMethod> {
 public:
  explicit JListClass(JavaEnv* owner) : JClass(owner) {}
};
class JLongClass : public JClass<JNull, JLongMethods> {
 public:
  explicit JLongClass(JavaEnv* owner) : JClass(owner) {}
};
class JSystemClass : public JClass<JNull, JSystemMethods> {
 public:
  explicit JSystemClass(JavaEnv* owner) : JClass(owner) {}
  void gc() const { jni::callStaticVoid(*env, target<rowOf<void()>(Methods::table, "gc")>()); }
};
class JThrowableClass : public JClass<JNull, JThrowableMethods> {
 public:
  explicit JThrowableClass(JavaEnv* owner) : JClass(owner) {}
};

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_PLATFORM_CLASSES_H_
