// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "commands/commands.h"
#include "monitors/found_monitors.h"
#include "output/table.h"
#include "record/display_functions.h"
#include "run/trend.h"

namespace kovctl {
namespace {

using lumora::kov::KovCalibrationHisInfo;

const char* functionName(int code) {
  const auto functions = displayFunctions();
  const bool isKnown = displayFunctionOf(code).has_value();
  return isKnown ? functions[static_cast<std::size_t>(code)].text : "unknown";
}

Json jsonOf(const KovCalibrationHisInfo& entry) {
  return {{"lut", entry.lutNumber - 1},
          {"date", entry.run.executeDate},
          {"performer", entry.run.performer},
          {"computer", entry.run.computerName},
          {"workingHours", entry.run.workingHours},
          {"function", functionName(entry.target.displayFunction)},
          {"gamma", entry.target.gammaValue},
          {"lmax", entry.target.maxLuminance},
          {"lmin", entry.target.minLuminance},
          {"white", entry.target.colorMode},
          {"whiteX", entry.target.colorX},
          {"whiteY", entry.target.colorY},
          {"ambient", entry.target.ambientLight},
          {"backlightSensor", entry.backlightSensorValue},
          {"deviceId", entry.target.deviceId},
          {"deviceSerial", entry.target.deviceSerialNumber}};
}

std::vector<std::string> cellsOf(const KovCalibrationHisInfo& entry) {
  const auto& target = entry.target;
  return {entry.run.executeDate,
          std::to_string(entry.lutNumber - 1),
          functionName(target.displayFunction),
          target.maxLuminance > 0.0
              ? fmt::format("{:.4g} to {:.4g}", target.minLuminance, target.maxLuminance)
              : "-",
          std::to_string(entry.run.workingHours),
          std::to_string(entry.backlightSensorValue),
          target.deviceSerialNumber.empty() ? "-" : target.deviceSerialNumber,
          entry.run.performer};
}

Json trendJson(const Trend& trend) {
  return {
      {"points", trend.points},
      {"first", trend.first},
      {"last", trend.last},
      {"perThousandHours", trend.perThousandHours ? Json(*trend.perThousandHours) : Json(nullptr)}};
}

void sayTrends(Context& context, const std::vector<KovCalibrationHisInfo>& entries, Json& all) {
  for (const auto& [lut, points] : sensorPoints(entries)) {
    const auto trend = trendOf(points);
    if (!trend) continue;
    context.out().print(fmt::format("\nLook-up table {}: {}\n", lut, trendText(*trend, points)));
    Json one{{"lut", lut}};
    one.update(trendJson(*trend));
    all.push_back(one);
  }
}

ExitCode history(Context& context, const std::string& wanted, std::optional<int> lut) {
  const ChosenMonitor chosen = chooseMonitor(context, wanted);
  std::vector<KovCalibrationHisInfo> entries = chosen.monitor.getExtractCalibrationData();
  if (lut) std::erase_if(entries, [&](const auto& entry) { return entry.lutNumber != *lut + 1; });
  std::stable_sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
    return a.run.executeDate > b.run.executeDate;
  });
  Table table({{"Date"},
               {"LUT", Table::Align::kRight},
               {"Function"},
               {"cd/m²", Table::Align::kRight},
               {"Hours", Table::Align::kRight},
               {"Sensor", Table::Align::kRight},
               {"Instrument"},
               {"Performer"}});
  Json list = Json::array();
  for (const auto& entry : entries) {
    table.add(cellsOf(entry));
    list.push_back(jsonOf(entry));
    Json event{{"event", "calibration"}};
    event.update(list.back());
    context.out().event(event);
  }
  if (table.isEmpty()) context.out().note("The monitor remembers no calibration.");
  if (!table.isEmpty()) context.out().print(table.text());
  Json trends = Json::array();
  sayTrends(context, entries, trends);
  Json document = documentOf("history");
  document["monitor"] = chosen.name.text();
  document["entries"] = list;
  document["backlightTrends"] = trends;
  context.out().document(document);
  return ExitCode::kOk;
}

}  // namespace

void addHistoryCommand(CLI::App& program, Context& context) {
  CLI::App* const command = program.add_subcommand(
      "history", "Show the calibrations that a monitor remembers, with a trend");
  const auto wanted = std::make_shared<std::string>();
  const auto lut = std::make_shared<std::optional<int>>();
  addMonitorOption(*command, *wanted);
  command->add_option("--lut", *lut, "Only this look-up table, counted from 0")
      ->type_name("N")
      ->check(CLI::Range(0, 65534));
  command->callback([&context, wanted, lut] {
    context.command = [&context, wanted, lut] { return history(context, *wanted, *lut); };
  });
}

}  // namespace kovctl
