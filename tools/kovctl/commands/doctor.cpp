// SPDX-License-Identifier: MIT
#include "commands/commands.h"
#include "doctor/file_checks.h"
#include "doctor/probe.h"

namespace kovctl {
namespace {

ExitCode doctor(Context& context) {
  CheckList list(context.out());
  const PluginLayout layout = PluginLayout::find();
  list.ok("host-library", "libl5kov", "loaded");
  checkFiles(list, layout);
  if (list.has("runtime-library", CheckState::kFail)) {
    skipJavaChecks(list, "there is no Java runtime to ask");
    return list.finish();
  }
  checkJava(list);
  if (!list.has("java-start", CheckState::kFail)) checkRoundTrip(list);
  skipJavaChecks(list, list.has("java-start", CheckState::kFail) ? "Java does not start"
                                                                 : "a check before it has failed");
  return list.finish();
}

}  // namespace

void addDoctorCommand(CLI::App& program, Context& context) {
  CLI::App* const command =
      program.add_subcommand("doctor", "Find out what does not work, and how to mend it");
  const auto probe = std::make_shared<std::string>();
  // For this program itself: an empty group keeps it out of the help.
  command->add_option("--probe", *probe)->check(CLI::IsMember({"java", "round-trip"}))->group("");
  command->callback([&context, probe] {
    context.command = [&context, probe] {
      return probe->empty() ? doctor(context) : runProbe(context, *probe);
    };
  });
}

}  // namespace kovctl
