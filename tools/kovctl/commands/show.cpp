// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "commands/commands.h"
#include "monitors/found_monitors.h"
#include "monitors/run_lock.h"
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

/// What there is to say about a monitor, asked once.
struct Shown {
  std::size_t number;
  unsigned mode;
  MonitorInfo info;
  std::size_t historyEntries;
  std::optional<TargetRequest> target;
  pocketjson::Value stored;  ///< the same as the monitor keeps it
  MonitorUse use;
  std::string lock;
};

Shown ask(const ChosenMonitor& chosen) {
  const lumora::Monitor& monitor = chosen.monitor;
  const unsigned mode = monitor.getCalModeValue();
  return {chosen.number,
          mode,
          monitorInfo(monitor, chosen.name, static_cast<int>(mode)),
          monitor.getExtractCalibrationData().size(),
          storedTarget(monitor, static_cast<int>(mode)),
          monitor.getCalibrationTargetData(mode),
          MonitorUse::of(chosen.name),
          lockText(monitor)};
}

std::string textOf(const Shown& shown) {
  const MonitorInfo& info = shown.info;
  return properties({
      {"Number", std::to_string(shown.number)},
      {"Model", info.model},
      {"Serial number", info.serial},
      {"Package", info.package},
      {"EDID", fmt::format("{} {}, made in {}", info.edid->model, info.edid->serial,
                           info.edid->year.value_or(0))},
      {"Type", info.colorType},
      {"Connection", info.connection},
      {"Working time", fmt::format("{} h", info.workingHours.value_or(0))},
      {"Keys", shown.lock},
      {"Active look-up table", std::to_string(shown.mode)},
      {"Calibrated for",
       shown.target ? describe(shown.target->target) : "nothing that the monitor remembers"},
      {"Calibrations kept", std::to_string(shown.historyEntries)},
  });
}

Json documentOf(const Shown& shown) {
  const MonitorInfo& info = shown.info;
  Json document = kovctl::documentOf("show");
  document["number"] = shown.number;
  document["model"] = info.model;
  document["serial"] = info.serial;
  document["package"] = info.package;
  document["edid"] = {{"model", info.edid->model},
                      {"serial", info.edid->serial},
                      {"year", info.edid->year.value_or(0)}};
  document["colorType"] = info.colorType;
  document["connection"] = info.connection;
  document["workingHours"] = info.workingHours.value_or(0);
  document["keys"] = shown.lock;
  document["activeLut"] = shown.mode;
  document["target"] = targetJson(shown.stored);
  document["historyEntries"] = shown.historyEntries;
  const MonitorUse& use = shown.use;
  document["runUnderWay"] = use.underWay;
  document["pendingRestore"] = use.pending ? Json(*use.pending) : Json(nullptr);
  return document;
}

ExitCode show(Context& context, const std::string& wanted) {
  const ChosenMonitor chosen = chooseMonitor(context, wanted);
  const Shown shown = ask(chosen);
  context.out().print(textOf(shown));
  const std::string sentence = shown.use.sentence(chosen.name);
  if (!sentence.empty()) context.out().warn(sentence);
  context.out().document(documentOf(shown));
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
