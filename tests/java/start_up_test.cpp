// SPDX-License-Identifier: MIT
// The first Env() of a process: options, join before create, what may fail and is tried again.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include "l5kov.h"
#include "tests/java/threads.h"
#include "tests/support/fake_jvm.h"

namespace {

using kovtest::createdJavaVms;
using kovtest::FakeJvm;
using kovtest::inThread;
using kovtest::Lines;
using kovtest::messageOf;
using lumora::kov::java::Env;
using lumora::kov::java::JavaEnv;

constexpr const char* kFailed = "Failed to create Java VM";

TEST(StartUp, CreatesTheVirtualMachineWithItsTwoOptionsAndNothingElse) {
  FakeJvm jvm;
  Env();
  const auto arguments = jvm->vmArguments();
  ASSERT_TRUE(arguments.has_value());
  EXPECT_EQ(arguments->version, 0x00010008);
  EXPECT_TRUE(arguments->ignoreUnrecognized);
  EXPECT_EQ(arguments->extraInfo, (std::vector<void*>{nullptr, nullptr}));
  EXPECT_EQ(arguments->options.size(), 2u);
}

// Byte for byte; the data-import jar first. The systems write the same two options differently.
TEST(StartUp, OptionsReachTheRuntimeInTheSystemsForm) {
  FakeJvm jvm;
  Env();
#ifdef _WIN32
  const std::string base = (jvm.root() / "ORVA" / "Lumora5" / "plugins").make_preferred().string();
  const Lines expected{"-Djava.class.path=" + base +
                           "\\com.orva.lumora.dataImport\\external\\dataImport.jar;" + base +
                           "\\com.orva.lumora.common.monitorcom.kov\\external\\KOVLibrary.jar;",
                       "-Djna.library.path=" + base + "\\com.orva.lumora.jre\\jre\\bin;"};
#else
  const std::string base = jvm.root().string() + "/ORVA/Lumora5/plugins";
  const Lines expected{"-Djava.class.path=" + base +
                           "/com.orva.lumora.dataImport/external/dataImport.jar:" +  //
                           base + "/com.orva.lumora.common.monitorcom.kov/external/KOVLibrary.jar",
                       "-Djna.library.path=" + base + "/com.orva.lumora.jre/jre/bin"};
#endif
  EXPECT_EQ(jvm->vmArguments()->options, expected);
}

TEST(StartUp, SearchesForARunningVirtualMachineBeforeItCreatesOne) {
  FakeJvm jvm;
  const JavaEnv* env = Env();
  EXPECT_EQ(jvm.log.lines().at(0), "JNI_GetCreatedJavaVMs");
  EXPECT_EQ(jvm.log.lines().at(1), "JNI_CreateJavaVM");
  EXPECT_EQ(jvm.log.lines().at(2), "FindClass java/util/ArrayList");
  EXPECT_TRUE(env->createdVm());
  EXPECT_TRUE(env->hasClasses());
  EXPECT_EQ(env->vm(), jvm->vm());
  EXPECT_EQ(env->env(), jvm->attachThread());
}

TEST(StartUp, JoinsTheVirtualMachineThatTheHostRunsAlready) {
  FakeJvm jvm;
  jvm->preCreateVm();
  const JavaEnv* env = Env();
  EXPECT_EQ(jvm.log.lines().at(0), "JNI_GetCreatedJavaVMs");
  EXPECT_EQ(jvm.log.lines().at(1), "AttachCurrentThread");
  EXPECT_EQ(jvm.log.lines().at(2), "FindClass java/util/ArrayList");
  EXPECT_EQ(createdJavaVms(jvm), 0);
  EXPECT_FALSE(jvm->vmArguments().has_value());
  EXPECT_FALSE(env->createdVm());
  EXPECT_TRUE(env->hasClasses());
  EXPECT_EQ(env->env(), jvm->attachThread());
}

TEST(StartUp, JoiningNeedsNoPluginJars) {
  FakeJvm jvm;
  std::filesystem::remove_all(jvm.plugins() / "com.orva.lumora.dataImport");
  std::filesystem::remove_all(jvm.plugins() / "com.orva.lumora.common.monitorcom.kov");
  jvm->preCreateVm();
  EXPECT_TRUE(Env()->hasClasses());
}

TEST(StartUp, CreatesWhenTheSearchForARunningVirtualMachineFails) {
  FakeJvm jvm;
  jvm->setCreatedVmsResult(JNI_ERR);
  EXPECT_TRUE(Env()->createdVm());
  EXPECT_EQ(createdJavaVms(jvm), 1);
}

TEST(StartUp, GivesTheSameObjectOnEveryCallAndLooksNothingUpAgain) {
  FakeJvm jvm;
  JavaEnv* const first = Env();
  jvm.log.clear();
  EXPECT_EQ(Env(), first);
  EXPECT_EQ(jvm.log, Lines{});
}

TEST(StartUp, RefusedCreationThrowsOnEveryCallAndIsTriedAgain) {
  FakeJvm jvm;
  jvm->setCreateResult(JNI_ENOMEM);
  for (int call = 0; call < 3; ++call) {
    EXPECT_EQ(messageOf<std::runtime_error>([] { Env(); }), kFailed);
  }
  EXPECT_EQ(jvm.log, (Lines{"JNI_GetCreatedJavaVMs", "JNI_CreateJavaVM",  //
                            "JNI_GetCreatedJavaVMs", "JNI_CreateJavaVM",  //
                            "JNI_GetCreatedJavaVMs", "JNI_CreateJavaVM"}));
  jvm->setCreateResult(JNI_OK);
  EXPECT_TRUE(Env()->hasClasses());
}

TEST(StartUp, RefusedCreationOnOneThreadDoesNotKeepAnotherFromCreating) {
  FakeJvm jvm;
  jvm->setCreateResult(JNI_EINVAL);
  EXPECT_EQ(messageOf<std::runtime_error>([] { Env(); }), kFailed);
  jvm->setCreateResult(JNI_OK);
  inThread([] { EXPECT_TRUE(Env()->createdVm()); });
  EXPECT_FALSE(Env()->createdVm());
}

TEST(StartUp, AttachThatYieldsNoEnvironmentThrowsAndIsTriedAgain) {
  FakeJvm jvm;
  jvm->preCreateVm();
  jvm->failCall(2, fakejvm::Fault::nullResult());
  EXPECT_EQ(messageOf<std::runtime_error>([] { Env(); }), kFailed);
  EXPECT_EQ(jvm.log, (Lines{"JNI_GetCreatedJavaVMs", "AttachCurrentThread"}));
  EXPECT_EQ(jvm->faultsApplied(), 1);
  EXPECT_TRUE(Env()->hasClasses());
}

TEST(StartUp, EightFirstUsersAtOnceCreateOneVirtualMachine) {
  FakeJvm jvm;
  // Creation takes its time, so that all have come before it is over.
  jvm->onCall([](const std::string& line) {
    if (line == "JNI_CreateJavaVM") std::this_thread::sleep_for(std::chrono::milliseconds(200));
  });
  std::atomic<int> created{0}, joined{0};
  kovtest::atOnce(8, [&] { ++(Env()->createdVm() ? created : joined); });
  EXPECT_EQ(created, 1);
  EXPECT_EQ(joined, 7);
  EXPECT_EQ(createdJavaVms(jvm), 1);
}

}  // namespace
