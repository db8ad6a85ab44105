// SPDX-License-Identifier: MIT
#include "bench/java_calls/raw_handle.h"

#include "bench/java_calls/raw_java.h"

namespace bench {
namespace {

struct Frame {
  explicit Frame(JNIEnv* env) : env(env) { env->PushLocalFrame(32); }
  ~Frame() { env->PopLocalFrame(nullptr); }
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;
  JNIEnv* env;
};

class MonitorControl : public RawHandle::Control {
 public:
  explicit MonitorControl(jobject monitor) : monitor(monitor) {}
  std::string getConnectionType() override {
    const Frame frame(raw().env);
    frame.env->ExceptionClear();
    const jobject text = frame.env->CallObjectMethod(monitor, raw().getConnectionType);
    if (const jthrowable thrown = frame.env->ExceptionOccurred()) {
      translateByHand(frame.env, thrown);
    }
    return copyOfText(frame.env, text);
  }

 private:
  jobject monitor;
};

}  // namespace

void translateByHand(JNIEnv* env, jthrowable thrown) {
  env->ExceptionClear();
  const jmethodID getMessage = env->GetMethodID(env->FindClass("java/lang/Throwable"), "getMessage",
                                                "()Ljava/lang/String;");
  const jobject message = env->CallObjectMethod(thrown, getMessage);
  env->ExceptionCheck();
  const std::string text = copyOfText(env, message);
  const jmethodID getName =
      env->GetMethodID(env->FindClass("java/lang/Class"), "getName", "()Ljava/lang/String;");
  const jmethodID getClass = env->GetMethodID(env->FindClass("java/lang/Throwable"), "getClass",
                                              "()Ljava/lang/Class;");
  const jobject clazz = env->CallObjectMethod(thrown, getClass);
  env->ExceptionCheck();
  const jobject name = env->CallObjectMethod(clazz, getName);
  env->ExceptionCheck();
  throw RawException(text, copyOfText(env, name), env->NewGlobalRef(thrown));
}

RawHandle::RawHandle(jobject monitor) : control(std::make_shared<MonitorControl>(monitor)) {}

std::string RawHandle::getConnectionType() const { return control->getConnectionType(); }

}  // namespace bench
