// SPDX-License-Identifier: MIT
#ifndef L5KOV_PLATFORM_VENDOR_H_
#define L5KOV_PLATFORM_VENDOR_H_

#include <cstdint>

// The maker's two native libraries, imported by name: what lies beside the host at run time is
// used. Both have C linkage.
extern "C" {

/// libmeter_x64: the identifier of the instrument behind the host's opaque handle.
std::uint32_t MDGetDeviceID(void* device);
/// libmeter_x64: the instrument's serial number, or null. Owned by that library.
const char* MDGetSerialNumber(void* device);

/// libchroma_x64: chromaticity of a colour temperature. `in` is a record of 144 bytes, all zero but
/// the temperature in kelvin (int32 at 96); the library writes x (binary64 at 80) and y (binary64
/// at 88) of `out`. How far `out` is written beyond that is the maker's own affair.
int Colour_tmp2xy(void* out, const void* in);
}

#endif  // L5KOV_PLATFORM_VENDOR_H_
