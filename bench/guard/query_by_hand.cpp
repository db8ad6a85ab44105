// SPDX-License-Identifier: MIT
#include "bench/guard/query_work.h"
#include "bench/java_calls/raw_java.h"

namespace guard {

using bench::checked;
using bench::copyOfText;

CallsByHand::CallsByHand(JNIEnv* threadsEnv, jobject rawMonitor)
    : env(threadsEnv), monitor(rawMonitor) {
  const jclass clazz = env->FindClass("com/orva/kov/library/api/Monitor");
  getWorkingHours = env->GetMethodID(clazz, "getWorkingHours", "()I");
  getModel = env->GetMethodID(clazz, "getModel", "()Ljava/lang/String;");
}

int CallsByHand::uncheckedNumber() const { return env->CallIntMethod(monitor, getWorkingHours); }

int CallsByHand::number() const {
  return checked(env, [&] { return env->CallIntMethod(monitor, getWorkingHours); });
}

int CallsByHand::numberInFrame() const {
  env->PushLocalFrame(32);
  const jint hours = number();
  env->PopLocalFrame(nullptr);
  return hours;
}

std::string CallsByHand::uncheckedText() const {
  const jobject text = env->CallObjectMethod(monitor, getModel);
  std::string copy = copyOfText(env, text);
  env->DeleteLocalRef(text);
  return copy;
}

std::string CallsByHand::textInFrame() const {
  env->PushLocalFrame(32);
  std::string text =
      copyOfText(env, checked(env, [&] { return env->CallObjectMethod(monitor, getModel); }));
  env->PopLocalFrame(nullptr);
  return text;
}

}  // namespace guard
