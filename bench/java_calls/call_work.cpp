// SPDX-License-Identifier: MIT
// Single calls: through a wrapper, through a monitor handle, and one that ends in an exception.
#include "bench/java_calls/raw_java.h"
#include "bench/support/measured.h"
#include "bench/support/workstation.h"
#include "java/java_classes.h"

namespace {

namespace java = lumora::kov::java;
using bench::checked;
using bench::copyOfText;
using bench::measure;
using bench::raw;

// Never destroyed: a wrapper must not outlive its thread's environment.
const java::JApiMonitor& wrapper() {
  static const auto& wrapped =
      *new java::JApiMonitor(java::wrap<java::JApiMonitor>(java::Env(), bench::raw().monitor));
  return wrapped;
}

void intCall(benchmark::State& state) {
  measure(state, [monitor = &wrapper()] { return monitor->getWorkingHours(); });
}

void intCallByHand(benchmark::State& state) {
  const bench::RawJava& r = raw();
  measure(state, [&r] { return r.env->CallIntMethod(r.monitor, r.getWorkingHours); });
}

// With the two calls that keep an exception from being missed.
void intCallChecked(benchmark::State& state) {
  const bench::RawJava& r = raw();
  measure(state, [&r] {
    return checked(r.env, [&] { return r.env->CallIntMethod(r.monitor, r.getWorkingHours); });
  });
}

// In a frame, as every operation is; the frame is the wrapper's way of letting the text go.
void textCall(benchmark::State& state) {
  JNIEnv* env = raw().env;
  measure(state, [env, monitor = &wrapper()] {
    java::jni::pushLocalFrame(env, 32);
    std::string text = monitor->getModel();
    java::jni::popLocalFrame(env);
    return text;
  });
}

void textCallByHand(benchmark::State& state) {
  const bench::RawJava& r = raw();
  measure(state, [&r] {
    const jobject text = r.env->CallObjectMethod(r.monitor, r.getModel);
    std::string copy = copyOfText(r.env, text);
    r.env->DeleteLocalRef(text);
    return copy;
  });
}

void textCallChecked(benchmark::State& state) {
  const bench::RawJava& r = raw();
  measure(state, [&r] {
    const jobject text =
        checked(r.env, [&] { return r.env->CallObjectMethod(r.monitor, r.getModel); });
    std::string copy = copyOfText(r.env, text);
    r.env->DeleteLocalRef(text);
    return copy;
  });
}

void queryInt(benchmark::State& state) {
  measure(state, [monitor = &bench::colourMonitor()] { return monitor->getUsageTime(); });
}

void queryIntByHand(benchmark::State& state) {
  const bench::RawJava& r = raw();
  measure(state, [&r] {
    r.env->PushLocalFrame(32);
    const jint hours =
        checked(r.env, [&] { return r.env->CallIntMethod(r.monitor, r.getWorkingHours); });
    r.env->PopLocalFrame(nullptr);
    return hours;
  });
}

void queryText(benchmark::State& state) {
  measure(state, [monitor = &bench::colourMonitor()] { return monitor->getModelName(); });
}

void queryTextByHand(benchmark::State& state) {
  const bench::RawJava& r = raw();
  measure(state, [&r] {
    r.env->PushLocalFrame(32);
    std::string text = copyOfText(
        r.env, checked(r.env, [&] { return r.env->CallObjectMethod(r.monitor, r.getModel); }));
    r.env->PopLocalFrame(nullptr);
    return text;
  });
}

void queryEdid(benchmark::State& state) {
  measure(state, [monitor = &bench::colourMonitor()] { return monitor->getEdidModelName(); });
}

void queryEdidByHand(benchmark::State& state) {
  const bench::RawJava& r = raw();
  measure(state, [&r] {
    r.env->PushLocalFrame(32);
    const jobject edid = r.env->NewGlobalRef(checked(
        r.env, [&] { return r.env->CallObjectMethod(r.monitor, r.getEdidInformation); }));
    std::string text = copyOfText(
        r.env, checked(r.env, [&] { return r.env->CallObjectMethod(edid, r.edidModelName); }));
    r.env->DeleteGlobalRef(edid);
    r.env->PopLocalFrame(nullptr);
    return text;
  });
}

// ---- An exception ----

constexpr const char* kFault =
    "fault.1.call = Monitor.getConnectionType\n"
    "fault.1.nth = 0\n"
    "fault.1.action = throw\n"
    "fault.1.class = java.io.IOException\n"
    "fault.1.message = 30210045: Error sending data (port 3)\n";

void exception(benchmark::State& state) {
  bench::workstation().settle("", kFault);
  measure(state, [monitor = &bench::colourMonitor()] {
    try {
      return monitor->getConnectionType().size();
    } catch (const java::JavaException& e) {
      return e.getClassName().size();
    }
  });
  bench::workstation().settle("");
}

struct RawException : std::runtime_error {
  RawException(const std::string& message, std::string name, jobject reference)
      : std::runtime_error(message), className(std::move(name)), throwable(reference) {}
  std::string className;
  jobject throwable;
};

// What a translation needs: message and class name, looked up by name each time, since it must work
// before anything is cached; and a reference to the exception that outlives the frame.
[[noreturn]] void translateByHand(JNIEnv* env, jthrowable thrown) {
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

void exceptionByHand(benchmark::State& state) {
  bench::workstation().settle("", kFault);
  const bench::RawJava& r = raw();
  measure(state, [&r] {
    std::size_t letters = 0;
    try {
      r.env->PushLocalFrame(32);
      r.env->ExceptionClear();
      r.env->CallObjectMethod(r.monitor, r.getConnectionType);
      if (const jthrowable thrown = r.env->ExceptionOccurred()) translateByHand(r.env, thrown);
    } catch (const RawException& e) {
      r.env->PopLocalFrame(nullptr);
      letters = e.className.size();
      r.env->DeleteGlobalRef(e.throwable);
    }
    return letters;
  });
  bench::workstation().settle("");
}

}  // namespace

BENCHMARK(intCall)->Name("int_call/library");
BENCHMARK(intCallByHand)->Name("int_call/raw");
BENCHMARK(intCallChecked)->Name("int_call/raw_checked");
BENCHMARK(textCall)->Name("text_call/library");
BENCHMARK(textCallByHand)->Name("text_call/raw");
BENCHMARK(textCallChecked)->Name("text_call/raw_checked");
BENCHMARK(queryInt)->Name("query_int/library");
BENCHMARK(queryIntByHand)->Name("query_int/raw");
BENCHMARK(queryText)->Name("query_text/library");
BENCHMARK(queryTextByHand)->Name("query_text/raw");
BENCHMARK(queryEdid)->Name("query_edid/library");
BENCHMARK(queryEdidByHand)->Name("query_edid/raw");
BENCHMARK(exception)->Name("exception/library");
BENCHMARK(exceptionByHand)->Name("exception/raw");
