// SPDX-License-Identifier: MIT
#include "foreign_locale.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

namespace fs = std::filesystem;

#ifndef _WIN32
namespace {

void writeCharacters(const fs::path& file) {
  std::ofstream out(file);
  out << "<code_set_name> KOVTEST\n<escape_char> /\n<mb_cur_max> 2\nCHARMAP\n";
  for (int code = 0; code < 128; ++code) {
    char line[32];
    std::snprintf(line, sizeof line, "<U%04X> /x%02x C\n", code, code);
    out << line;
  }
  out << "<U066B> /xd9/xab C\nEND CHARMAP\n";
}

void writeNumbers(const fs::path& file, const char* point) {
  std::ofstream(file) << "comment_char %\nescape_char /\nLC_NUMERIC\ndecimal_point \"" << point
                      << "\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n";
}

}  // namespace
#endif

ForeignLocale::ForeignLocale(Point point) : before(std::setlocale(LC_NUMERIC, nullptr)) {
  const std::string wanted = point == kComma ? "," : "\xd9\xab";
  if (point == kComma) {
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "German_Germany.1252"}) {
      if (choose(name, wanted)) return;
    }
  }
  isActive = make(point, wanted);
}

ForeignLocale::~ForeignLocale() {
  std::setlocale(LC_NUMERIC, before.c_str());
  std::error_code ignored;
  if (!folder.empty()) fs::remove_all(folder, ignored);
}

bool ForeignLocale::choose(const char* name, const std::string& wanted) {
  if (std::setlocale(LC_NUMERIC, name) == nullptr) return false;
  isActive = std::localeconv()->decimal_point == wanted;
  if (!isActive) std::setlocale(LC_NUMERIC, before.c_str());
  return isActive;
}

bool ForeignLocale::make([[maybe_unused]] Point point, [[maybe_unused]] const std::string& wanted) {
#ifdef _WIN32
  return false;
#else
  folder = fs::temp_directory_path() / ("pocketjson-" + std::to_string(std::random_device()()));
  fs::create_directories(folder);
  writeCharacters(folder / "characters");
  writeNumbers(folder / "numbers", point == kComma ? "," : "<U066B>");
  std::ostringstream command;
  command << "cd '" << folder.string()
          << "' && localedef -c --quiet -f ./characters -i ./numbers ./foreign >/dev/null 2>&1";
  // Its exit code is 1 for the categories that are left out.
  if (std::system(command.str().c_str()) == -1) return false;

  const char* path = std::getenv("LOCPATH");
  const std::string oldPath = path != nullptr ? path : "";
  setenv("LOCPATH", folder.c_str(), 1);
  const bool chosen = choose("foreign", wanted);
  if (path != nullptr) {
    setenv("LOCPATH", oldPath.c_str(), 1);
  } else {
    unsetenv("LOCPATH");
  }
  return chosen;
#endif
}
