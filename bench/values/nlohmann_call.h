// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_VALUES_NLOHMANN_CALL_H_
#define L5KOV_BENCH_VALUES_NLOHMANN_CALL_H_

#include <nlohmann/json_fwd.hpp>

namespace bench {

// nlohmann-json's lookups in a shared library, as a program's calls of libl5kov are: nothing of
// them becomes part of the caller.
[[gnu::visibility("default")]] int numberOf(const nlohmann::json& object, const char* key);
[[gnu::visibility("default")]] int numberOr(const nlohmann::json& object, const char* key,
                                            int otherwise);

}  // namespace bench

#endif  // L5KOV_BENCH_VALUES_NLOHMANN_CALL_H_
