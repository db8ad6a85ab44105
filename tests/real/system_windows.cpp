// SPDX-License-Identifier: MIT
#include <windows.h>
//
#include <stdlib.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "tests/real/system.h"

namespace realtest::system {
namespace {

namespace fs = std::filesystem;

std::string native(fs::path path) { return path.make_preferred().string(); }

}  // namespace

fs::path makeFolder() {
  static int folders = 0;
  const fs::path folder =
      fs::temp_directory_path() /
      ("kov-real-" + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(++folders));
  fs::remove_all(folder);
  fs::create_directories(folder);
  return folder;
}

// In the process's own copy, and in those of the C runtimes: this program's, and the one that Java
// runtimes are made with.
void setVariable(const char* name, const std::string& value) {
  ::SetEnvironmentVariableA(name, value.c_str());
  ::_putenv_s(name, value.c_str());
  const HMODULE javas = ::LoadLibraryW(L"ucrtbase.dll");
  if (javas == nullptr) return;
  using PutEnv = int(__cdecl*)(const char*, const char*);
  const auto put =
      reinterpret_cast<PutEnv>(reinterpret_cast<void*>(::GetProcAddress(javas, "_putenv_s")));
  if (put != nullptr) put(name, value.c_str());
}

// Of the runtime's files second names, where both lie on one drive. Not of the jars: what another
// process holds open cannot be taken away by any of its names.
void copyInstallation(const fs::path& from, const fs::path& to) {
  for (auto entry = fs::recursive_directory_iterator(from); entry != fs::end(entry); ++entry) {
    const fs::path place = to / entry->path().lexically_relative(from);
    if (entry->path().filename() == "jre") {
      std::error_code otherDrive;
      fs::create_directories(place.parent_path());
      fs::copy(entry->path(), place,
               fs::copy_options::recursive | fs::copy_options::create_hard_links, otherDrive);
      if (otherDrive) fs::copy(entry->path(), place, fs::copy_options::recursive);
      entry.disable_recursion_pending();
    } else if (!entry->is_directory()) {
      fs::create_directories(place.parent_path());
      fs::copy_file(entry->path(), place);
    }
  }
}

fs::path runtimeLibrary() { return "bin/server/jvm.dll"; }

std::string as32Bits(std::string library) {
  std::int32_t header = 0;
  std::memcpy(&header, library.data() + offsetof(IMAGE_DOS_HEADER, e_lfanew), sizeof header);
  const WORD machine = IMAGE_FILE_MACHINE_I386;
  const auto at = static_cast<std::size_t>(header) + offsetof(IMAGE_NT_HEADERS64, FileHeader);
  library.replace(at, sizeof machine, reinterpret_cast<const char*>(&machine), sizeof machine);
  return library;
}

bool isRefusedForItsBits(const fs::path& library) {
  return ::LoadLibraryW(fs::path(library).make_preferred().c_str()) == nullptr &&
         ::GetLastError() == ERROR_BAD_EXE_FORMAT;
}

void* runtimeExport(const fs::path& jre, const char* symbol) {
  const fs::path library = fs::path(jre / runtimeLibrary()).make_preferred();
  const HMODULE module = ::LoadLibraryW(library.c_str());
  const FARPROC address = module == nullptr ? nullptr : ::GetProcAddress(module, symbol);
  if (address == nullptr) throw std::runtime_error("cannot load " + library.string());
  return reinterpret_cast<void*>(address);
}

std::string classPath(const fs::path& plugins) {
  return native(plugins / "com.orva.lumora.dataImport/external/dataImport.jar") + ";" +
         native(plugins / "com.orva.lumora.common.monitorcom.kov/external/KOVLibrary.jar") + ";";
}

std::string nativeLibraryPath(const fs::path& plugins) {
  return native(plugins / "com.orva.lumora.jre/jre/bin") + ";";
}

}  // namespace realtest::system
