// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "doctor/probe.h"
#include "doctor/probe_lines.h"
#include "system/files.h"
#include "system/subprocess.h"

namespace kovctl {
namespace {

// The library searches for monitors for at most three minutes.
constexpr std::chrono::seconds kLongest{240};

struct Finished {
  std::string text;
  std::optional<int> status;  ///< absent: it had to be ended
};

Finished run(const std::string& what, const std::string& javaOptions) {
  using Clock = std::chrono::steady_clock;
  sys::Subprocess::Start start{{sys::executable(), "doctor", "--probe", what}, {}, false};
  if (!javaOptions.empty()) {
    const char* const before = std::getenv("JAVA_TOOL_OPTIONS");
    start.environment.emplace_back(
        "JAVA_TOOL_OPTIONS",
        before == nullptr ? javaOptions : std::string(before) + " " + javaOptions);
  }
  sys::Subprocess process(start);
  process.closeInput();
  Finished result;
  const auto end = Clock::now() + kLongest;
  while (Clock::now() < end) {
    const auto read = process.read(result.text, std::chrono::milliseconds(200));
    if (read == sys::Subprocess::Read::kEnd) {
      result.status = process.wait(std::chrono::seconds(5));
      break;
    }
  }
  return result;
}

std::string endText(const Finished& result, const std::vector<std::string>& lines) {
  std::string text =
      !result.status ? "did not end" : "ended with " + std::to_string(*result.status);
  if (!lines.empty()) text += ": " + lines.front();
  return text;
}

}  // namespace

void checkJava(CheckList& list) {
  const Finished result = run("java", "");
  const ProbeOutput output = parseProbe(result.text);
  for (const Check& check : output.checks) list.add(check);
  if (!output.openId.empty()) {
    list.fail(output.openId, output.openTitle, "the process " + endText(result, output.otherLines),
              "look at JAVA_TOOL_OPTIONS, memory and the Java runtime");
  } else if (output.checks.empty()) {
    list.fail("java-start", "Java start", "the process " + endText(result, output.otherLines),
              "see the checks above");
  }
}

void checkRoundTrip(CheckList& list) {
  const Finished result = run("round-trip", "-Xcheck:jni");
  const ProbeOutput output = parseProbe(result.text);
  const std::vector<std::string> complaints = jniComplaints(output.otherLines);
  if (!complaints.empty()) {
    list.warn("check-jni", "Round trip, -Xcheck:jni",
              std::to_string(complaints.size()) + " complaints: " + complaints.front(),
              "report it together with the versions of plug-ins and library");
  } else if (result.status != 0) {
    list.fail("check-jni", "Round trip, -Xcheck:jni",
              "the process " + endText(result, output.otherLines), "see the checks above");
  } else {
    list.ok("check-jni", "Round trip, -Xcheck:jni", "nothing to complain of");
  }
}

}  // namespace kovctl
