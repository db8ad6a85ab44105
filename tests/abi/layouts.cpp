// SPDX-License-Identifier: MIT
// What the compiler lays out here is what a Windows host built with MSVC expects of the library.
#include <l5kov.h>

namespace {

static_assert(sizeof(long) == 4 && sizeof(void*) == 8);
static_assert(sizeof(lumora::Monitor) == 16);
static_assert(sizeof(lumora::kov::KovMonitorManager) == 24);
static_assert(sizeof(lumora::kov::PatchRecord) == 144);
static_assert(sizeof(pocketjson::Value) == 16);
static_assert(sizeof(OMC_USAGETIME) == 8);
static_assert(sizeof(lumora::MonitorControl) == 8);
static_assert(sizeof(lumora::kov::KovCalibratorDelegate) == 8);

}  // namespace

// A virtual table is laid out with the constructor that needs it.
lumora::MonitorControl::MonitorControl() {}
lumora::kov::KovCalibratorDelegate::KovCalibratorDelegate() {}
lumora::kov::java::JavaException::JavaException(const JavaException& other)
    : std::runtime_error(other), env(), throwable(), className() {}
