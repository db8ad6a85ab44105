// SPDX-License-Identifier: MIT
// What is still there when the process ends: handles in static objects, threads' objects, and the
// runtime library. Each test runs in a child process, whose exit code is the verdict.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>

#include "l5kov.h"
#include "tests/java/threads.h"
#include "tests/support/kov_world.h"
#include "tests/support/plugin_folder.h"

namespace {

using kovtest::Lines;
using lumora::Monitor;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::DeleteJavaVM;
using lumora::kov::java::Env;
using lumora::kov::java::JavaException;

constexpr int kAsExpected = 0;
constexpr int kOtherwise = 3;

// Compares the main thread's last log lines when it is destroyed, as the process ends, and ends the
// process with the verdict. To be made before the static object that it watches.
class VerdictAtExit {
 public:
  explicit VerdictAtExit(Lines lastLines) : expected(std::move(lastLines)) {}
  ~VerdictAtExit() {
    fakejvm::Runtime& runtime = kovtest::PluginFolder::get().runtime();
    const Lines lines = runtime.log();
    const bool same =
        runtime.problems().empty() && runtime.liveGlobalRefs() == 0 && lines == expected;
    if (!same) {
      for (const std::string& line : lines) std::fprintf(stderr, "%s\n", line.c_str());
    }
    kovtest::system::removeRoot(kovtest::PluginFolder::get().root());
    std::_Exit(same ? kAsExpected : kOtherwise);
  }

 private:
  Lines expected;
};

// A world that outlives the test: nothing checks or resets it.
fakejvm::Runtime& worldUntilExit() {
  static auto* jvm = new kovtest::FakeJvm;
  static auto* world = new kovtest::KovWorld(*jvm);
  world->addMonitor();
  return jvm->runtime;
}

void endWithAStaticHandle(const Lines& expected) {
  fakejvm::Runtime& runtime = worldUntilExit();
  static const VerdictAtExit verdict(expected);
  static std::optional<Monitor> handle;
  handle = KovMonitorManager::get().getMonitors().at(0);
  runtime.clearLog();
  std::exit(kOtherwise);
}

TEST(ProcessExit, AStaticHandleIsReleasedOnTheCreatingThread) {
  EXPECT_EXIT(endWithAStaticHandle({"DeleteGlobalRef monitor"}),
              testing::ExitedWithCode(kAsExpected), "");
}

// On Linux the thread's own objects are destroyed before the static ones: it has detached by then.
// On Windows it is still attached; its callback comes last, when nothing may call into Java.
#ifdef _WIN32
const Lines kStaticHandleOfAThreadThatJoined = {"DeleteGlobalRef monitor"};
#else
const Lines kStaticHandleOfAThreadThatJoined = {"DetachCurrentThread", "GetEnv",
                                                "AttachCurrentThread", "DeleteGlobalRef monitor",
                                                "DetachCurrentThread"};
#endif

TEST(ProcessExit, AStaticHandleOfAMainThreadThatJoinedIsReleased) {
  EXPECT_EXIT(
      {
        worldUntilExit().preCreateVm();
        endWithAStaticHandle(kStaticHandleOfAThreadThatJoined);
      },
      testing::ExitedWithCode(kAsExpected), "");
}

TEST(ProcessExit, AStaticHandleMadeByAThreadThatEndedIsReleased) {
  EXPECT_EXIT(
      {
        fakejvm::Runtime& runtime = worldUntilExit();
        static const VerdictAtExit verdict(
            {"GetEnv", "AttachCurrentThread", "DeleteGlobalRef monitor", "DetachCurrentThread"});
        static std::optional<Monitor> handle;
        kovtest::inThread([] { handle = KovMonitorManager::get().getMonitors().at(0); });
        runtime.clearLog();
        std::exit(kOtherwise);
      },
      testing::ExitedWithCode(kAsExpected), "");
}

TEST(ProcessExit, AStaticHandleIsReleasedAfterDeleteJavaVm) {
  EXPECT_EXIT(
      {
        fakejvm::Runtime& runtime = worldUntilExit();
        static const VerdictAtExit verdict({"DeleteGlobalRef monitor"});
        static std::optional<Monitor> handle;
        handle = KovMonitorManager::get().getMonitors().at(0);
        DeleteJavaVM();
        runtime.clearLog();
        std::exit(kOtherwise);
      },
      testing::ExitedWithCode(kAsExpected), "");
}

TEST(ProcessExit, AStaticJavaExceptionIsReleased) {
  EXPECT_EXIT(
      {
        fakejvm::Runtime& runtime = worldUntilExit();
        runtime.script(kovtest::kLibraryClass, "getMonitors",
                       fakejvm::throws("java/io/IOException", "x"));
        static const VerdictAtExit verdict({"DeleteGlobalRef IOException#1"});
        static std::exception_ptr kept;
        try {
          KovMonitorManager::get().getMonitors();
        } catch (const JavaException&) {
          kept = std::current_exception();
        }
        runtime.clearLog();
        std::exit(kOtherwise);
      },
      testing::ExitedWithCode(kAsExpected), "");
}

TEST(ProcessExit, NothingIsDestroyedInTheVirtualMachine) {
  EXPECT_EXIT(
      {
        fakejvm::Runtime& runtime = worldUntilExit();
        static const VerdictAtExit verdict(Lines{});
        Env();
        runtime.clearLog();
        std::exit(kOtherwise);
      },
      testing::ExitedWithCode(kAsExpected), "");
}

// The library is given back at exit, yet its code stays: another thread may still run it.
TEST(ProcessExit, AThreadThatStillCallsIntoTheRuntimeDoesNoHarm) {
  EXPECT_EXIT(
      {
        worldUntilExit();
        Env();
        std::atomic<bool> running{false};
        std::thread([&running] {
          JNIEnv* const env = Env()->env();
          running = true;
          for (;;) env->ExceptionClear();
        }).detach();
        while (!running) std::this_thread::yield();
        std::exit(kAsExpected);
      },
      testing::ExitedWithCode(kAsExpected), "");
}

}  // namespace
