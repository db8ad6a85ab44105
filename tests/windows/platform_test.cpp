// SPDX-License-Identifier: MIT
// The contract of platform.h on Windows.
#include "platform/platform.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>

#include "platform/windows/encoding.h"

extern "C" __declspec(dllimport) BOOL NTAPI
    RtlIsCriticalSectionLockedByThread(RTL_CRITICAL_SECTION* section);
extern "C" __declspec(dllimport) void* NTAPI RtlGetCurrentPeb();

namespace {

namespace fs = std::filesystem;
using namespace lumora;

class TemporaryFolder {
 public:
  TemporaryFolder()
      : path(fs::temp_directory_path() /
             (L"l5kov-platform-" + std::to_wstring(::GetCurrentProcessId()))) {
    fs::create_directories(path);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
  const fs::path path;
};

std::string utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::optional<std::string> textOf(const std::string& path) {
  const auto file = platform::readFile(path);
  if (!file) return std::nullopt;
  return std::string(file->data.get(), file->size);
}
std::optional<std::string> contentOf(const fs::path& path) { return textOf(utf8(path)); }

// Where the tests run in a Wine prefix of their own.
constexpr bool kOwnPrefix = L5KOV_OWN_PREFIX;

// Whether the shell takes its folder from the variable, as tests/windows/wine.sh arranges it.
bool shellFollows(const fs::path& folder) {
  ::SetEnvironmentVariableW(L"L5KOV_COMMON_APPDATA", folder.c_str());
  return platform::commonAppDataFolder() == utf8(folder);
}

TEST(WindowsFolder, IsTheShellsInUtf8) {
  const TemporaryFolder folder;
  const bool follows = shellFollows(folder.path);
  ASSERT_TRUE(follows || !kOwnPrefix);
  if (!follows) GTEST_SKIP() << "the shell's folder is fixed on this machine";
  const fs::path accented = folder.path / L"Donn\u00e9es";
  fs::create_directory(accented);
  ASSERT_EQ(::GetACP(), 1252U);
  ASSERT_TRUE(shellFollows(accented));
  EXPECT_TRUE(
      platform::commonAppDataFolder().ends_with("Donn\xc3\xa9"
                                                "es"));
}

TEST(WindowsFolder, MissingGivesTheEmptyText) {
  const TemporaryFolder folder;
  const bool follows = shellFollows(folder.path);
  ASSERT_TRUE(follows || !kOwnPrefix);
  if (!follows) GTEST_SKIP() << "the shell's folder is fixed on this machine";
  ::SetEnvironmentVariableW(L"L5KOV_COMMON_APPDATA", (folder.path / "missing").c_str());
  EXPECT_EQ(platform::commonAppDataFolder(), "");
}

TEST(WindowsEncoding, TurnsTheCodePageIntoUtf8UpToTheFirstNul) {
  using platform::windows::utf8FromCodePage;
  EXPECT_EQ(utf8FromCodePage(1252,
                             "C:\\Donn\xe9"
                             "es"),
            "C:\\Donn\xc3\xa9"
            "es");
  EXPECT_EQ(utf8FromCodePage(932, "\x83\x66\x81\x5b\x83\x5e"),
            "\xe3\x83\x87\xe3\x83\xbc\xe3\x82\xbf");
  EXPECT_EQ(utf8FromCodePage(1252, std::string("C:\\a\0b", 6)), "C:\\a");
  EXPECT_EQ(utf8FromCodePage(1252, ""), "");
}

// What the code page does not know never becomes invalid UTF-8.
TEST(WindowsEncoding, ReplacesWhatIsNotValid) {
  using platform::windows::utf8FromCodePage;
  using platform::windows::wideFromUtf8;
  for (const char* text : {"C:\\\x81", "C:\\\x81\x20", "\xff\xfe", "a\x83"}) {
    const std::string result = utf8FromCodePage(932, text);
    EXPECT_FALSE(result.empty());
    EXPECT_FALSE(wideFromUtf8(result).empty()) << text;
  }
  EXPECT_EQ(utf8FromCodePage(65001,
                             "a\xff"
                             "b"),
            "a\xef\xbf\xbd"
            "b");
  EXPECT_TRUE(wideFromUtf8("a\xff").empty());
}

TEST(WindowsFile, IsReadByItsUtf16PathByteForByte) {
  const TemporaryFolder folder;
  const fs::path file = folder.path / L"\u30c7\u30fc\u30bf \u00e9 \U0001d11e.xml";
  const std::string content("a\r\n\x1a\0b", 6);  // beyond Ctrl-Z, too
  std::ofstream(file, std::ios::binary) << content;
  EXPECT_EQ(contentOf(file), content);
}

TEST(WindowsFile, MayBeEmpty) {
  const TemporaryFolder folder;
  std::ofstream(folder.path / "empty").flush();
  EXPECT_EQ(contentOf(folder.path / "empty"), "");
}

TEST(WindowsFile, GivesNothingForWhatIsNoRegularFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(contentOf(folder.path), std::nullopt);
  EXPECT_EQ(contentOf(folder.path / "missing"), std::nullopt);
  EXPECT_EQ(textOf("NUL"), std::nullopt);
  EXPECT_EQ(textOf("a\xff"), std::nullopt);
  EXPECT_EQ(textOf(""), std::nullopt);
}

HANDLE openFor(DWORD access, DWORD share, const fs::path& file) {
  return ::CreateFileW(file.c_str(), access, share, nullptr, OPEN_ALWAYS, 0, nullptr);
}

TEST(WindowsFile, GivesNothingForOneThatSomeoneElseHoldsAlone) {
  const TemporaryFolder folder;
  const fs::path file = folder.path / "held";
  const HANDLE held = openFor(GENERIC_WRITE, 0, file);
  EXPECT_EQ(contentOf(file), std::nullopt);
  ::CloseHandle(held);
  EXPECT_EQ(contentOf(file), "");
}

// Whoever forbids others what one has the file open for cannot open it beside that one.
TEST(WindowsFile, IsReadBesideOneWhoWritesAndDeletesIt) {
  constexpr DWORD kAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const TemporaryFolder folder;
  const fs::path file = folder.path / "table.xml";
  std::ofstream(file) << "old";
  for (const DWORD access : {DWORD{GENERIC_WRITE}, DWORD{DELETE}}) {
    const HANDLE held = openFor(access, kAll, file);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_EQ(contentOf(file), "old") << access;
    ::CloseHandle(held);
  }
}

TEST(WindowsRuntimeLibrary, IsLoadedByItsUtf16PathAndStays) {
  const TemporaryFolder folder;
  const fs::path library = folder.path / L"\u00e9\u30c7.dll";
  fs::copy_file(L5KOV_SOME_DLL, library);
  const platform::RuntimeLibrary loaded = platform::loadRuntimeLibrary(utf8(library));
  ASSERT_NE(loaded, nullptr);
  EXPECT_NE(platform::findExport(loaded, "JNI_CreateJavaVM"), nullptr);
  EXPECT_EQ(platform::findExport(loaded, "JNI_NoSuchThing"), nullptr);
  platform::freeRuntimeLibrary(loaded);
  EXPECT_EQ(::GetModuleHandleW(library.c_str()), loaded) << "its threads may still run";
  platform::freeRuntimeLibrary(nullptr);
  EXPECT_EQ(platform::loadRuntimeLibrary(utf8(folder.path / "missing.dll")), nullptr);
  EXPECT_EQ(platform::loadRuntimeLibrary("a\xff"), nullptr);
}

TEST(WindowsRuntimeOption, IsHandedOnUnchanged) {
  EXPECT_EQ(platform::runtimeOption("-Dp=C:\\a;C:\\b;"), "-Dp=C:\\a;C:\\b;");
}

TEST(WindowsProcess, IsNotEndingWhileItRuns) { EXPECT_FALSE(platform::processIsEnding()); }

int ends = 0;

TEST(WindowsThread, EndIsToldOnceOnItsThread) {
  static DWORD endedOn = 0;
  DWORD thread = 0;
  std::thread([&thread] {
    thread = ::GetCurrentThreadId();
    for (int i = 0; i < 2; ++i) {
      platform::callAtThreadEnd([] {
        ++ends;
        endedOn = ::GetCurrentThreadId();
      });
    }
  }).join();
  EXPECT_EQ(ends, 1);
  EXPECT_EQ(endedOn, thread);
}

// Java may be starting threads, which take the loader's lock. (The process environment block is
// documented nowhere, but its LoaderLock has stood at 0x110 since 64-bit Windows.)
TEST(WindowsThread, EndLeavesTheLoaderFree) {
  static BOOL held = TRUE;
  std::thread([] {
    platform::callAtThreadEnd([] {
      const auto* block = static_cast<const char*>(::RtlGetCurrentPeb());
      auto* lock = *reinterpret_cast<RTL_CRITICAL_SECTION* const*>(block + 0x110);
      held = ::RtlIsCriticalSectionLockedByThread(lock);
    });
  }).join();
  EXPECT_FALSE(held);
}

// The next slot of the system's for a value per thread.
DWORD freeSlot() {
  const DWORD slot = ::TlsAlloc();
  ::TlsFree(slot);
  return slot;
}

// A module that has only asked takes no slot along when it goes.
TEST(WindowsThread, SlotsAreTakenByTheFirstSet) {
  const DWORD slot = freeSlot();
  EXPECT_EQ(platform::threadSlot(platform::ThreadSlot::kJavaEnv), nullptr);
  EXPECT_EQ(freeSlot(), slot);
  platform::setThreadSlot(platform::ThreadSlot::kJavaEnv, nullptr);
  EXPECT_NE(freeSlot(), slot);
}

TEST(WindowsThread, SlotsBelongToTheThread) {
  using platform::ThreadSlot;
  int here = 0;
  platform::setThreadSlot(ThreadSlot::kJavaEnv, &here);
  std::thread([] { EXPECT_EQ(platform::threadSlot(ThreadSlot::kJavaEnv), nullptr); }).join();
  ::SetLastError(1234);
  EXPECT_EQ(platform::threadSlot(ThreadSlot::kJavaEnv), &here);
  EXPECT_EQ(::GetLastError(), 1234U);
  EXPECT_EQ(platform::threadSlot(ThreadSlot::kJniEnv), nullptr);
}

}  // namespace
