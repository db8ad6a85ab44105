// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <span>
#include <sstream>

#include "cli/early_interrupt.h"
#include "cli/program.h"
#include "failure.h"
#include "monitors/java_start.h"
#include "system/interrupts.h"
#include "system/streams.h"

namespace kovctl {
namespace {

void makeConsole(Context& context) {
  const char* const noColor = std::getenv("NO_COLOR");
  ConsoleOptions options;
  options.format = context.jsonLines ? Format::kJsonLines
                   : context.json    ? Format::kJson
                                     : Format::kText;
  options.quiet = context.quiet;
  options.verbosity = context.verbosity;
  options.color = !context.noColor && (noColor == nullptr || *noColor == '\0') &&
                  sys::isTerminal(sys::Stream::kOut);
  context.console = std::make_unique<Console>(options);
}

// Which exit code a failure has that left a command.
ExitCode runCommand(Context& context) try {
  return context.command();
} catch (const std::exception& reason) {
  const Failure failure = asFailure(reason);
  // An interrupt ends the wait for an instrument; once a monitor is changed, runs see to it
  // themselves.
  if (failure.code == ExitCode::kInstrument && sys::interruptCount() > 0) {
    return reportFailure(context, canceledUnchanged());
  }
  return reportFailure(context, failure);
}

std::string mistakeOf(const CLI::App& program, const CLI::ParseError& end) {
  const std::vector<std::string> rest = program.remaining();
  const bool isExtra = end.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError);
  if (isExtra && !program.get_subcommands().empty()) {
    // The parser lists them from behind.
    std::string all;
    for (const std::string& word : program.remaining(true)) all += " " + word;
    return "not expected:" + all;
  }
  if (!program.get_subcommands().empty()) return end.what();
  if (rest.empty()) return "a command is needed";
  const std::string kind = rest.front().rfind('-', 0) == 0 ? "option" : "command";
  return "there is no " + kind + " \"" + rest.front() + "\"";
}

// Help and version are results, and everything else a mistake, of which programs are told in their
// own way even when the parser did not come as far as their option.
ExitCode parseEnd(const CLI::App& program, const CLI::ParseError& end, Context& context,
                  std::span<const char* const> arguments) {
  if (end.get_exit_code() == 0) {
    std::ostringstream out;
    program.exit(end, out, out);
    const bool lost = sys::write(sys::Stream::kOut, out.str()) == sys::Written::kFailed;
    return lost ? ExitCode::kOutput : ExitCode::kOk;
  }
  for (const std::string_view argument : arguments) {
    context.json |= argument == "--json";
    context.jsonLines |= argument == "--json-lines";
  }
  makeConsole(context);
  std::string help = "kovctl ";
  for (const CLI::App* command : program.get_subcommands()) help += command->get_name() + " ";
  return reportFailure(context, Failure(ExitCode::kUsage, mistakeOf(program, end),
                                        {"\"" + help + "--help\" tells what there is."}));
}

}  // namespace

ExitCode reportFailure(Context& context, const Failure& failure) {
  Console& console = context.out();
  console.error(failure.what());
  for (const std::string& line : failure.details) console.error("  " + line);
  Json document = documentOf("error");
  document["exitCode"] = static_cast<int>(failure.code);
  document["exitName"] = nameOf(failure.code);
  document["message"] = failure.what();
  document["details"] = failure.details;
  console.document(document);
  return failure.code;
}

int runProgram(int count, const char* const* arguments) {
  Context context;
  const auto program = makeProgram(context);
  try {
    program->parse(count, arguments);
  } catch (const CLI::ParseError& end) {
    const std::span given(arguments, static_cast<std::size_t>(count));
    return static_cast<int>(parseEnd(*program, end, context, given));
  }
  makeConsole(context);
  ExitCode code = runCommand(context);
  if (context.out().hasLost()) {
    context.out().error("a part of the output could not be written");
    if (code == ExitCode::kOk) code = ExitCode::kOutput;
  }
  return static_cast<int>(code);
}

}  // namespace kovctl
