// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <jni.h>

#include <string>
#include <thread>

#include "tests/real/support.h"
#include "tests/real/system.h"

namespace {

using lumora::kov::java::DeleteJavaVM;
using lumora::kov::java::Env;
using realtest::Workstation;

std::string systemProperty(JNIEnv* env, const char* name) {
  env->PushLocalFrame(8);
  const jclass system = env->FindClass("java/lang/System");
  const jmethodID get =
      env->GetStaticMethodID(system, "getProperty", "(Ljava/lang/String;)Ljava/lang/String;");
  const auto text =
      static_cast<jstring>(env->CallStaticObjectMethod(system, get, env->NewStringUTF(name)));
  env->ExceptionCheck();
  const char* characters = env->GetStringUTFChars(text, nullptr);
  const std::string result = characters;
  env->ReleaseStringUTFChars(text, characters);
  env->PopLocalFrame(nullptr);
  return result;
}

TEST(StartUp, CreatesTheMachineOfThePluginFolder) {
  const Workstation workstation;
  auto* java = Env();
  EXPECT_TRUE(java->createdVm());
  EXPECT_EQ(Env(), java);
  const std::filesystem::path plugins = Workstation::root() / "ORVA/Lumora5/plugins";
  EXPECT_EQ(systemProperty(java->env(), "java.class.path"), realtest::system::classPath(plugins));
  EXPECT_EQ(systemProperty(java->env(), "jna.library.path"),
            realtest::system::nativeLibraryPath(plugins));
}

#ifndef _WIN32  // There the option is handed on as composed, with the entry that is empty.
TEST(StartUp, LeavesTheCurrentFolderOffTheClassPath) {
  const Workstation workstation;
  std::string path = systemProperty(Env()->env(), "java.class.path");
  path.insert(path.begin(), ':');
  path.push_back(':');
  EXPECT_EQ(path.find("::"), std::string::npos) << path;
  EXPECT_EQ(path.find(":.:"), std::string::npos) << path;
}
#endif

TEST(StartUp, ASecondThreadAttachesAndDetaches) {
  const Workstation workstation;
  JavaVM* vm = Env()->vm();
  std::thread([vm] {
    EXPECT_FALSE(Env()->createdVm());
    EXPECT_EQ(Env()->vm(), vm);
    EXPECT_NO_THROW(lumora::kov::KovMonitorManager::get().find());
  }).join();
  EXPECT_NO_THROW(lumora::kov::KovMonitorManager::get().find());
}

TEST(StartUp, DeleteJavaVMEndsThisThreadsUseAndNoOthers) {
  const Workstation workstation;
  auto* java = Env();
  DeleteJavaVM();
  EXPECT_EQ(Env(), java);
  EXPECT_FALSE(java->hasClasses());
  EXPECT_THROW(lumora::kov::KovMonitorManager::get().getMonitors(), std::logic_error);
  std::thread([] {
    EXPECT_NO_THROW(lumora::kov::KovMonitorManager::get().find());
    DeleteJavaVM();
    EXPECT_THROW(lumora::kov::KovMonitorManager::get().find(), std::logic_error);
  }).join();
}

TEST(StartUp, AnExceptionOutlivesTheThreadThatCaughtIt) {
  const Workstation workstation;
  Env();
  std::exception_ptr kept;
  std::thread([&kept] {
    auto& manager = lumora::kov::KovMonitorManager::get();
    manager.find();
    const lumora::Monitor monitor =
        manager.getMonitorByName(realtest::kColour.model, realtest::kColour.serial);
    try {
      monitor.getGammaModelTag(100000);
    } catch (...) {
      kept = std::current_exception();
    }
  }).join();
  ASSERT_TRUE(kept);
  try {
    std::rethrow_exception(kept);
  } catch (const lumora::kov::java::JavaException& e) {
    EXPECT_EQ(e.getClassName(), "java.lang.IndexOutOfBoundsException");
    const lumora::kov::java::JavaException copy = e;
    EXPECT_STREQ(copy.what(), e.what());
  }
  kept = nullptr;
}

TEST(StartUp, AThousandThreadsLeaveNothingBehind) {
  const Workstation workstation;
  const lumora::Monitor monitor = Workstation::findColourMonitor();
  for (int i = 0; i < 1000; ++i) {
    std::thread([&monitor] { EXPECT_EQ(monitor.getModelName(), realtest::kColour.model); }).join();
  }
}

}  // namespace
