// SPDX-License-Identifier: MIT
#include "doctor/probe_lines.h"

#include "system/streams.h"

namespace kovctl {
namespace {

constexpr const char* kMark = "kovctl-probe ";

void print(const Json& json) {
  sys::write(sys::Stream::kOut,
             kMark + json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n");
}

CheckState stateOf(const std::string& name) {
  for (const CheckState state :
       {CheckState::kOk, CheckState::kWarn, CheckState::kFail, CheckState::kSkip}) {
    if (name == nameOf(state)) return state;
  }
  return CheckState::kFail;
}

void take(ProbeOutput& output, const Json& json) {
  if (json.contains("begin")) {
    output.openId = json.at("begin").get<std::string>();
    output.openTitle = json.at("title").get<std::string>();
    return;
  }
  output.checks.push_back({json.at("id"), json.at("title"), stateOf(json.at("state")),
                           json.at("found"), json.at("remedy")});
  output.openId.clear();
}

}  // namespace

void printProbeBegin(const std::string& id, const std::string& title) {
  print({{"begin", id}, {"title", title}});
}

void printProbeResult(const Check& check) {
  print({{"id", check.id},
         {"title", check.title},
         {"state", nameOf(check.state)},
         {"found", check.found},
         {"remedy", check.remedy}});
}

ProbeOutput parseProbe(std::string_view text) {
  ProbeOutput output;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    try {
      if (line.rfind(kMark, 0) == 0) {
        take(output, Json::parse(line.substr(std::string_view(kMark).size())));
      } else if (!line.empty()) {
        output.otherLines.push_back(line);
      }
    } catch (const Json::exception&) {
      output.otherLines.push_back(line);
    }
  }
  return output;
}

std::vector<std::string> jniComplaints(const std::vector<std::string>& lines) {
  std::vector<std::string> complaints;
  for (const std::string& line : lines) {
    // Later runtimes also warn of any jar that loads a native library, in lines "WARNING: ".
    for (const char* start : {"WARNING in native method", "WARNING: JNI", "FATAL ERROR"}) {
      if (line.rfind(start, 0) == 0) complaints.push_back(line);
    }
  }
  return complaints;
}

}  // namespace kovctl
