// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_INSTANCE_H_
#define L5KOV_TESTS_FAKE_JVM_INSTANCE_H_

#include "tests/fake_jvm/fake_runtime.h"

namespace fakejvm {

// The one Runtime of the process.
Runtime& runtimeInstance();

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_INSTANCE_H_
