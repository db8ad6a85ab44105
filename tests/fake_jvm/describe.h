// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_DESCRIBE_H_
#define L5KOV_TESTS_FAKE_JVM_DESCRIBE_H_

#include <string>
#include <vector>

#include "tests/fake_jvm/java_value.h"

namespace fakejvm {

// What the object is called in the log: its name, a string's quoted text, "null". An object
// without a name is given one here ("Integer#2").
std::string displayName(const ObjectRef& object);
// The numbers of such names begin again.
void restartNames();

// "text", with the usual escapes; more than 200 bytes are cut.
std::string quoted(const std::string& text);
// The shortest text that reads back as the same number: 0.5, 1, 250.5.
std::string numberText(double value);
std::string numbersText(const double* values, std::size_t count);
// Booleans are 0 and 1.
std::string valueText(const Value& value);
// "(1,null,\"text\")"
std::string argumentsText(const std::vector<Value>& args);

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_DESCRIBE_H_
