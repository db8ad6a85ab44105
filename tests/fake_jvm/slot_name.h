// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_SLOT_NAME_H_
#define L5KOV_TESTS_FAKE_JVM_SLOT_NAME_H_

#include <algorithm>
#include <cstddef>

namespace fakejvm {

// A slot's name as a template argument.
template <std::size_t N>
struct SlotName {
  char text[N]{};
  constexpr SlotName(const char (&source)[N]) { std::copy_n(source, N, text); }
};

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_SLOT_NAME_H_
