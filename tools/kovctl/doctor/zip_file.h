// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DOCTOR_ZIP_FILE_H_
#define L5KOV_TOOLS_KOVCTL_DOCTOR_ZIP_FILE_H_

#include <optional>
#include <string_view>

namespace kovctl {

/// How many entries a zip file (a jar is one) lists; nothing when it is cut off or no zip file: its
/// directory lies at the end (PKWARE's APPNOTE.TXT, 4.3.12 and 4.3.16), and every entry of it must
/// be there.
std::optional<int> zipEntries(std::string_view file);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DOCTOR_ZIP_FILE_H_
