// SPDX-License-Identifier: MIT
#include "cli/program.h"

#include "commands/commands.h"
#include "version.h"

namespace kovctl {
namespace {

constexpr const char* kGlobalFooter =
    "With every command: --json, --json-lines, -q/--quiet, -v/--verbose and --no-color;\n"
    "\"kovctl --help\" explains them.";

/// Options with the kind of their value, and without the parser's own notes on what it checks: the
/// descriptions say that in words.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter() {
    column_width(28);
    label("SUBCOMMAND", "COMMAND");
    label("Subcommands", "Commands");
  }

  std::string make_option_opts(const CLI::Option* option) const override {
    const std::string type = option->get_type_name();
    const std::string kind = type.substr(0, type.find(':'));
    return option->get_type_size() == 0 || kind.empty() ? "" : " " + kind;
  }
};

void addGlobalOptions(CLI::App& program, Context& context) {
  const auto json =
      program.add_flag("--json", context.json, "Print the result as one JSON document");
  program.add_flag("--json-lines", context.jsonLines, "Print events and result as lines of JSON")
      ->excludes(json);
  const auto quiet = program.add_flag("-q,--quiet", context.quiet, "No progress and no notes");
  program.add_flag("-v,--verbose", context.verbosity, "Say more; twice: even more")
      ->excludes(quiet);
  program.add_flag("--no-color", context.noColor,
                   "No colours (as with NO_COLOR in the environment)");
  program.set_version_flag("--version", std::string("kovctl ") + kVersion, "Print the version");
  program.set_help_flag("-h,--help", "Print this help");
}

}  // namespace

std::unique_ptr<CLI::App> makeProgram(Context& context) {
  auto program = std::make_unique<CLI::App>(
      "Finds, calibrates and checks the monitors of this workstation.", "kovctl");
  program->formatter(std::make_shared<HelpFormatter>());
  // The same command line on each system: "/run.json" is a file.
  program->allow_windows_style_options(false);
  addGlobalOptions(*program, context);
  program->require_subcommand(1);
  program->fallthrough();
  addListCommand(*program, context);
  addShowCommand(*program, context);
  addCalibrateCommand(*program, context);
  addVerifyCommand(*program, context);
  addHistoryCommand(*program, context);
  addRestoreCommand(*program, context);
  addLockCommand(*program, context);
  addReportCommand(*program, context);
  addDoctorCommand(*program, context);
  addCompletionCommand(*program, context);
  addPatchWindowCommand(*program, context);
  for (CLI::App* const command : program->get_subcommands({})) {
    if (command->get_group().empty()) continue;
    command->group("Commands");
    const std::string own = command->get_footer();
    command->footer(own + (own.empty() ? "" : "\n") + kGlobalFooter);
  }
  program->footer(
      "Exit codes: 0 ok, 1 Java failure, 2 usage, 3 monitor, 4 outside limits, 5 plug-in or "
      "runtime,\n"
      "6 communication, 7 instrument, 8 output, 130 canceled and restored, 131 restore failed.");
  return program;
}

}  // namespace kovctl
