// SPDX-License-Identifier: MIT
// A host that loads the library at run time and gives it back while its threads hold something of
// it. This program is not linked with the library.
#include <gtest/gtest.h>
#include <windows.h>

#include <future>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/support/fake_jvm.h"
#include "tests/support/plugin_folder.h"

namespace {

using Function = void (*)();

// Env() and DeleteJavaVM() by the names that mingw gives them.
constexpr const char* kEnv = "_ZN6lumora3kov4java3EnvEv";
constexpr const char* kDeleteJavaVm = "_ZN6lumora3kov4java12DeleteJavaVMEv";

HMODULE loadLibrary() { return ::LoadLibraryA(L5KOV_LIBRARY); }

Function find(HMODULE library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library, name)));
}

bool isLoaded() { return ::GetModuleHandleA("libl5kov.dll") != nullptr; }

// Calls Env() on a thread that ends only after the library was given back.
void giveBackBeneathAThread(HMODULE library) {
  const Function env = find(library, kEnv);
  ASSERT_NE(env, nullptr);
  std::promise<void> called;
  std::promise<void> givenBack;
  std::thread thread([&] {
    try {
      env();
    } catch (const std::runtime_error&) {
      // Without a Java runtime. The thread's end is ours to tell all the same.
    }
    called.set_value();
    givenBack.get_future().wait();
  });
  called.get_future().wait();
  EXPECT_TRUE(::FreeLibrary(library));
  EXPECT_TRUE(isLoaded());
  givenBack.set_value();
  thread.join();
}

TEST(WindowsModule, GoesWhenNothingHasUsedJava) {
  const HMODULE library = loadLibrary();
  ASSERT_NE(library, nullptr);
  EXPECT_TRUE(::FreeLibrary(library));
  EXPECT_FALSE(isLoaded());
}

TEST(WindowsModule, StaysForAThreadThatHasAnEnvironment) {
  kovtest::FakeJvm jvm;
  jvm->preCreateVm();
  const HMODULE library = loadLibrary();
  ASSERT_NE(library, nullptr);
  giveBackBeneathAThread(library);
  EXPECT_EQ(jvm->attachedThreads(), 0);  // the thread's end detached it
}

// The thread's end is registered before the runtime is looked for.
TEST(WindowsModule, StaysForAThreadWhoseStartUpFailed) {
  const auto root = kovtest::system::makeRoot();
  const HMODULE library = loadLibrary();
  ASSERT_NE(library, nullptr);
  giveBackBeneathAThread(library);
  kovtest::system::removeRoot(root);
}

TEST(WindowsModule, DeleteJavaVmWithoutOneHoldsNothing) {
  const auto root = kovtest::system::makeRoot();
  const HMODULE library = loadLibrary();
  ASSERT_NE(library, nullptr);
  const Function deleteJavaVm = find(library, kDeleteJavaVm);
  ASSERT_NE(deleteJavaVm, nullptr);
  deleteJavaVm();
  EXPECT_TRUE(::FreeLibrary(library));
  EXPECT_FALSE(isLoaded());
  kovtest::system::removeRoot(root);
}

}  // namespace
