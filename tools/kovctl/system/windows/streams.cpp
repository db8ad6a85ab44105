// SPDX-License-Identifier: MIT
#include "system/streams.h"

#include <windows.h>
//
#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <mutex>

#include "system/windows/wide_text.h"

namespace kovctl::sys {
namespace {

constexpr DWORD kNames[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};

// Where standard output goes once it is prepared.
HANDLE resultStream = nullptr;

HANDLE handleOf(Stream stream) {
  if (stream == Stream::kOut && resultStream != nullptr) return resultStream;
  return ::GetStdHandle(kNames[static_cast<int>(stream)]);
}

bool isConsole(HANDLE handle) {
  DWORD mode = 0;
  return ::GetConsoleMode(handle, &mode) != 0;
}

// A console takes UTF-16 whatever its code page, in pieces: older ones refuse long texts.
bool writeToConsole(HANDLE console, std::string_view text) {
  std::wstring all = wide(text);
  std::wstring_view rest = all;
  while (!rest.empty()) {
    DWORD count = 0;
    const auto piece = static_cast<DWORD>(std::min<std::size_t>(rest.size(), 8192));
    if (!::WriteConsoleW(console, rest.data(), piece, &count, nullptr)) return false;
    rest.remove_prefix(count);
  }
  return true;
}

void openIfClosed(int number) {
  const HANDLE handle = ::GetStdHandle(kNames[number]);
  if (handle != nullptr && handle != INVALID_HANDLE_VALUE) return;
  const HANDLE nowhere =
      ::CreateFileW(L"NUL", number == 0 ? GENERIC_READ : GENERIC_WRITE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  ::SetStdHandle(kNames[number], nowhere);
}

// The numbers of the C runtimes: kovctl's own, and the one that Java runtimes are made with. The
// latter has taken the handle at its own start, which may have been the process's.
void turnOutputOver() {
  using Dup2 = int(__cdecl*)(int, int);
  ::_dup2(2, 1);
  const HMODULE javas = ::LoadLibraryW(L"ucrtbase.dll");
  if (javas == nullptr) return;
  const auto dup2 =
      reinterpret_cast<Dup2>(reinterpret_cast<void*>(::GetProcAddress(javas, "_dup2")));
  if (dup2 != nullptr) dup2(2, 1);
}

}  // namespace

// Java prints to the process's standard handles and the C runtimes to their own numbers; both are
// turned over to standard error.
void prepareStandardStreams() {
  for (int number = 0; number < 3; ++number) openIfClosed(number);
  const HANDLE process = ::GetCurrentProcess();
  const HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
  HANDLE kept = nullptr;
  if (::DuplicateHandle(process, output, process, &kept, 0, FALSE, DUPLICATE_SAME_ACCESS)) {
    resultStream = kept;
    // Stays open: closed by one C runtime, its value could come to be another file, into which any
    // other that has noted it would write.
    ::SetHandleInformation(output, HANDLE_FLAG_PROTECT_FROM_CLOSE, HANDLE_FLAG_PROTECT_FROM_CLOSE);
    ::SetStdHandle(STD_OUTPUT_HANDLE, ::GetStdHandle(STD_ERROR_HANDLE));
    turnOutputOver();
  }
}

Written write(Stream stream, std::string_view text) {
  // One each: output that nobody reads must not keep errors from being said.
  static std::mutex mutexes[3];
  const std::lock_guard lock(mutexes[static_cast<int>(stream)]);
  const HANDLE handle = handleOf(stream);
  if (isConsole(handle)) return writeToConsole(handle, text) ? Written::kAll : Written::kFailed;
  while (!text.empty()) {
    DWORD count = 0;
    const auto piece = static_cast<DWORD>(std::min<std::size_t>(text.size(), 1U << 20));
    if (!::WriteFile(handle, text.data(), piece, &count, nullptr)) {
      const DWORD error = ::GetLastError();
      const bool closed = error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA;
      return closed ? Written::kNobodyReads : Written::kFailed;
    }
    text.remove_prefix(count);
  }
  return Written::kAll;
}

namespace {

// Whether a read would not wait: a pipe tells how much it holds, a console is an event, and a file
// never waits.
bool inputIsReady(HANDLE input, DWORD milliseconds) {
  DWORD waiting = 0;
  if (::GetFileType(input) != FILE_TYPE_PIPE) {
    return !isConsole(input) || ::WaitForSingleObject(input, milliseconds) == WAIT_OBJECT_0;
  }
  if (!::PeekNamedPipe(input, nullptr, 0, nullptr, &waiting, nullptr)) return true;  // its end
  if (waiting == 0) ::Sleep(milliseconds);
  return waiting > 0;
}

}  // namespace

bool readLine(std::string& line, const std::function<bool()>& mustStop) {
  constexpr DWORD kSliceMilliseconds = 50;
  const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
  line.clear();
  while (!mustStop()) {
    if (!inputIsReady(input, kSliceMilliseconds)) continue;
    char c = 0;
    DWORD count = 0;
    if (!::ReadFile(input, &c, 1, &count, nullptr) || count == 0) return !line.empty();
    if (c == '\n') {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      return true;
    }
    line += c;
  }
  return false;
}

bool isTerminal(Stream stream) {
  return isConsole(handleOf(stream));
}

int terminalWidth(Stream stream, int otherwise) {
  CONSOLE_SCREEN_BUFFER_INFO info = {};
  if (!::GetConsoleScreenBufferInfo(handleOf(stream), &info)) return otherwise;
  return info.srWindow.Right - info.srWindow.Left + 1;
}

}  // namespace kovctl::sys
