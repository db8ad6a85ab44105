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
    try {
      found.names.push_back({monitor.getModelName(), monitor.getSerialNumber()});
      found.monitors.push_back(monitor);
    } catch (const lumora::kov::java::JavaException& exception) {
      found.silent = exitCodeOf(exception);
      context.out().warn("a monitor does not answer: " + textOf(exception));
    }
  }
  context.out().detail(fmt::format("{} monitors found", found.names.size()));
  return found;
}

namespace {

std::vector<std::string> list(const std::vector<MonitorName>& names) {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < names.size(); ++i) {
    lines.push_back(fmt::format("{}  {}", i + 1, names[i].text()));
  }
  return lines;
}

std::string ask(Context& context, const std::vector<MonitorName>& names) {
  for (const std::string& line : list(names)) context.out().note(line);
  context.out().raw(fmt::format("Which monitor (1 to {})? ", names.size()));
  std::string answer;
  if (!sys::readLine(answer) || answer.empty()) {
    throw Failure(ExitCode::kMonitor, "no monitor was chosen");
  }
  return answer;
}

}  // namespace

ChosenMonitor chooseMonitor(Context& context, const std::string& wanted) {
  const FoundMonitors found = findMonitors(context);
  std::size_t chosen = 0;
  if (!wanted.empty()) {
    chosen = selectMonitor(found.names, wanted);
  } else if (found.names.size() > 1 && context.isInteractive()) {
    chosen = selectMonitor(found.names, ask(context, found.names));
  } else if (found.names.size() > 1) {
    throw Failure(ExitCode::kMonitor, "several monitors are attached: choose one with -m",
                  list(found.names));
  } else {
    chosen = selectMonitor(found.names, "1");
  }
  return {found.monitors[chosen], found.names[chosen], chosen + 1};
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
