// SPDX-License-Identifier: MIT
#include "monitors/found_monitors.h"

#include <fmt/format.h>

#include "failure.h"
#include "monitors/java_start.h"
#include "system/streams.h"

namespace kovctl {

FoundMonitors findMonitors(Context& context) {
  startJava();
  context.out().detail("searching for monitors");
  auto& manager = lumora::kov::KovMonitorManager::get();
  manager.find();
  FoundMonitors found;
  for (const lumora::Monitor& monitor : manager.getMonitors()) {
    const std::size_t number = found.monitors.size() + 1;
    found.monitors.push_back(monitor);
    try {
      found.names.push_back(
          {MonitorName{monitor.getModelName(), monitor.getSerialNumber()}, std::nullopt});
    } catch (const lumora::kov::java::JavaException& exception) {
      found.silent = exitCodeOf(exception);
      const std::string sentence =
          fmt::format("monitor {} does not answer: {}", number, textOf(exception));
      found.names.push_back({MonitorName(), Failure(found.silent, sentence)});
      context.out().warn(sentence);
    }
  }
  context.out().detail(fmt::format("{} monitors found", found.names.size()));
  return found;
}

namespace {

std::string ask(Context& context, const std::vector<Candidate>& names) {
  for (const std::string& line : listed(names)) context.out().note(line);
  context.out().question(fmt::format("Which monitor (1 to {})? ", names.size()));
  std::string answer;
  if (!sys::readLine(answer) || answer.empty()) {
    throw Failure(ExitCode::kMonitor, "no monitor was chosen");
  }
  return answer;
}

}  // namespace

ChosenMonitor chooseMonitor(Context& context, const std::string& wanted) {
  const FoundMonitors found = findMonitors(context);
  const bool mayAsk = wanted.empty() && found.names.size() > 1 && context.isInteractive();
  const std::string answer = mayAsk ? ask(context, found.names) : wanted;
  const std::size_t chosen =
      answer.empty() ? onlyMonitor(found.names) : selectMonitor(found.names, answer);
  return {found.monitors[chosen], found.names[chosen].name, chosen + 1};
}

MonitorInfo monitorInfo(const lumora::Monitor& monitor, const MonitorName& name, int lut) {
  MonitorInfo info;
  info.model = name.model;
  info.serial = name.serial;
  info.edid = Edid{monitor.getEdidModelName(), monitor.getEdidSerialNumber(),
                   static_cast<int>(monitor.getEdidProductYear())};
  info.package = monitor.getPackageName();
  info.colorType = monitor.getMonitorColorType() == OmCtrlPanelMonochrome ? "monochrome" : "color";
  info.connection = monitor.getConnectionType();
  info.workingHours = monitor.getUsageTime().workingHours;
  info.lutIndex = lut;
  return info;
}

}  // namespace kovctl
