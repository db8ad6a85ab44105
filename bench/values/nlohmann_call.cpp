// SPDX-License-Identifier: MIT
#include "bench/values/nlohmann_call.h"

#include <nlohmann/json.hpp>

namespace bench {

int numberOf(const nlohmann::json& object, const char* key) { return object[key].get<int>(); }

int numberOr(const nlohmann::json& object, const char* key, int otherwise) {
  return object.value(key, otherwise);
}

}  // namespace bench
