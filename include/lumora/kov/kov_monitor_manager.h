// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_KOV_KOV_MONITOR_MANAGER_H_
#define L5KOV_LUMORA_KOV_KOV_MONITOR_MANAGER_H_

#include <string>
#include <vector>

#include "l5kov/export.h"
#include "lumora/monitor.h"

namespace lumora {
namespace kov {

/// Finds the monitors of the workstation. Call find() first; the other operations start no search.
///
/// Operations may be called on any thread; there is no lock, and two searches at the same time
/// drive the same Java library. All throw java::JavaException when the Java library does, what
/// java::Env() throws, and std::logic_error after DeleteJavaVM() on the thread.
class L5KOV_API KovMonitorManager {
 public:
  KovMonitorManager();
  KovMonitorManager(const KovMonitorManager&);
  KovMonitorManager& operator=(const KovMonitorManager&);
  ~KovMonitorManager();

  /// The one manager of the process, made on the first call. Touches no Java.
  static KovMonitorManager& get();

  /// Searches for monitors and returns when the search is over: polled once per second, at most
  /// 180 times.
  /// @throws std::logic_error "Monitor search error: Timeout."
  /// @throws std::logic_error "Monitor search error: Unexpected status."
  void find();

  /// A new handle for every monitor that the Java library lists now, in its order.
  std::vector<Monitor> getMonitors();

  /// The monitor that the Java library finds for the two texts (UTF-8), handed on in this order.
  /// What they mean is the Java library's affair; the simulator's takes model and serial number.
  /// @throws std::logic_error "Can not find monitor"
  Monitor getMonitorByName(const std::string& monitorName, const std::string& monitorKey);

 private:
  // Kept: always empty. It is part of the exported object's layout and copy; it is no cache.
  std::vector<Monitor> monitors;
};

}  // namespace kov
}  // namespace lumora

#endif  // L5KOV_LUMORA_KOV_KOV_MONITOR_MANAGER_H_
