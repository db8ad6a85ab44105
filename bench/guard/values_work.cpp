// SPDX-License-Identifier: MIT
// values_work pocketjson|nlohmann WORK TIMES: does it that often, for counting instructions.
#include <pocketjson/value.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "bench/values/target_members.h"

namespace {

template <class Value>
Value target() {
  Value value;
  for (const bench::TargetMember& member : bench::kTarget) {
    std::visit([&](auto scalar) { value[member.key] = scalar; }, member.value);
  }
  return value;
}

template <class Value>
void writeNested() {
  Value result;
  result["calibrationTarget"]["lmin"] = 0.5;
}

template <class Value>
void copyThenWrite(const Value& value) {
  Value copy = value;
  copy["LmaxValue"] = 300.0;
}

using Works = std::map<std::string, std::function<void()>>;

Works ofPocketjson() {
  static const auto value = target<pocketjson::Value>();
  static double sum = 0.0;
  return {{"read", [] { sum += value["numberOfGraylevels"].asInt(); }},
          {"absent", [] { sum += value["luminanceTolerance"].asInt(); }},
          {"write_nested", writeNested<pocketjson::Value>},
          {"copy_then_write", [] { copyThenWrite(value); }}};
}

Works ofNlohmann() {
  static const auto value = target<nlohmann::json>();
  static double sum = 0.0;
  return {{"read", [] { sum += value["numberOfGraylevels"].get<int>(); }},
          {"absent", [] { sum += value.value("luminanceTolerance", 0); }},
          {"write_nested", writeNested<nlohmann::json>},
          {"copy_then_write", [] { copyThenWrite(value); }}};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const Works works = argv[1] == std::string("pocketjson") ? ofPocketjson() : ofNlohmann();
  const auto work = works.find(argv[2]);
  if (work == works.end()) return 2;
  for (long i = std::atol(argv[3]); i > 0; --i) work->second();
}
