// SPDX-License-Identifier: MIT
#include "system/files.h"

#include <windows.h>
//
#include <shlobj.h>

#include <algorithm>
#include <stdexcept>

#include "system/windows/wide_text.h"

namespace kovctl::sys {
namespace {

[[noreturn]] void fail(const std::string& path, DWORD error) {
  throw std::runtime_error(path + ": " + reasonOf(error));
}

HANDLE openForWriting(const std::wstring& path, DWORD disposition) {
  return ::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, disposition,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The error, or ERROR_SUCCESS.
DWORD writeAll(HANDLE file, std::string_view content) {
  while (!content.empty()) {
    DWORD count = 0;
    const auto piece = static_cast<DWORD>(std::min<std::size_t>(content.size(), 1U << 24));
    if (!::WriteFile(file, content.data(), piece, &count, nullptr)) return ::GetLastError();
    content.remove_prefix(count);
  }
  return ERROR_SUCCESS;
}

void writeInPlace(const std::string& path, std::string_view content) {
  const HANDLE file = openForWriting(wide(path), OPEN_EXISTING);
  if (file == INVALID_HANDLE_VALUE) fail(path, ::GetLastError());
  const DWORD error = writeAll(file, content);
  ::CloseHandle(file);
  if (error != ERROR_SUCCESS) fail(path, error);
}

DWORD attributesOf(const std::string& path) {
  return ::GetFileAttributesW(wide(path).c_str());
}

}  // namespace

void writeWhole(const std::string& path, std::string_view content) {
  if (isDevice(path)) return writeInPlace(path, content);
  const std::wstring place = wide(path);
  const std::wstring beside = place + L"." + std::to_wstring(::GetCurrentProcessId()) + L".new";
  const HANDLE file = openForWriting(beside, CREATE_ALWAYS);
  if (file == INVALID_HANDLE_VALUE) fail(path, ::GetLastError());
  DWORD error = writeAll(file, content);
  if (error == ERROR_SUCCESS && !::FlushFileBuffers(file)) error = ::GetLastError();
  ::CloseHandle(file);
  constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  if (error == ERROR_SUCCESS && !::MoveFileExW(beside.c_str(), place.c_str(), kHow)) {
    error = ::GetLastError();
  }
  if (error == ERROR_SUCCESS) return;
  ::DeleteFileW(beside.c_str());
  fail(path, error);
}

void tryWriting(const std::string& path) {
  for (int i = 0;; ++i) {
    const std::wstring beside = wide(path) + L"." + std::to_wstring(::GetCurrentProcessId()) +
                                L"-" + std::to_wstring(i);
    const HANDLE file = ::CreateFileW(beside.c_str(), GENERIC_WRITE | DELETE, 0, nullptr,
                                      CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_FILE_EXISTS) continue;
    if (file == INVALID_HANDLE_VALUE) fail(path, ::GetLastError());
    ::CloseHandle(file);
    return;
  }
}

std::optional<std::string> readWhole(const std::string& path) {
  const HANDLE file = ::CreateFileW(wide(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  std::string content;
  std::string buffer(65536, '\0');
  DWORD count = 0;
  bool read = false;
  while ((read = ::ReadFile(file, buffer.data(), 65536, &count, nullptr) != 0) && count > 0) {
    content.append(buffer, 0, count);
  }
  const bool atEnd = read || ::GetLastError() == ERROR_BROKEN_PIPE;
  ::CloseHandle(file);
  if (!atEnd) return std::nullopt;
  return content;
}

bool exists(const std::string& path) {
  return attributesOf(path) != INVALID_FILE_ATTRIBUTES;
}

bool isFolder(const std::string& path) {
  const DWORD attributes = attributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::optional<bool> isWritableByOthers(const std::string&) { return std::nullopt; }

bool isDevice(const std::string& path) {
  const HANDLE file = ::CreateFileW(wide(path).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  const bool device = ::GetFileType(file) != FILE_TYPE_DISK;
  ::CloseHandle(file);
  return device;
}

void removeFile(const std::string& path) {
  ::DeleteFileW(wide(path).c_str());
}

void makeFolder(const std::string& path) {
  if (path.empty() || isFolder(path)) return;
  const std::size_t separator = path.find_last_of("/\\");
  if (separator != std::string::npos && separator > 0) makeFolder(path.substr(0, separator));
  if (::CreateDirectoryW(wide(path).c_str(), nullptr)) return;
  const DWORD error = ::GetLastError();
  if (error != ERROR_ALREADY_EXISTS) fail(path, error);
}

// In the ANSI code page, as libl5kov asks.
std::string commonApplicationData() {
  char folder[MAX_PATH] = {};
  if (FAILED(
          ::SHGetFolderPathA(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder))) {
    return "";
  }
  wchar_t text[MAX_PATH] = {};
  ::MultiByteToWideChar(CP_ACP, 0, folder, -1, text, MAX_PATH);
  return narrow(text);
}

std::string commonApplicationDataSource() {
  return "the shell's";
}

// Also where it is missing: who writes there then learns of it. A user without one gets a name that
// cannot be made, and not a folder at the root of the drive.
std::string stateFolder() {
  wchar_t folder[MAX_PATH] = {};
  constexpr int kWhich = CSIDL_LOCAL_APPDATA | CSIDL_FLAG_DONT_VERIFY;
  ::SHGetFolderPathW(nullptr, kWhich, nullptr, SHGFP_TYPE_CURRENT, folder);
  return (folder[0] == L'\0' ? "?:" : narrow(folder)) + "\\kovctl";
}

std::string executable() {
  wchar_t path[32768];
  const DWORD length = ::GetModuleFileNameW(nullptr, path, 32768);
  return length > 0 ? narrow({path, length}) : "kovctl.exe";
}

std::string runtimeLibraryIn(const std::string& jre) {
  return jre + "\\bin\\server\\jvm.dll";
}
std::string meterLibraryName() {
  return "libmeter_x64.dll";
}
std::string chromaLibraryName() {
  return "libchroma_x64.dll";
}
std::string mainLibraryName() {
  return "kovctl-main.dll";
}

std::string hostName() {
  wchar_t name[256] = {};
  DWORD size = 256;
  return ::GetComputerNameExW(ComputerNamePhysicalDnsHostname, name, &size) ? narrow(name) : "";
}

std::string userName() {
  wchar_t name[257] = {};
  DWORD size = 257;
  return ::GetUserNameW(name, &size) ? narrow(name) : "";
}

}  // namespace kovctl::sys
