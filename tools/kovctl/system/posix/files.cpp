// SPDX-License-Identifier: MIT
#include "system/files.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace kovctl::sys {
namespace {

[[noreturn]] void fail(const std::string& path) {
  throw std::runtime_error(path + ": " + std::strerror(errno));
}

bool writeAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t count = ::write(file, content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

void writeInPlace(const std::string& path, std::string_view content) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (file < 0) fail(path);
  const bool written = writeAll(file, content);
  const int error = errno;
  ::close(file);
  errno = error;
  if (!written) fail(path);
}

// A rename is on the disk when its folder is.
void syncFolder(const std::string& folder) {
  const int number = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (number < 0) return;
  ::fsync(number);
  ::close(number);
}

// What a link points to is replaced, not the link.
std::string withoutLinks(const std::string& path) {
  char* const real = ::realpath(path.c_str(), nullptr);
  if (real == nullptr) return path;
  std::string result = real;
  ::free(real);
  return result;
}

void replaceFile(const std::string& path, std::string_view content, mode_t mode) {
  std::string beside = path + ".XXXXXX";
  const int file = ::mkostemp(beside.data(), O_CLOEXEC);
  if (file < 0) fail(path);
  bool done = ::fchmod(file, mode) == 0 && writeAll(file, content) && ::fsync(file) == 0;
  int error = errno;
  if (::close(file) != 0 && done) {
    done = false;
    error = errno;
  }
  if (done && ::rename(beside.c_str(), path.c_str()) != 0) {
    done = false;
    error = errno;
  }
  if (!done) {
    ::unlink(beside.c_str());
    errno = error;
    fail(path);
  }
  syncFolder(folderOf(path));
}

std::string environment(const char* name) {
  const char* value = ::secure_getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

void writeWhole(const std::string& path, std::string_view content) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    replaceFile(path, content, 0666 & ~mask);
  } else if (S_ISREG(status.st_mode)) {
    replaceFile(withoutLinks(path), content, status.st_mode & 0777);
  } else {
    writeInPlace(path, content);
  }
}

void tryWriting(const std::string& path) {
  std::string beside = withoutLinks(path) + ".XXXXXX";
  const int file = ::mkostemp(beside.data(), O_CLOEXEC);
  if (file < 0) fail(path);
  ::close(file);
  ::unlink(beside.c_str());
}

std::optional<std::string> readWhole(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return std::nullopt;
  std::string content;
  char buffer[65536];
  ssize_t count = 0;
  while ((count = ::read(file, buffer, sizeof buffer)) > 0 || (count < 0 && errno == EINTR)) {
    if (count > 0) content.append(buffer, static_cast<std::size_t>(count));
  }
  ::close(file);
  if (count < 0) return std::nullopt;
  return content;
}

bool exists(const std::string& path) {
  return ::access(path.c_str(), F_OK) == 0;
}

bool isFolder(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::optional<bool> isWritableByOthers(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return false;
  const bool byGroup = (status.st_mode & S_IWGRP) != 0 && status.st_gid != 0;
  return byGroup || (status.st_mode & S_IWOTH) != 0;
}

bool isDevice(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) &&
         !S_ISDIR(status.st_mode);
}

void removeFile(const std::string& path) {
  ::unlink(path.c_str());
}

void makeFolder(const std::string& path) {
  if (isFolder(path)) return;
  if (folderOf(path) != path && folderOf(path) != ".") makeFolder(folderOf(path));
  if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) fail(path);
}

std::string commonApplicationData() {
  const std::string chosen = environment("L5KOV_COMMON_APPDATA");
  return chosen.empty() ? "/usr/share" : chosen;
}

std::string commonApplicationDataSource() {
  return environment("L5KOV_COMMON_APPDATA").empty()
             ? "the system's; L5KOV_COMMON_APPDATA is not set"
             : "L5KOV_COMMON_APPDATA";
}

std::string stateFolder() {
  std::string base = environment("XDG_STATE_HOME");
  if (base.empty()) {
    std::string home = environment("HOME");
    const passwd* user = home.empty() ? ::getpwuid(::getuid()) : nullptr;
    if (user != nullptr) home = user->pw_dir;
    base = home + "/.local/state";
  }
  return base + "/kovctl";
}

std::string executable() {
  char buffer[PATH_MAX];
  const ssize_t size = ::readlink("/proc/self/exe", buffer, sizeof buffer);
  return size > 0 ? std::string(buffer, static_cast<std::size_t>(size)) : "kovctl";
}

std::string runtimeLibraryIn(const std::string& jre) {
  return jre + "/lib/server/libjvm.so";
}
std::string meterLibraryName() {
  return "libmeter_x64.so";
}
std::string chromaLibraryName() {
  return "libchroma_x64.so";
}
std::string mainLibraryName() {
  return "libkovctl-main.so";
}

std::string hostName() {
  char buffer[256] = {};
  return ::gethostname(buffer, sizeof buffer - 1) == 0 ? buffer : "";
}

std::string userName() {
  const passwd* user = ::getpwuid(::getuid());
  return user != nullptr ? user->pw_name : environment("USER");
}

}  // namespace kovctl::sys
