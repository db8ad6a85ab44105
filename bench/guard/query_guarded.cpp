// SPDX-License-Identifier: MIT
#include "bench/guard/query_work.h"
#include "java/java_classes.h"

namespace guard {

namespace java = lumora::kov::java;

struct GuardedCalls::Wrapper {
  java::JApiMonitor monitor;
  JNIEnv* env;
};

GuardedCalls::GuardedCalls(jobject monitor)
    : wrapper(
          new Wrapper{java::wrap<java::JApiMonitor>(java::Env(), monitor), java::Env()->env()}) {}

GuardedCalls::~GuardedCalls() = default;

int GuardedCalls::number() const { return wrapper->monitor.getWorkingHours(); }

std::string GuardedCalls::text() const {
  java::jni::pushLocalFrame(wrapper->env, 32);
  std::string text = wrapper->monitor.getModel();
  java::jni::popLocalFrame(wrapper->env);
  return text;
}

}  // namespace guard
