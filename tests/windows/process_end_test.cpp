// SPDX-License-Identifier: MIT
// Nothing calls into Java once the process has begun to end: not the end of a thread that has
// joined, not a static handle. The virtual machine's threads are gone by then, with their locks.
// Each test runs itself once more, in a process that ends; the fake runtime there writes down every
// call that comes too late.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

#include "tests/support/kov_world.h"
#include "tests/windows/handle_keeper.h"

namespace {

namespace fs = std::filesystem;

// Names the log file; set in the process that is to end.
constexpr const char* kLogVariable = "L5KOV_TEST_END_LOG";

class WindowsProcessEnd : public testing::Test {
 protected:
  // A host of a virtual machine that this thread joins, so that its end owes a detach, with a
  // handle in a DLL.
  static void join() {
    static auto* jvm = new kovtest::FakeJvm;  // outlives the test: nothing checks or resets it
    static auto* world = new kovtest::KovWorld(*jvm);
    (*jvm)->preCreateVm();
    world->addMonitor();
    const std::string log = std::getenv(kLogVariable);
    keepHandle(log);
    ASSERT_EQ((*jvm)->attachedThreads(), 1);
    (*jvm)->onCall([log](const std::string& line) {
      if (othersAreGone()) appendLine(log, "too late: " + line);
    });
    appendLine(log, "joined");
  }

  // In the process that is to end: ends it. In the test's own: starts that one and compares.
  static void expectNothingIsCalled(const std::function<void()>& end) {
    if (std::getenv(kLogVariable) != nullptr) return end();
    const fs::path log = fs::temp_directory_path() /
                         ("l5kov-end-" + std::to_string(::GetCurrentProcessId()) + ".log");
    ::SetEnvironmentVariableA(kLogVariable, log.string().c_str());
    EXPECT_EQ(exitCodeOfThisAgain(), 0U);
    std::stringstream lines;
    lines << std::ifstream(log).rdbuf();
    EXPECT_EQ(lines.str(), "joined\nhandle released alone\n");
    fs::remove(log);
  }

 private:
  static DWORD exitCodeOfThisAgain() {
    std::wstring line = ::GetCommandLineW();
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    DWORD code = STILL_ACTIVE;
    if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &start, &process)) {
      return code;
    }
    if (::WaitForSingleObject(process.hProcess, 30000) != WAIT_OBJECT_0) {
      ::TerminateProcess(process.hProcess, STILL_ACTIVE);
    }
    ::GetExitCodeProcess(process.hProcess, &code);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return code;
  }
};

TEST_F(WindowsProcessEnd, ExitProcessOnAThreadThatJoined) {
  expectNothingIsCalled([] {
    std::thread([] {
      join();
      ::ExitProcess(HasFailure() ? 1 : 0);
    }).join();
  });
}

TEST_F(WindowsProcessEnd, ExitOnAThreadThatJoined) {
  expectNothingIsCalled([] {
    std::thread([] {
      join();
      std::exit(HasFailure() ? 1 : 0);
    }).join();
  });
}

TEST_F(WindowsProcessEnd, ReturnOfAMainThreadThatJoined) {
  expectNothingIsCalled([] { join(); });
}

}  // namespace
