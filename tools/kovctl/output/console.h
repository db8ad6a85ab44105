// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_OUTPUT_CONSOLE_H_
#define L5KOV_TOOLS_KOVCTL_OUTPUT_CONSOLE_H_

#include <atomic>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace kovctl {

using Json = nlohmann::ordered_json;

enum class Format {
  kText,      ///< tables for people
  kJson,      ///< one document at the end
  kJsonLines  ///< one line per event or item, the result as the last one
};

struct ConsoleOptions {
  Format format = Format::kText;
  bool quiet = false;
  int verbosity = 0;
  bool color = false;  ///< on standard output
};

/// Where everything goes that a command says: results to standard output, the rest to standard
/// error. Texts from outside go through plainText() here, so that they show and do nothing else. A
/// text that cannot be written never ends what the command is doing; the loss is kept for the end.
/// Any thread.
class Console {
 public:
  explicit Console(ConsoleOptions chosen) : options(chosen) {}

  const ConsoleOptions& chosen() const { return options; }
  bool isText() const { return options.format == Format::kText; }

  /// A result for people; nothing in the JSON formats. Its line feeds and tabs are kovctl's own.
  void print(std::string_view text);
  /// The same of one line, with the line feed behind it.
  void printLine(std::string_view line);
  /// The same with parts that are styled(); what comes from outside in it is plain already.
  void printStyled(std::string_view text);
  /// The result for programs; nothing in text format.
  void document(const Json& json);
  /// Something on the way; only where JSON lines are wanted.
  void event(const Json& json);

  void note(std::string_view line);                   ///< unless -q
  void detail(std::string_view line, int level = 1);  ///< with -v
  void warn(std::string_view line);
  void error(std::string_view line);
  void question(std::string_view text);
  /// On a terminal, in place of the line that is there; an empty one takes that away.
  void lineInPlace(std::string_view line);

  /// Whether a result was lost, other than to a reader that went away.
  bool hasLost() const { return lost; }

  enum class Style { kPlain, kBold, kGood, kBad, kDoubtful };
  std::string styled(Style style, std::string_view text) const;

 private:
  void result(std::string_view text);

  ConsoleOptions options;
  std::atomic<bool> lost{false};
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_OUTPUT_CONSOLE_H_
