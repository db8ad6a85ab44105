// SPDX-License-Identifier: MIT
#include "kov_panel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <mutex>
#include <new>
#include <string>
#include <utility>

#include "panel.h"

namespace {

using kovpanel::Panel;
using kovpanel::Reading;

/// The panels of the process by serial number. The abort of a calibration and a second calibration
/// come from other threads, so every access holds the lock; nothing is called while it is held.
struct Registry {
  std::mutex lock;
  std::map<std::string, Panel, std::less<>> panels;
};

Registry& registry() {
  // Never destroyed: Java threads may still measure while the process ends.
  static Registry* const kRegistry = new Registry;
  return *kRegistry;
}

/// Runs `work` on the panel of that serial number. No exception leaves a C function.
template <typename Work>
int withPanel(const char* serial, Work work) {
  if (serial == nullptr) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  try {
    Registry& all = registry();
    const std::lock_guard<std::mutex> guard(all.lock);
    const auto found = all.panels.find(serial);
    return found == all.panels.end() ? KOVPANEL_UNKNOWN_SERIAL : work(found->second);
  } catch (const std::bad_alloc&) {
    return KOVPANEL_NO_MEMORY;
  }
}

bool isTable(int table) { return table >= 0 && table < KOVPANEL_TABLES; }

void store(const Reading& reading, double out[3]) {
  out[0] = reading.luminance;
  out[1] = reading.colour.x;
  out[2] = reading.colour.y;
}

}  // namespace

int kovpanel_register(const char* serial, const KovPanelParameters* parameters) {
  if (serial == nullptr || parameters == nullptr || !Panel::isPossible(*parameters)) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  try {
    Panel panel(*parameters);
    Registry& all = registry();
    const std::lock_guard<std::mutex> guard(all.lock);
    all.panels.insert_or_assign(serial, std::move(panel));
    return KOVPANEL_OK;
  } catch (const std::bad_alloc&) {
    return KOVPANEL_NO_MEMORY;
  }
}

int kovpanel_remove(const char* serial) {
  if (serial == nullptr) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  Registry& all = registry();
  const std::lock_guard<std::mutex> guard(all.lock);
  const auto found = all.panels.find(serial);
  if (found == all.panels.end()) {
    return KOVPANEL_UNKNOWN_SERIAL;
  }
  all.panels.erase(found);
  return KOVPANEL_OK;
}

int kovpanel_set_table(const char* serial, int table, int channel, const uint16_t* entries) {
  if (!isTable(table) || channel < 0 || channel >= KOVPANEL_CHANNELS || entries == nullptr) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  return withPanel(serial, [=](Panel& panel) {
    const bool fits =
        panel.setTable(static_cast<std::size_t>(table), static_cast<std::size_t>(channel), entries);
    return fits ? KOVPANEL_OK : KOVPANEL_BAD_ARGUMENT;
  });
}

int kovpanel_set_backlight(const char* serial, int table, double share) {
  if (!isTable(table) || !(share >= 0.0 && share <= 1.0)) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  return withPanel(serial, [=](Panel& panel) {
    panel.setBacklight(static_cast<std::size_t>(table), share);
    return KOVPANEL_OK;
  });
}

int kovpanel_activate(const char* serial, int table) {
  if (!isTable(table)) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  return withPanel(serial, [=](Panel& panel) {
    panel.activate(static_cast<std::size_t>(table));
    return KOVPANEL_OK;
  });
}

int kovpanel_sensor(const char* serial, int32_t* counts) {
  if (counts == nullptr) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  return withPanel(serial, [=](Panel& panel) {
    *counts = panel.sensor();
    return KOVPANEL_OK;
  });
}

int kovpanel_show(const char* serial, double red, double green, double blue) {
  if (!std::isfinite(red) || !std::isfinite(green) || !std::isfinite(blue)) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  return withPanel(serial, [=](Panel& panel) {
    panel.show({red, green, blue});
    return KOVPANEL_OK;
  });
}

int kovpanel_measure(const char* serial, double reading[3]) {
  if (reading == nullptr) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  return withPanel(serial, [=](Panel& panel) {
    store(panel.measure(), reading);
    return KOVPANEL_OK;
  });
}

int kovpanel_emission(const char* serial, double emission[3]) {
  if (emission == nullptr) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  return withPanel(serial, [=](Panel& panel) {
    store(panel.emission(), emission);
    return KOVPANEL_OK;
  });
}

int kovpanel_signal(const char* serial, double signal[4]) {
  if (signal == nullptr) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  return withPanel(serial, [=](Panel& panel) {
    const std::array<double, 4> now = panel.signal();
    std::copy(now.begin(), now.end(), signal);
    return KOVPANEL_OK;
  });
}

int kovpanel_wait(const char* serial, double seconds) {
  if (!(seconds >= 0.0) || !std::isfinite(seconds)) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  return withPanel(serial, [=](Panel& panel) {
    panel.wait(seconds);
    return KOVPANEL_OK;
  });
}

int kovpanel_clock(const char* serial, double* seconds) {
  if (seconds == nullptr) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  return withPanel(serial, [=](Panel& panel) {
    *seconds = panel.clock();
    return KOVPANEL_OK;
  });
}
