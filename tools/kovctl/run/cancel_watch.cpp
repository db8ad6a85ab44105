// SPDX-License-Identifier: MIT
#include "run/cancel_watch.h"

#include "system/interrupts.h"

namespace kovctl {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPoll{50};
constexpr std::chrono::milliseconds kRetry{300};
constexpr std::chrono::seconds kLongestWait{5};
constexpr int kSettlingSeconds = 10;
constexpr const char* kSettling = "Canceling; the monitor settles";

}  // namespace

void settle(Progress& progress) {
  for (int left = kSettlingSeconds; left > 0; --left) {
    progress.countDown(kSettling, left);
    std::this_thread::sleep_for(std::chrono::seconds(1));
  }
  progress.end();
}

CancelWatch::CancelWatch(lumora::kov::KovCalibrator& watched, Progress& progressDisplay,
                         std::function<bool()> cancelWanted)
    : calibrator(watched), progress(progressDisplay), isWanted(std::move(cancelWanted)) {
  thread = std::thread([this] { watch(); });
}

CancelWatch::~CancelWatch() {
  over = true;
  thread.join();
}

bool CancelWatch::cancel() try {
  return calibrator.cancel() == OM_OK && calibrator.isCanceled();
} catch (const std::exception&) {
  return false;
}

// Asked again until it is in effect: a request that comes before execute() has begun is forgotten
// by it, and one that comes while the link is down may succeed a moment later.
void CancelWatch::watch() {
  while (!over && !isWanted()) std::this_thread::sleep_for(kPoll);
  Clock::time_point canceledAt{};
  int secondsShown = kSettlingSeconds + 1;
  Clock::time_point nextTry{};
  while (!over) {
    if (!calibrator.isCanceled() && Clock::now() >= nextTry) {
      if (cancel()) canceledAt = Clock::now();
      nextTry = Clock::now() + kRetry;
    }
    if (calibrator.isCanceled()) {
      if (canceledAt == Clock::time_point{}) canceledAt = Clock::now();
      const auto passed =
          std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - canceledAt);
      const int left = std::max(0, kSettlingSeconds - static_cast<int>(passed.count()));
      if (left < secondsShown) progress.countDown(kSettling, secondsShown = left);
    }
    std::this_thread::sleep_for(kPoll);
  }
}

bool CancelWatch::awaitCanceled() const {
  const auto end = Clock::now() + kLongestWait;
  while (!calibrator.isCanceled()) {
    if (Clock::now() >= end) return false;
    std::this_thread::sleep_for(kPoll);
  }
  return true;
}

}  // namespace kovctl
