// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "commands/commands.h"
#include "monitors/found_monitors.h"
#include "monitors/java_start.h"
#include "monitors/run_lock.h"
#include "output/table.h"

namespace kovctl {
namespace {

struct Line {
  Json json;
  std::vector<std::string> cells;
};

Line lineOf(const lumora::Monitor& monitor, const MonitorName& name, std::size_t number) {
  const bool isMonochrome = monitor.getMonitorColorType() == OmCtrlPanelMonochrome;
  const std::string color = isMonochrome ? "monochrome" : "color";
  const std::string connection = monitor.getConnectionType();
  const std::string package = monitor.getPackageName();
  const auto hours = monitor.getUsageTime().workingHours;
  const unsigned mode = monitor.getCalModeValue();
  const MonitorUse use = MonitorUse::of(name);
  Line line;
  line.json = {{"number", number},
               {"name", name.text()},
               {"model", name.model},
               {"serial", name.serial},
               {"colorType", color},
               {"connection", connection},
               {"package", package},
               {"workingHours", hours},
               {"activeLut", mode},
               {"runUnderWay", use.underWay},
               {"pendingRestore", use.pending ? Json(*use.pending) : Json(nullptr)}};
  line.cells = {
      std::to_string(number), name.model,          name.serial, color, connection, package,
      std::to_string(hours),  std::to_string(mode)};
  return line;
}

void sayUses(Context& context, const std::vector<Candidate>& monitors) {
  for (const Candidate& monitor : monitors) {
    if (monitor.silence) continue;
    const std::string sentence = MonitorUse::of(monitor.name).sentence(monitor.name);
    if (!sentence.empty()) context.out().warn(sentence);
  }
}

ExitCode list(Context& context) {
  FoundMonitors found = findMonitors(context);
  Table table({{"No", Table::Align::kRight},
               {"Model"},
               {"Serial"},
               {"Type"},
               {"Connection"},
               {"Package"},
               {"Hours", Table::Align::kRight},
               {"LUT", Table::Align::kRight}});
  Json monitors = Json::array();
  for (std::size_t i = 0; i < found.monitors.size(); ++i) {
    if (found.names[i].silence) continue;
    const MonitorName& name = found.names[i].name;
    try {
      Line line = lineOf(found.monitors[i], name, i + 1);
      Json event{{"event", "monitor"}};
      event.update(line.json);
      context.out().event(event);
      monitors.push_back(std::move(line.json));
      table.add(std::move(line.cells));
    } catch (const lumora::kov::java::JavaException& exception) {
      // One that answers in part only hides no other.
      found.silent = exitCodeOf(exception);
      context.out().warn(name.text() + " does not answer: " + textOf(exception));
    }
  }
  if (table.isEmpty()) context.out().note("No monitor is attached, or none that answers.");
  if (!table.isEmpty()) context.out().print(table.text());
  sayUses(context, found.names);
  Json document = documentOf("list");
  document["monitors"] = monitors;
  context.out().document(document);
  return found.silent;
}

}  // namespace

void addListCommand(CLI::App& program, Context& context) {
  CLI::App* const command = program.add_subcommand("list", "List the attached monitors");
  command->callback([&context] { context.command = [&context] { return list(context); }; });
}

void addMonitorOption(CLI::App& command, std::string& monitor) {
  command
      .add_option(
          "-m,--monitor", monitor,
          "MODEL:SERIAL or a beginning that fits one only, or the number in \"kovctl list\"")
      ->type_name("MONITOR")
      // An unset variable of a script must not mean "whichever there is".
      ->check([](const std::string& text) {
        return text.empty() ? std::string("a monitor is needed") : std::string();
      });
}

}  // namespace kovctl
