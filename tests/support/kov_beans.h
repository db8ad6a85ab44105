// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_SUPPORT_KOV_BEANS_H_
#define L5KOV_TESTS_SUPPORT_KOV_BEANS_H_

#include "tests/fake_jvm/fake_runtime.h"

namespace kovtest {

// Scripts the getters and setters of the maker's classes so that each reads or writes the field
// that it names, and the constructors that libl5kov calls.
void scriptBeans(fakejvm::Runtime& runtime);

// A CalibrationResultValues.
fakejvm::ObjectRef makeResult(double maxLuminance, double minLuminance, int backlight,
                              const std::string& name = {});
// What the Java constructor of CalibrationTargetValues sets: zeros, false, null texts.
void setTargetDefaults(fakejvm::Object& target);

}  // namespace kovtest

#endif  // L5KOV_TESTS_SUPPORT_KOV_BEANS_H_
