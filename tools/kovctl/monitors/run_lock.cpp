// SPDX-License-Identifier: MIT
#include "monitors/run_lock.h"

#include <chrono>
#include <thread>

#include "monitors/mode_note.h"
#include "system/files.h"

namespace kovctl {
namespace {

// Another command that only looks whether the lock is held holds it for a moment itself.
std::unique_ptr<sys::FileLock> takePatiently(const std::string& path) {
  constexpr int kAttempts = 10;
  constexpr std::chrono::milliseconds kPause{20};
  for (int i = 1;; ++i) {
    auto lock = sys::FileLock::take(path);
    if (lock || i == kAttempts) return lock;
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace

RunLock::RunLock(const MonitorName& name) {
  try {
    sys::makeFolder(sys::stateFolder());
    lock = takePatiently(ModeNote::lockFileOf(name));
  } catch (const std::runtime_error& reason) {
    missing = reason.what();
    return;
  }
  if (lock) return;
  throw Failure(ExitCode::kCommunication, name.text() + " is in use by another run of kovctl",
                {"Nothing was changed. Wait for that run to end, or cancel it."});
}

MonitorUse MonitorUse::of(const MonitorName& name) {
  const std::string file = ModeNote::lockFileOf(name);
  MonitorUse use;
  use.underWay = sys::FileLock::isHeld(file);
  if (use.underWay) return use;
  use.pending = ModeNote::read(name);
  // A run may have begun in between.
  use.underWay = use.pending && sys::FileLock::isHeld(file);
  if (use.underWay) use.pending.reset();
  return use;
}

std::string MonitorUse::sentence(const MonitorName& name) const {
  if (underWay) return name.text() + ": a run is under way";
  return pending ? ModeNote{name.text(), *pending}.sentence() : "";
}

}  // namespace kovctl
