// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_POCKETJSON_DESCRIBE_H_
#define L5KOV_TESTS_POCKETJSON_DESCRIBE_H_

#include <pocketjson/value.h>

#include <cstdint>
#include <string>

// A value with everything in it as one line, types included: `{a:i1,b:[d0.5,s"x",null]}`.
std::string describe(const pocketjson::Value& value);

// The container that a value owns a share of (null for plain values), read from its bytes.
const pocketjson::Value::AbstractContainer* containerOf(const pocketjson::Value& value);

// How many values share it; 0 for plain values.
std::uint32_t shares(const pocketjson::Value& value);

// The 64 bits of the payload.
std::uint64_t payloadOf(const pocketjson::Value& value);

#endif  // L5KOV_TESTS_POCKETJSON_DESCRIBE_H_
