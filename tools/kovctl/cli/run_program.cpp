// SPDX-License-Identifier: MIT
#include <cstdlib>

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

ExitCode report(Context& context, const Failure& failure) {
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

// Which exit code a failure has that left a command.
ExitCode runCommand(Context& context) try {
  return context.command();
} catch (const Failure& failure) {
  // An interrupt ends the wait for an instrument; once a monitor is changed, runs see to it
  // themselves.
  if (failure.code == ExitCode::kInstrument && sys::interruptCount() > 0) {
    return report(context, Failure(ExitCode::kCanceled, "canceled before anything was changed"));
  }
  return report(context, failure);
} catch (const lumora::kov::java::JavaException& exception) {
  return report(context, Failure(exitCodeOf(exception), textOf(exception)));
} catch (const std::logic_error& error) {
  // What the monitor search says: "Monitor search error: Timeout.", "Can not find monitor".
  return report(context, Failure(ExitCode::kCommunication, error.what()));
} catch (const std::exception& error) {
  return report(context, Failure(ExitCode::kJava, error.what()));
}

// Help and version are results, and everything else a mistake.
int parseEnd(const CLI::App& program, const CLI::ParseError& end) {
  std::ostringstream out;
  std::ostringstream err;
  const int code = program.exit(end, out, err);
  if (sys::write(sys::Stream::kOut, out.str()) == sys::Written::kFailed) {
    return static_cast<int>(ExitCode::kOutput);
  }
  sys::write(sys::Stream::kErr, err.str());
  return code == 0 ? 0 : static_cast<int>(ExitCode::kUsage);
}

}  // namespace

int runProgram(int count, const char* const* arguments) {
  Context context;
  const auto program = makeProgram(context);
  try {
    program->parse(count, arguments);
  } catch (const CLI::ParseError& end) {
    return parseEnd(*program, end);
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
