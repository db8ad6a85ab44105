// SPDX-License-Identifier: MIT
#include "cli/completion.h"

#include <fmt/format.h>

#include <map>

#include "metrics/limits.h"

namespace kovctl {
namespace {

std::string limitsNames() {
  std::string names;
  for (const LimitsProfile& profile : limitsProfiles()) names += std::string(profile.name) + " ";
  return names + "none";
}

// What may follow an option or stand as a word of its own, where it is one of a few texts.
const std::map<std::string, std::string>& fixedWords() {
  static const std::map<std::string, std::string> words{
      {"--function", "dicom cie gamma: loglinear linear native user"},
      {"--instrument", "sim argyll icc:"},
      {"--white", "off K6500 K5000 K9300"},
      {"--lmin", "measured"},
      {"--ambient", "off"},
      {"--display", "fullscreen"},
      {"--points", "52 18"},  // 0, which only calibrate knows, is left out
      {"--limits", limitsNames()},
  };
  return words;
}

const std::map<std::string, std::string>& commandWords() {
  static const std::map<std::string, std::string> words{{"lock", "on off"},
                                                        {"completion", "bash zsh fish"}};
  return words;
}

struct OptionInfo {
  std::vector<std::string> names;
  std::string description;
  bool takesValue = false;
  bool takesFile = false;
};

std::vector<OptionInfo> optionsOf(const CLI::App& app) {
  std::vector<OptionInfo> all;
  for (const CLI::Option* option : app.get_options()) {
    OptionInfo info;
    for (const std::string& name : option->get_snames()) info.names.push_back("-" + name);
    for (const std::string& name : option->get_lnames()) info.names.push_back("--" + name);
    if (info.names.empty() || option->get_group().empty()) continue;
    info.description = option->get_description();
    info.takesValue = option->get_items_expected_max() > 0;
    const std::string type = option->get_type_name();
    info.takesFile = type == "FILE" || type == "FOLDER";
    all.push_back(info);
  }
  return all;
}

std::string namesOf(const CLI::App& app) {
  std::string text;
  for (const OptionInfo& option : optionsOf(app)) {
    for (const std::string& name : option.names) text += (text.empty() ? "" : " ") + name;
  }
  return text;
}

std::string wordsOf(const OptionInfo& option) {
  for (const std::string& name : option.names) {
    const auto found = fixedWords().find(name);
    if (found != fixedWords().end()) return found->second;
  }
  return "";
}

// Without those that are kept out of the help.
std::vector<const CLI::App*> commandsOf(CLI::App& program) {
  std::vector<const CLI::App*> commands;
  for (const CLI::App* command : program.get_subcommands({})) {
    if (!command->get_group().empty()) commands.push_back(command);
  }
  return commands;
}

std::string quoted(std::string text) {
  for (std::size_t at = 0; (at = text.find('\'', at)) != std::string::npos; at += 4) {
    text.replace(at, 1, "'\\''");
  }
  return "'" + text + "'";
}

std::string commandNames(CLI::App& program) {
  std::string text;
  for (const CLI::App* command : commandsOf(program)) text += command->get_name() + " ";
  text.pop_back();
  return text;
}

std::string bashValueCases(CLI::App& program) {
  std::map<std::string, std::string> cases;
  for (const CLI::App* command : commandsOf(program)) {
    for (const OptionInfo& option : optionsOf(*command)) {
      const std::string words = wordsOf(option);
      for (const std::string& name : option.names) {
        if (!words.empty()) {
          cases[name] = fmt::format("COMPREPLY=($(compgen -W {} -- \"$cur\"))", quoted(words));
        } else if (option.takesFile) {
          cases[name] = "COMPREPLY=($(compgen -f -- \"$cur\"))";
        } else if (option.takesValue) {
          cases[name] = ":";
        }
      }
    }
  }
  cases.emplace("-m", ":");
  std::string text;
  for (const auto& [name, action] : cases) {
    text += fmt::format("    {}) {}; return ;;\n", name, action);
  }
  return text;
}

std::string bashScript(CLI::App& program) {
  std::string commands;
  for (const CLI::App* command : commandsOf(program)) {
    const auto words = commandWords().find(command->get_name());
    commands += fmt::format(
        "    {}) words={} ;;\n", command->get_name(),
        quoted((words == commandWords().end() ? "" : words->second + " ") + namesOf(*command)));
  }
  return fmt::format(R"(# bash completion for kovctl
_kovctl() {{
  local cur=${{COMP_WORDS[COMP_CWORD]}} prev=${{COMP_WORDS[COMP_CWORD-1]}} command= words= i
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case " {0} " in *" ${{COMP_WORDS[i]}} "*) command=${{COMP_WORDS[i]}}; break ;; esac
  done
  case $prev in
{1}  esac
  case $command in
    '') words={2} ;;
{3}  esac
  COMPREPLY=($(compgen -W "$words {4}" -- "$cur"))
  if [ "$command" = report ] && [[ $cur != -* ]]; then COMPREPLY=($(compgen -f -- "$cur")); fi
}}
complete -o filenames -o bashdefault -F _kovctl kovctl
)",
                     commandNames(program), bashValueCases(program), quoted(commandNames(program)),
                     commands, namesOf(program));
}

// "[text]" ends at the first bracket of its own.
std::string zshText(std::string text) {
  for (const char special : {'[', ']', ':'}) {
    for (std::size_t at = 0; (at = text.find(special, at)) != std::string::npos; at += 2) {
      text.insert(at, "\\");
    }
  }
  return text;
}

std::string zshOptions(const CLI::App& app) {
  std::string text;
  for (const OptionInfo& option : optionsOf(app)) {
    std::string value;
    const std::string words = wordsOf(option);
    if (!words.empty())
      value = ":value:(" + words + ")";
    else if (option.takesFile)
      value = ":file:_files";
    else if (option.takesValue)
      value = ":value: ";
    for (const std::string& name : option.names) {
      text += " " + quoted(name + "[" + zshText(option.description) + "]" + value);
    }
  }
  return text;
}

std::string zshScript(CLI::App& program) {
  std::string list;
  std::string cases;
  for (const CLI::App* command : commandsOf(program)) {
    const std::string name = command->get_name();
    list += "    " + quoted(name + ":" + command->get_description()) + "\n";
    const auto words = commandWords().find(name);
    const std::string rest = words != commandWords().end() ? " '1:word:(" + words->second + ")'"
                             : name == "report"            ? " '1:record:_files'"
                                                           : "";
    cases += fmt::format("    {}) _arguments -s{}{}{} ;;\n", name, zshOptions(*command),
                         zshOptions(program), rest);
  }
  return fmt::format(R"(#compdef kovctl
_kovctl() {{
  local -a commands
  local context state line
  commands=(
{0}  )
  _arguments -C -s{1} '1:command:->command' '*::argument:->argument'
  case $state in
    command) _describe -t commands 'kovctl command' commands ;;
    argument) case $words[1] in
{2}    esac ;;
  esac
}}
if [ "$funcstack[1]" = _kovctl ]; then _kovctl "$@"; else compdef _kovctl kovctl; fi
)",
                     list, zshOptions(program), cases);
}

std::string fishOption(const OptionInfo& option, const std::string& condition) {
  std::string text = "complete -c kovctl" + condition;
  for (const std::string& name : option.names) {
    text += name[1] == '-' ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  const std::string words = wordsOf(option);
  if (!words.empty())
    text += " -x -a " + quoted(words);
  else if (option.takesFile)
    text += " -r -F";
  else if (option.takesValue)
    text += " -x";
  return text + " -d " + quoted(option.description) + "\n";
}

std::string fishScript(CLI::App& program) {
  std::string text = "# fish completion for kovctl\ncomplete -c kovctl -f\n";
  for (const OptionInfo& option : optionsOf(program)) text += fishOption(option, "");
  for (const CLI::App* command : commandsOf(program)) {
    const std::string name = command->get_name();
    text += "complete -c kovctl -n __fish_use_subcommand -a " + name + " -d " +
            quoted(command->get_description()) + "\n";
    const std::string condition = " -n " + quoted("__fish_seen_subcommand_from " + name);
    const auto words = commandWords().find(name);
    if (words != commandWords().end()) {
      text += "complete -c kovctl" + condition + " -a " + quoted(words->second) + "\n";
    }
    if (name == "report") text += "complete -c kovctl" + condition + " -F\n";
    for (const OptionInfo& option : optionsOf(*command)) text += fishOption(option, condition);
  }
  return text;
}

}  // namespace

std::string completionScript(CLI::App& program, const std::string& shell) {
  if (shell == "bash") return bashScript(program);
  return shell == "zsh" ? zshScript(program) : fishScript(program);
}

}  // namespace kovctl
