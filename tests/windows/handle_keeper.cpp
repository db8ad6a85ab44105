// SPDX-License-Identifier: MIT
#include "tests/windows/handle_keeper.h"

#include <l5kov.h>
#include <windows.h>

#include <optional>

extern "C" __declspec(dllimport) BOOLEAN NTAPI RtlDllShutdownInProgress(void);

namespace {

struct Keeper {
  ~Keeper() {
    if (!handle) return;
    handle.reset();
    appendLine(logFile, othersAreGone() ? "handle released alone" : "handle released early");
  }
  std::optional<lumora::Monitor> handle;
  std::string logFile;
};

Keeper keeper;

}  // namespace

void keepHandle(const std::string& logFile) {
  keeper.handle = lumora::kov::KovMonitorManager::get().getMonitors().at(0);
  keeper.logFile = logFile;
}

void appendLine(const std::string& logFile, const std::string& line) {
  const HANDLE file = ::CreateFileA(logFile.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  const std::string text = line + "\n";
  DWORD count = 0;
  ::WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
  ::CloseHandle(file);
}

bool othersAreGone() { return ::RtlDllShutdownInProgress() != FALSE; }
