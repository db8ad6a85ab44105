// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_UTF8_H_
#define L5KOV_JAVA_UTF8_H_

#include <string_view>

namespace lumora::kov::java {

// Whether `text` is well-formed UTF-8 up to U+10FFFF (RFC 3629: no overlong forms, no surrogates).
bool isUtf8(std::string_view text);

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_UTF8_H_
