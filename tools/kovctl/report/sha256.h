// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_REPORT_SHA256_H_
#define L5KOV_TOOLS_KOVCTL_REPORT_SHA256_H_

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kovctl {

/// FIPS 180-4.
std::array<std::uint8_t, 32> sha256(std::string_view data);

/// 64 lower-case hexadecimal digits, as records hold them.
std::string sha256Hex(std::string_view data);

/// As content security policies name an allowed text: base64 with padding.
std::string sha256Base64(std::string_view data);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_REPORT_SHA256_H_
