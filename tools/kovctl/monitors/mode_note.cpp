// SPDX-License-Identifier: MIT
#include "monitors/mode_note.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "system/file_lock.h"
#include "system/files.h"
#include "system/utf8_path.h"

namespace kovctl {
namespace {

constexpr const char* kEnding = ".mode";
constexpr const char* kLockEnding = ".lock";

// Names come from monitors; a file name takes only what is harmless.
std::string fileOf(const MonitorName& name, const char* ending) {
  std::string file = name.model + "-" + name.serial;
  for (char& c : file) {
    const bool harmless = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                          (c >= 'a' && c <= 'z') || c == '-' || c == '_';
    if (!harmless) c = '_';
  }
  return sys::stateFolder() + "/" + file + ending;
}

// The mode, and on a line of its own the monitor's name.
std::optional<ModeNote> parse(const std::optional<std::string>& text) {
  if (!text) return std::nullopt;
  ModeNote note;
  const char* const end = text->data() + text->size();
  const auto [rest, error] = std::from_chars(text->data(), end, note.mode);
  if (error != std::errc()) return std::nullopt;
  note.monitor.assign(rest, end);
  std::erase(note.monitor, '\n');
  return note;
}

}  // namespace

std::string ModeNote::sentence() const {
  return fmt::format(
      "{}: a run was killed or could not put it back; look-up table {} was active before, and "
      "\"kovctl restore -m {}\" activates it",
      monitor, mode, monitor);
}

std::string ModeNote::lockFileOf(const MonitorName& name) { return fileOf(name, kLockEnding); }

std::optional<unsigned> ModeNote::read(const MonitorName& name) {
  const auto note = parse(sys::readWhole(fileOf(name, kEnding)));
  if (!note) return std::nullopt;
  return note->mode;
}

void ModeNote::write(const MonitorName& name, unsigned mode) {
  sys::makeFolder(sys::stateFolder());
  sys::writeWhole(fileOf(name, kEnding), fmt::format("{}\n{}\n", mode, name.text()));
}

void ModeNote::remove(const MonitorName& name) { sys::removeFile(fileOf(name, kEnding)); }

std::vector<ModeNote> ModeNote::all() {
  const std::string folder = sys::stateFolder();
  std::vector<ModeNote> notes;
  std::error_code unreadable;
  for (const auto& entry : std::filesystem::directory_iterator(sys::pathOf(folder), unreadable)) {
    if (entry.path().extension() != kEnding) continue;
    auto note = parse(sys::readWhole(sys::textOf(entry.path())));
    if (!note) continue;
    auto lock = entry.path();
    note->underWay = sys::FileLock::isHeld(sys::textOf(lock.replace_extension(kLockEnding)));
    notes.push_back(std::move(*note));
  }
  std::sort(notes.begin(), notes.end(),
            [](const ModeNote& a, const ModeNote& b) { return a.monitor < b.monitor; });
  return notes;
}

}  // namespace kovctl
