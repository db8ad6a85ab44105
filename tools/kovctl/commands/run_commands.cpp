// SPDX-License-Identifier: MIT
#include "commands/commands.h"
#include "metrics/limits.h"
#include "run/run.h"
#include "system/files.h"

namespace kovctl {
namespace {

void addTargetOptions(CLI::App& command, TargetFlags& flags) {
  const char* const group = "Target";
  command.add_option("--target", flags.file, "Target file (JSON in the library's own keys)")
      ->type_name("FILE")
      ->group(group);
  command
      .add_option("--function", flags.function,
                  "dicom, cie, gamma:EXPONENT, loglinear, linear, native or user")
      ->type_name("NAME")
      ->group(group);
  command.add_option("--lmax", flags.lmax, "Luminance of white, cd/m²; 0: the panel's own (250)")
      ->type_name("CD/M2")
      ->group(group);
  command.add_option("--lmin", flags.lmin, "Luminance of black, cd/m², or measured (measured)")
      ->type_name("CD/M2")
      ->group(group);
  command.add_option("--white", flags.white, "White point: K6500, x,y or off (off)")
      ->type_name("WHITE")
      ->group(group);
  command.add_option("--ambient", flags.ambient, "Light of the room on the screen, cd/m², or off")
      ->type_name("CD/M2")
      ->group(group);
  command
      .add_option("--levels", flags.levels,
                  "Gray levels to measure, 3 to 256; 0: the library's choice (52)")
      ->type_name("COUNT")
      ->group(group);
}

void addInstrumentOptions(CLI::App& command, RunOptions& options) {
  const char* const group = "Instrument";
  command.add_option("--instrument", options.instrument.choice, "sim, argyll or icc:FILE (sim)")
      ->type_name("NAME")
      ->group(group);
  command
      .add_option("--argyll-port", options.instrument.argyllPort,
                  "Number of the instrument in spotread's list")
      ->type_name("N")
      ->group(group);
  command
      .add_option("--icc-white", options.instrument.iccWhite,
                  "White of the ICC profile, cd/m² (300)")
      ->type_name("CD/M2")
      ->check(CLI::PositiveNumber)
      ->group(group);
  command
      .add_option("--icc-black", options.instrument.iccBlack,
                  "Black of the ICC profile, cd/m² (0.3)")
      ->type_name("CD/M2")
      ->check(CLI::NonNegativeNumber)
      ->group(group);
  command
      .add_option("--timeout", options.instrument.timeout,
                  "Longest time for one measurement, s (60)")
      ->type_name("S")
      ->check(CLI::PositiveNumber)
      ->group(group);
}

void addScreenOptions(CLI::App& command, RunOptions& options) {
  const char* const group = "Instrument";
  command
      .add_option("--display", options.screen.choice,
                  "Draw the patches: fullscreen, or WIDTHxHEIGHT for a window")
      ->type_name("SIZE")
      ->group(group);
  command.add_option("--display-number", options.screen.display, "Display to draw on, from 0 (0)")
      ->type_name("N")
      ->check(CLI::NonNegativeNumber)
      ->group(group);
  command
      .add_option("--settle", options.screen.settleSeconds,
                  "Time from drawing to measuring, s (0.3)")
      ->type_name("S")
      ->check(CLI::NonNegativeNumber)
      ->group(group);
}

void addResultOptions(CLI::App& command, RunOptions& options, RunKind kind) {
  const char* const group = "Result";
  options.limits = std::string(kDefaultLimits);
  command
      .add_option("--limits", options.limits,
                  "Profile of limits that decides (those of DIN only inform), or none (" +
                      options.limits + ")")
      ->type_name("NAME")
      ->group(group);
  // A run that only measures measures something.
  const bool measuresOnly = kind == RunKind::kVerify;
  command
      .add_option("--points", options.checkPoints,
                  measuresOnly ? "Gray levels to measure: 52 or 18 (52)"
                               : "Gray levels of the check: 52, 18 or 0 (52)")
      ->type_name("COUNT")
      ->check(measuresOnly ? CLI::IsMember({kInformingPoints, kDecidingPoints})
                           : CLI::IsMember({kInformingPoints, kDecidingPoints, 0}))
      ->group(group);
  options.operatorName = sys::userName();
  command
      .add_option("--operator", options.operatorName,
                  "Who is doing this; kept by the monitor (the name of the user)")
      ->type_name("NAME")
      ->group(group);
  command.add_option("--report", options.report, "Write a report (HTML)")
      ->type_name("FILE")
      ->group(group);
  command.add_option("--record", options.record, "Write everything measured (JSON)")
      ->type_name("FILE")
      ->group(group);
  command
      .add_option("--report-dir", options.reportFolder,
                  "Write both, named after monitor and time; earlier ones make the trend")
      ->type_name("FOLDER")
      ->group(group);
}

std::shared_ptr<RunOptions> addCommonOptions(CLI::App& command, RunKind kind) {
  auto options = std::make_shared<RunOptions>();
  addMonitorOption(command, options->monitor);
  command.add_option("--lut", options->lut, "Look-up table, counted from 0 (the active one)")
      ->type_name("N")
      ->check(CLI::Range(0, 65534));
  addTargetOptions(command, options->target);
  addInstrumentOptions(command, *options);
  addScreenOptions(command, *options);
  addResultOptions(command, *options, kind);
  return options;
}

}  // namespace

void addCalibrateCommand(CLI::App& program, Context& context) {
  CLI::App* const command = program.add_subcommand("calibrate", "Calibrate a monitor and check it");
  const auto options = addCommonOptions(*command, RunKind::kCalibrate);
  command->add_flag("--external-sensors", options->target.externalSensors, "Use external sensors")
      ->group("Target");
  command
      ->add_flag("--backlight-response", options->target.backlightResponse,
                 "Measure how the backlight responds, too")
      ->group("Target");
  command->add_flag("--keep-mode", options->keepMode,
                    "Leave the look-up table active that was active before");
  command->add_flag("--dry-run", options->dryRun,
                    "Only print the target curve and what would be measured");
  command->callback([&context, options] {
    context.command = [&context, options] {
      return options->dryRun ? dryRun(context, *options) : calibrate(context, *options);
    };
  });
}

void addVerifyCommand(CLI::App& program, Context& context) {
  CLI::App* const command =
      program.add_subcommand("verify", "Measure and judge a monitor without calibrating it");
  command->footer(
      "Against the target that the monitor remembers for the table, else DICOM between the "
      "panel's\n"
      "own black and white; target options change parts of it, --target takes its place.");
  const auto options = addCommonOptions(*command, RunKind::kVerify);
  command->callback([&context, options] {
    context.command = [&context, options] { return verify(context, *options); };
  });
}

}  // namespace kovctl
