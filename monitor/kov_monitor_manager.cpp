// SPDX-License-Identifier: MIT
#include "lumora/kov/kov_monitor_manager.h"

#include <optional>
#include <stdexcept>
#include <utility>

#include "java/java_classes.h"
#include "java/local_frame.h"
#include "java/search_status.h"
#include "monitor/monitor_control_kov.h"
#include "platform/platform.h"

namespace lumora::kov {
namespace {

using java::JApiMonitor;
using java::JApiMonitorLibrary;
using java::LocalFrame;

constexpr const char* kTimeout = "Monitor search error: Timeout.";
constexpr const char* kUnexpectedStatus = "Monitor search error: Unexpected status.";
constexpr const char* kNoMonitor = "Can not find monitor";

constexpr unsigned kPollMilliseconds = 1000;
constexpr int kPolls = 180;

}  // namespace

KovMonitorManager::KovMonitorManager() = default;
KovMonitorManager::KovMonitorManager(const KovMonitorManager&) = default;
KovMonitorManager& KovMonitorManager::operator=(const KovMonitorManager&) = default;
KovMonitorManager::~KovMonitorManager() = default;

KovMonitorManager& KovMonitorManager::get() {
  static KovMonitorManager manager;
  return manager;
}

void KovMonitorManager::find() {
  const LocalFrame frame(LocalFrame::kMany);
  const JApiMonitorLibrary library = JApiMonitorLibrary::getInstance(frame.thread());
  const java::JApiSearchStatus states(frame.thread());
  library.startMonitorSearch();
  for (int poll = 0; poll < kPolls; ++poll) {
    const jobject status = library.getSearchStatus();
    if (states.isFinished(status)) return;
    // A search that has not begun to run is waited for like one that runs.
    if (!states.isRunning(status) && !states.isNone(status)) {
      throw std::logic_error(kUnexpectedStatus);
    }
    platform::sleepMilliseconds(kPollMilliseconds);
  }
  throw std::logic_error(kTimeout);
}

std::vector<Monitor> KovMonitorManager::getMonitors() {
  const LocalFrame frame(LocalFrame::kMany);
  const java::JList list = JApiMonitorLibrary::getInstance(frame.thread()).getMonitors();
  std::vector<Monitor> result;
  const std::int32_t size = list.size();
  if (size > 0) result.reserve(static_cast<std::size_t>(size));
  std::optional<LocalFrame> further;  // a list of any length leaves no more than a frame announces
  for (std::int32_t i = 0; i < size; ++i) {
    if (i > 0 && i % LocalFrame::kMany == 0) further.emplace(LocalFrame::kMany);
    result.push_back(
        MonitorControlKov::handleOf(java::wrap<JApiMonitor>(frame.thread(), list.get(i))));
  }
  return result;
}

Monitor KovMonitorManager::getMonitorByName(const std::string& monitorName,
                                            const std::string& monitorKey) {
  const LocalFrame frame;
  JApiMonitor monitor =
      JApiMonitorLibrary::getInstance(frame.thread()).getMonitor(monitorName, monitorKey);
  if (monitor.isNull()) throw std::logic_error(kNoMonitor);
  return MonitorControlKov::handleOf(std::move(monitor));
}

}  // namespace lumora::kov
