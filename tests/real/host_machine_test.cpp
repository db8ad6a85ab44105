// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <jni.h>

#include <string>

#include "tests/real/support.h"
#include "tests/real/system.h"

// A host that runs a Java virtual machine of its own.
namespace {

using lumora::kov::java::Env;
using realtest::Workstation;

class HostMachine {
 public:
  HostMachine() {
    const std::filesystem::path plugins = Workstation::root() / "ORVA/Lumora5/plugins";
    std::string classPath =
        "-Djava.class.path=" +
        (plugins / "com.orva.lumora.common.monitorcom.kov/external/KOVLibrary.jar").string();
    JavaVMOption option = {classPath.data(), nullptr};
    JavaVMInitArgs arguments = {JNI_VERSION_1_8, 1, &option, JNI_FALSE};
    using Create = jint(JNICALL*)(JavaVM**, void**, void*);
    const auto create = reinterpret_cast<Create>(
        realtest::system::runtimeExport(plugins / "com.orva.lumora.jre/jre", "JNI_CreateJavaVM"));
    if (create(&vm, reinterpret_cast<void**>(&env), &arguments) != JNI_OK) {
      throw std::runtime_error("no machine");
    }
  }
  JavaVM* vm = nullptr;
  JNIEnv* env = nullptr;
};

TEST(HostMachine, IsJoinedAndNotReplaced) {
  const Workstation workstation;
  const HostMachine host;
  EXPECT_FALSE(Env()->createdVm());
  EXPECT_EQ(Env()->vm(), host.vm);
  EXPECT_EQ(Env()->env(), host.env);
  EXPECT_EQ(Workstation::findColourMonitor().getModelName(), "OR-C321");
}

TEST(HostMachine, RunsACalibration) {
  const Workstation workstation;
  const HostMachine host;
  Workstation::findColourMonitor();
  realtest::Calibration run(realtest::kColour);
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, realtest::dicomTarget()), OM_OK);
  EXPECT_EQ(run.calibrator.execute(), OM_OK) << run.calibrator.getErrorMsg();
}

}  // namespace
