// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <jni.h>

#include <string>

#include "sim_meter.h"

// A native host with a Java machine inside: the instrument must look at the very panels that the
// firmware in the jar drives. One test, since a process has one Java machine.

namespace simtest {
namespace {

JNIEnv* createMachine() {
  void* const runtime = dlopen(SIMULATOR_JVM, RTLD_NOW);
  if (runtime == nullptr) {
    return nullptr;
  }
  using Create = jint (*)(JavaVM**, void**, void*);
  const auto create = reinterpret_cast<Create>(dlsym(runtime, "JNI_CreateJavaVM"));
  std::string path = std::string("-Djava.class.path=") + SIMULATOR_DIR + "/KOVLibrary.jar";
  std::string state = "-Dkov.sim.state=none";
  std::string noise = "-Dkov.sim.noise=off";
  std::string search = "-Dkov.sim.search.ms=0";
  JavaVMOption options[] = {{path.data(), nullptr},
                            {state.data(), nullptr},
                            {noise.data(), nullptr},
                            {search.data(), nullptr}};
  JavaVMInitArgs arguments{JNI_VERSION_1_8, 4, options, JNI_TRUE};
  JavaVM* machine = nullptr;
  JNIEnv* env = nullptr;
  return create(&machine, reinterpret_cast<void**>(&env), &arguments) == JNI_OK ? env : nullptr;
}

/// Runs a search, which makes the panels.
void findMonitors(JNIEnv* env) {
  const jclass type = env->FindClass("com/orva/kov/library/impl/KovMonitorLibrary");
  ASSERT_NE(nullptr, type);
  const jobject library = env->CallStaticObjectMethod(
      type,
      env->GetStaticMethodID(type, "getInstance", "()Lcom/orva/kov/library/api/MonitorLibrary;"));
  ASSERT_NE(nullptr, library);
  env->CallVoidMethod(library, env->GetMethodID(type, "startMonitorSearch", "()V"));
  ASSERT_FALSE(env->ExceptionCheck());
  env->CallObjectMethod(library, env->GetMethodID(type, "getMonitors", "()Ljava/util/List;"));
  if (env->ExceptionCheck()) {
    env->ExceptionDescribe();
    FAIL() << "no monitors";
  }
}

TEST(SharedPanel, InstrumentLooksAtThePanelThatJavaDrives) {
  void* const meter = MDSimOpen(163, "SN-7", "30210045");
  ASSERT_NE(nullptr, meter);
  double luminance = 0.0;
  double x = 0.0;
  double y = 0.0;
  EXPECT_EQ(MDSIM_NO_PANEL_LIBRARY, MDSimShowPatch(meter, 1, 1, 1));
  EXPECT_EQ(MDSIM_NO_PANEL_LIBRARY, MDSimMeasure(meter, &luminance, &x, &y));

  JNIEnv* const env = createMachine();
  ASSERT_NE(nullptr, env);
  EXPECT_EQ(MDSIM_NO_PANEL_LIBRARY, MDSimShowPatch(meter, 1, 1, 1)) << "nothing was searched yet";
  findMonitors(env);

  ASSERT_EQ(MDSIM_OK, MDSimShowPatch(meter, 1, 1, 1));
  ASSERT_EQ(MDSIM_OK, MDSimMeasure(meter, &luminance, &x, &y));
  EXPECT_NEAR(332.0, luminance, 1e-6);
  EXPECT_NEAR(0.2990, x, 1e-6);
  EXPECT_NEAR(0.3150, y, 1e-6);
  MDSimClose(meter);
}

}  // namespace
}  // namespace simtest
