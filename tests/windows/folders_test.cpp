// SPDX-License-Identifier: MIT
// The application-data folder as the shell tells it, seen through the shipped library: beyond
// ASCII, beyond the ANSI code page, missing, held by someone else. (The superuser of the system
// below Wine may read everything, so a file that may not be read is one that another program holds
// alone.)
#include <windows.h>
//

#include "tests/java/start_up_fixture.h"
#include "tests/monitor/name_table_fixture.h"

namespace {

namespace fs = std::filesystem;
using lumora::kov::java::Env;

constexpr const wchar_t* kInTheCodePage = L"Donn\u00e9es";
constexpr const wchar_t* kBeyondTheCodePage = L"\u30c7\u30fc\u30bf";

// Nobody else can open the file while this lives.
class HeldAlone {
 public:
  explicit HeldAlone(const fs::path& file)
      : handle(::CreateFileW(fs::path(file).make_preferred().c_str(), GENERIC_READ, 0, nullptr,
                             OPEN_EXISTING, 0, nullptr)) {}
  ~HeldAlone() { ::CloseHandle(handle); }
  HeldAlone(const HeldAlone&) = delete;
  HeldAlone& operator=(const HeldAlone&) = delete;
  bool isHeld() const { return handle != INVALID_HANDLE_VALUE; }

 private:
  HANDLE handle;
};

// A drive that nobody else uses (tests/windows/wine.sh makes it), empty at first, is the current
// one while this lives. What lies there stays: the process uses it to its end.
class SpareDrive {
 public:
  SpareDrive() : before(fs::current_path()) {
    std::error_code missing;
    fs::current_path(root(), missing);
    current = !missing;
    if (current) fs::remove_all(root() / "ORVA");
  }
  ~SpareDrive() { fs::current_path(before); }
  SpareDrive(const SpareDrive&) = delete;
  SpareDrive& operator=(const SpareDrive&) = delete;
  static fs::path root() { return "Y:\\"; }
  bool isCurrent() const { return current; }

 private:
  const fs::path before;
  bool current;
};

class WindowsStartUp : public kovtest::StartUpFailure {
 protected:
  // The fake runtime in an application-data folder of this name, which the shell then tells.
  fs::path layOutIn(const wchar_t* name) const {
    const fs::path library = layOut(root / name);
    kovtest::system::setRoot(root / name);
    return library;
  }
  static fs::path layOut(const fs::path& data) {
    const fs::path library =
        data / "ORVA/Lumora5/plugins/com.orva.lumora.jre" / kovtest::system::runtimeLibrary();
    fs::create_directories(library.parent_path());
    fs::copy_file(kovtest::PluginFolder::get().libraryFile(), library);
    return fs::path(library).make_preferred();
  }
};

TEST_F(WindowsStartUp, FindsTheRuntimeBelowAFolderBeyondAscii) {
  ASSERT_EQ(::GetACP(), 1252U);
  const fs::path library = layOutIn(kInTheCodePage);
  EXPECT_TRUE(Env()->hasClasses());
  EXPECT_NE(::GetModuleHandleW(library.c_str()), nullptr);
}

TEST_F(WindowsStartUp, FindsNothingBelowAFolderBeyondTheCodePage) {
  layOutIn(kBeyondTheCodePage);
  expectFailure();
}

TEST_F(WindowsStartUp, FailsWithoutAnApplicationDataFolder) {
  layOutIn(L"told before");
  ::SetEnvironmentVariableW(L"L5KOV_COMMON_APPDATA", (root / "missing").c_str());
  expectFailure();
}

// Kept: without the folder, paths begin at the root of the current drive.
TEST_F(WindowsStartUp, WithoutAnApplicationDataFolderTheDrivesRootServes) {
  const SpareDrive drive;
  ASSERT_TRUE(drive.isCurrent());
  layOut(SpareDrive::root());
  ::SetEnvironmentVariableW(L"L5KOV_COMMON_APPDATA", (root / "missing").c_str());
  EXPECT_TRUE(Env()->hasClasses());
}

TEST_F(WindowsStartUp, FailsWhenSomeoneElseHoldsTheRuntimeAlone) {
  const fs::path library = layOutIn(L"held");
  const HeldAlone held(library);
  ASSERT_TRUE(held.isHeld());
  expectFailure();
}

class WindowsNameTable : public kovtest::NameTable {
 protected:
  // A table in an application-data folder of this name, which the shell then tells.
  fs::path writeIn(const wchar_t* name) {
    using namespace kovtest;
    const fs::path data = jvm.root() / name;
    const fs::path at = data / "ORVA/Lumora5/Data/Profile" / file.filename();
    fs::create_directories(at.parent_path());
    std::ofstream(at, std::ios::binary) << table(package("Alpha", model("L5-X240")));
    system::setRoot(data);
    return at;
  }
};

TEST_F(WindowsNameTable, IsReadBelowAFolderBeyondAscii) {
  writeIn(kInTheCodePage);
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
}

TEST_F(WindowsNameTable, IsNotFoundBelowAFolderBeyondTheCodePage) {
  writeIn(kBeyondTheCodePage);
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
}

TEST_F(WindowsNameTable, IsNotFoundWithoutAnApplicationDataFolder) {
  write(kovtest::table(kovtest::package("Alpha", kovtest::model("L5-X240"))));
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
  ::SetEnvironmentVariableW(L"L5KOV_COMMON_APPDATA", (jvm.root() / "missing").c_str());
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
}

TEST_F(WindowsNameTable, ThatSomeoneElseHoldsAloneGivesNoPackageUntilItIsFree) {
  const fs::path at = writeIn(L"held");
  {
    const HeldAlone held(at);
    ASSERT_TRUE(held.isHeld());
    EXPECT_EQ(packageOf("L5-X240"), "noPackage");
  }
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
}

}  // namespace
