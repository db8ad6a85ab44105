// SPDX-License-Identifier: MIT
// What the compiler lays out here is what a Windows host built with MSVC expects of the library.
#include "record_layouts.h"

static_assert(sizeof(long) == 4 && sizeof(void*) == 8);
static_assert(l5kovlayouts::kExceptionSize == 24);

// A virtual table is laid out with the constructor that needs it.
lumora::MonitorControl::MonitorControl() {}
lumora::kov::KovCalibratorDelegate::KovCalibratorDelegate() {}
lumora::kov::java::JavaException::JavaException(const JavaException& other)
    : std::runtime_error(other), env(), throwable(), className() {}
