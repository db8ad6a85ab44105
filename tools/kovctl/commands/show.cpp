// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "commands/commands.h"
#include "monitors/found_monitors.h"
#include "monitors/mode_note.h"
#include "output/table.h"
#include "run/stored_target.h"

namespace kovctl {
namespace {

Json targetJson(const pocketjson::Value& stored) {
  if (stored.type() == pocketjson::Value::Null) return nullptr;
  return {{"lmax", stored["lmax"].asDouble()},
          {"lmin", stored["lmin"].asDouble()},
          {"isColorValue", stored["isColorValue"].asBool()},
          {"colorX", stored["colorX"].asDouble()},
          {"colorY", stored["colorY"].asDouble()},
          {"lamb", stored["lamb"].asDouble()},
          {"useLminFlag", stored["useLminFlag"].asBool()},
          {"exp", stored["exp"].asDouble()},
          {"displayFunction", stored["displayFunction"].asInt()}};
}

std::string lockText(const lumora::Monitor& monitor) {
  if (!monitor.isKeyLockSupported()) return "not lockable";
  return monitor.getKeyLockState() == OmCtrlKeyLockLocked ? "locked" : "unlocked";
}

ExitCode show(Context& context, const std::string& wanted) {
  const ChosenMonitor chosen = chooseMonitor(context, wanted);
  const lumora::Monitor& monitor = chosen.monitor;
  const unsigned mode = monitor.getCalModeValue();
  const MonitorInfo info = monitorInfo(monitor, chosen.name, static_cast<int>(mode));
  const auto history = monitor.getExtractCalibrationData().size();
  const auto target = storedTarget(monitor, static_cast<int>(mode));
  const auto left = ModeNote::read(chosen.name);
  const std::string lock = lockText(monitor);

  context.out().print(properties({
      {"Number", std::to_string(chosen.number)},
      {"Model", info.model},
      {"Serial number", info.serial},
      {"Package", info.package},
      {"EDID", fmt::format("{} {}, made in {}", info.edid->model, info.edid->serial,
                           info.edid->year.value_or(0))},
      {"Type", info.colorType},
      {"Connection", info.connection},
      {"Working time", fmt::format("{} h", info.workingHours.value_or(0))},
      {"Keys", lock},
      {"Active look-up table", std::to_string(mode)},
      {"Calibrated for", target ? describe(target->target) : "nothing that the monitor remembers"},
      {"Calibrations kept", std::to_string(history)},
  }));
  if (left) context.out().warn(ModeNote{chosen.name.text(), *left}.sentence());
  Json document = documentOf("show");
  document["number"] = chosen.number;
  document["model"] = info.model;
  document["serial"] = info.serial;
  document["package"] = info.package;
  document["edid"] = {{"model", info.edid->model},
                      {"serial", info.edid->serial},
                      {"year", info.edid->year.value_or(0)}};
  document["colorType"] = info.colorType;
  document["connection"] = info.connection;
  document["workingHours"] = info.workingHours.value_or(0);
  document["keys"] = lock;
  document["activeLut"] = mode;
  document["target"] = targetJson(monitor.getCalibrationTargetData(mode));
  document["historyEntries"] = history;
  document["pendingRestore"] = left ? Json(*left) : Json(nullptr);
  context.out().document(document);
  return ExitCode::kOk;
}

}  // namespace

void addShowCommand(CLI::App& program, Context& context) {
  CLI::App* const command = program.add_subcommand("show", "Show everything about one monitor");
  const auto wanted = std::make_shared<std::string>();
  addMonitorOption(*command, *wanted);
  command->callback([&context, wanted] {
    context.command = [&context, wanted] { return show(context, *wanted); };
  });
}

}  // namespace kovctl
