// SPDX-License-Identifier: MIT
#include "lumora/monitor_control.h"

namespace lumora {

MonitorControl::MonitorControl() = default;
MonitorControl::MonitorControl(const MonitorControl&) = default;
MonitorControl& MonitorControl::operator=(const MonitorControl&) = default;
MonitorControl::~MonitorControl() = default;

}  // namespace lumora
