// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_NATIVE_CALL_H_
#define L5KOV_TESTS_FAKE_JVM_NATIVE_CALL_H_

#include <string>
#include <vector>

#include "tests/fake_jvm/machine.h"

namespace fakejvm {

// Java calls a registered native method on the calling thread: in a local frame of its own, which
// ends, with what it holds, when the method returns. Throws JavaThrow when an exception is left.
Value callNativeMethod(Machine& machine, const std::string& method, const std::vector<Value>& args);

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_NATIVE_CALL_H_
