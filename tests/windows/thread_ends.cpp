// SPDX-License-Identifier: MIT
#include "tests/windows/thread_ends.h"

#include <jni.h>

#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

#include "tests/windows/wine_fls_lock.h"

namespace {

constexpr int kThreads = 1000;
constexpr int kAtOnce = 10;
// Of Java threads that came and went meanwhile. Fewer, and the two hardly met.
constexpr int kJavaThreads = 100;

// Works in Java, on a thread of its own, until it is stopped.
class Meanwhile {
 public:
  explicit Meanwhile(bool startThreads)
      : working([this, startThreads] { startThreads ? startJavaThreads() : search(); }) {}

  // How many Java threads have come and gone.
  int stop() {
    done = true;
    working.join();
    return ended;
  }

 private:
  void search() {
    while (!done) lumora::kov::KovMonitorManager::get().find();
  }

  void startJavaThreads() {
    JNIEnv* const env = lumora::kov::java::Env()->env();
    bool refused = false;
    while (!done && !refused) {
      if (env->PushLocalFrame(16) != 0) break;
      startSome(env);
      refused = env->ExceptionCheck();
      env->ExceptionClear();
      env->PopLocalFrame(nullptr);
    }
  }

  // A plain java.lang.Thread has nothing to run: it starts and ends.
  void startSome(JNIEnv* env) {
    const jclass type = env->FindClass("java/lang/Thread");
    const jmethodID make = env->GetMethodID(type, "<init>", "()V");
    const jmethodID start = env->GetMethodID(type, "start", "()V");
    const jmethodID join = env->GetMethodID(type, "join", "()V");
    std::vector<jobject> threads;
    for (int i = 0; i < 4; ++i) {
      threads.push_back(env->NewObject(type, make));
      if (env->ExceptionCheck()) return;
      env->CallVoidMethod(threads.back(), start);
      if (env->ExceptionCheck()) return;
    }
    for (const jobject thread : threads) {
      env->CallVoidMethod(thread, join);
      if (env->ExceptionCheck()) return;
      ++ended;
    }
  }

  std::atomic<bool> done{false};
  int ended = 0;
  std::thread working;
};

// Gives the number of threads that got an answer.
int askAndEnd(const lumora::Monitor& monitor, ThreadEnds how) {
  std::atomic<int> answered{0};
  for (int i = 0; i < kThreads / kAtOnce; ++i) {
    std::vector<std::thread> threads;
    for (int k = 0; k < kAtOnce; ++k) {
      threads.emplace_back([&] {
        if (how == ThreadEnds::kPlain) wine_fls_lock::avoidOnThisThread();
        if (!monitor.getModelName().empty()) ++answered;
        if (how == ThreadEnds::kReleased) lumora::kov::java::DeleteJavaVM();
      });
    }
    for (std::thread& thread : threads) thread.join();
  }
  return answered;
}

}  // namespace

int endThreads(const lumora::Monitor& monitor, ThreadEnds how) {
  const bool startThreads = how != ThreadEnds::kAlone;
  Meanwhile meanwhile(startThreads);
  const int answered = askAndEnd(monitor, how);
  const int started = meanwhile.stop();
  std::printf("%d threads answered, %d Java threads came and went\n", answered, started);
  if (how == ThreadEnds::kPlain && !wine_fls_lock::avoided()) std::printf("wrong: Wine's lock\n");
  if (answered == kThreads && (!startThreads || started >= kJavaThreads)) return 0;
  std::printf("wrong: too few\n");
  return 1;
}
