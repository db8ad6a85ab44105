// SPDX-License-Identifier: MIT
#include "bench/processes/watched_start.h"

#include <dlfcn.h>
#include <jni.h>
#include <time.h>

#include <cstring>

namespace bench {
namespace {

using Open = void* (*)(const char*, int);
using Find = void* (*)(void*, const char*);
using CreateJavaVM = jint(JNICALL*)(JavaVM**, void**, void*);

constinit thread_local bool watching = false;
StartSteps steps;
CreateJavaVM createJavaVm = nullptr;

// dlsym itself cannot be asked for the next dlsym.
Find nextFind() {
  static const auto find = reinterpret_cast<Find>(::dlvsym(RTLD_NEXT, "dlsym", "GLIBC_2.34"));
  return find;
}

jint JNICALL createWatched(JavaVM** vm, void** env, void* arguments) {
  const bool watched = watching;
  watching = false;  // what it loads is part of it
  const long long start = nanosecondsOfThread();
  const jint result = createJavaVm(vm, env, arguments);
  if (watched) steps.create += nanosecondsOfThread() - start;
  watching = watched;
  return result;
}

}  // namespace

long long nanosecondsOfThread() noexcept {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return now.tv_sec * 1000000000LL + now.tv_nsec;
}

void watchStart() noexcept { watching = true; }
StartSteps stepsSoFar() noexcept { return steps; }

}  // namespace bench

extern "C" {

void* dlopen(const char* name, int flags) noexcept {
  static const auto open = reinterpret_cast<bench::Open>(bench::nextFind()(RTLD_NEXT, "dlopen"));
  if (!bench::watching) return open(name, flags);
  const long long start = bench::nanosecondsOfThread();
  void* const library = open(name, flags);
  bench::steps.load += bench::nanosecondsOfThread() - start;
  return library;
}

void* dlsym(void* library, const char* name) noexcept {
  void* const found = bench::nextFind()(library, name);
  if (!bench::watching || found == nullptr || std::strcmp(name, "JNI_CreateJavaVM") != 0) {
    return found;
  }
  bench::createJavaVm = reinterpret_cast<bench::CreateJavaVM>(found);
  return reinterpret_cast<void*>(&bench::createWatched);
}

}  // extern "C"
