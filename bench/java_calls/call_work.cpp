// SPDX-License-Identifier: MIT
// Single calls: through a wrapper and through a monitor handle.
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

// As an operation that asks several texts does: one frame for all of them.
constexpr int kTexts = 16;

void textCalls(benchmark::State& state) {
  JNIEnv* env = raw().env;
  measure(state, [env, monitor = &wrapper()] {
    std::size_t letters = 0;
    java::jni::pushLocalFrame(env, 32);
    for (int i = 0; i < kTexts; ++i) letters += monitor->getModel().size();
    java::jni::popLocalFrame(env);
    return letters;
  });
}

template <bool kChecked>
void textCallsByHand(benchmark::State& state) {
  const bench::RawJava& r = raw();
  measure(state, [&r] {
    std::size_t letters = 0;
    if constexpr (kChecked) r.env->PushLocalFrame(32);
    for (int i = 0; i < kTexts; ++i) {
      const auto call = [&r] { return r.env->CallObjectMethod(r.monitor, r.getModel); };
      const jobject text = kChecked ? checked(r.env, call) : call();
      letters += copyOfText(r.env, text).size();
      if constexpr (!kChecked) r.env->DeleteLocalRef(text);
    }
    if constexpr (kChecked) r.env->PopLocalFrame(nullptr);
    return letters;
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

}  // namespace

BENCHMARK(intCall)->Name("int_call/library");
BENCHMARK(intCallByHand)->Name("int_call/raw");
BENCHMARK(intCallChecked)->Name("int_call/raw_checked");
BENCHMARK(textCall)->Name("text_call/library");
BENCHMARK(textCallByHand)->Name("text_call/raw");
BENCHMARK(textCallChecked)->Name("text_call/raw_checked");
BENCHMARK(textCalls)->Name("text_calls/library");
BENCHMARK(textCallsByHand<false>)->Name("text_calls/raw");
BENCHMARK(textCallsByHand<true>)->Name("text_calls/raw_checked");
BENCHMARK(queryInt)->Name("query_int/library");
BENCHMARK(queryIntByHand)->Name("query_int/raw");
// Beside the least that answers the same.
BENCHMARK(intCallByHand)->Name("query_int/raw_unchecked");
BENCHMARK(queryText)->Name("query_text/library");
BENCHMARK(queryTextByHand)->Name("query_text/raw");
BENCHMARK(textCallByHand)->Name("query_text/raw_unchecked");
BENCHMARK(queryEdid)->Name("query_edid/library");
BENCHMARK(queryEdidByHand)->Name("query_edid/raw");
