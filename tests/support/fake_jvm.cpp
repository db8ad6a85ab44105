// SPDX-License-Identifier: MIT
#include "tests/support/fake_jvm.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/plugin_folder.h"

namespace kovtest {
namespace {

std::string joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += "\n  " + line;
  return text;
}

}  // namespace

Lines Log::startingWith(const std::string& prefix) const {
  Lines result;
  for (const std::string& line : lines()) {
    if (line.rfind(prefix, 0) == 0) result.push_back(line);
  }
  return result;
}

Lines Log::javaCalls() const {
  Lines result;
  for (const std::string& line : startingWith("Call")) {
    result.push_back(line.substr(line.find(' ') + 1));
  }
  return result;
}

int Log::indexOf(const std::string& line) const {
  const Lines all = lines();
  const auto found = std::find(all.begin(), all.end(), line);
  return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

bool Log::contains(const std::string& line) const { return indexOf(line) >= 0; }

void PrintTo(const Log& log, std::ostream* out) { *out << joined(log.lines()); }

FakeJvm::FakeJvm() : runtime(PluginFolder::get().runtime()), log(runtime) { runtime.reset(); }

FakeJvm::~FakeJvm() {
  runtime.onCall(nullptr);
  if (const Lines problems = runtime.problems(); !problems.empty()) {
    ADD_FAILURE() << "problems:" << joined(problems);
  }
  const Lines warnings = runtime.xcheckWarnings();
  if (!warnings.empty() && !xcheckAllowed && !runtime.disturbed()) {
    ADD_FAILURE() << "-Xcheck:jni would warn:" << joined(warnings);
  }
  if (const Lines left = runtime.liveGlobalRefNames();
      left.size() != static_cast<std::size_t>(globalRefsLeft)) {
    ADD_FAILURE() << left.size() << " global references left, not " << globalRefsLeft << ":"
                  << joined(left);
  }
  EXPECT_EQ(runtime.outstandingUtf(), 0) << "UTF characters not released";
  EXPECT_EQ(runtime.localFrameDepth(), 0) << "local frames not popped";
  if (const fakejvm::ObjectRef pending = runtime.pendingException(); pending && !pendingAllowed) {
    ADD_FAILURE() << "exception left pending: " << pending->className << " \""
                  << pending->field("message").asText() << "\"";
  }
}

const std::filesystem::path& FakeJvm::root() const { return PluginFolder::get().root(); }
std::filesystem::path FakeJvm::plugins() const { return PluginFolder::get().plugins(); }
std::filesystem::path FakeJvm::libraryFile() const { return PluginFolder::get().libraryFile(); }

jobject FakeJvm::local(const std::string& name) {
  const fakejvm::ObjectRef object = runtime.find(name);
  if (!object) ADD_FAILURE() << "no object is named " << name;
  env();
  return runtime.local(object);
}

JNIEnv* FakeJvm::env() {
  if (!runtime.vmExists()) runtime.preCreateVm();
  return runtime.attachThread();
}

}  // namespace kovtest
