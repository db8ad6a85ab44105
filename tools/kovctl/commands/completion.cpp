// SPDX-License-Identifier: MIT
#include "cli/completion.h"
#include "commands/commands.h"

namespace kovctl {

void addCompletionCommand(CLI::App& program, Context& context) {
  CLI::App* const command =
      program.add_subcommand("completion", "Print a completion script for a shell");
  const auto shell = std::make_shared<std::string>();
  command->add_option("SHELL", *shell, "bash, zsh or fish")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh", "fish"}));
  command->callback([&program, &context, shell] {
    context.command = [&program, &context, shell] {
      const std::string script = completionScript(program, *shell);
      context.out().print(script);
      Json document = documentOf("completion");
      document["shell"] = *shell;
      document["script"] = script;
      context.out().document(document);
      return ExitCode::kOk;
    };
  });
}

}  // namespace kovctl
