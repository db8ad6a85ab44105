// SPDX-License-Identifier: MIT
// values_work pocketjson|nlohmann WORK TIMES: does it that often, for counting instructions.
// values_work: names the works.
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

// As in bench/values: all begin alike.
std::string alike(int number) { return "member number " + std::to_string(number); }
// No two have the same first eight bytes.
std::string unlike(int number) { return std::to_string(number) + " is its number"; }

// An object with so many members, and the name of the one in the middle.
template <class Value>
struct Many {
  Many(int count, std::string (*name)(int)) : key(name(count / 2)) {
    for (int i = 0; i < count; ++i) value[name(i)] = 0.5;
  }
  Value value;
  std::string key;
};

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

double sum = 0.0;

std::function<void()> readOf(const Many<pocketjson::Value>& many) {
  return [many = &many] { sum += many->value[many->key].asDouble(); };
}
std::function<void()> readOf(const Many<nlohmann::json>& many) {
  return [many = &many] { sum += many->value[many->key].get<double>(); };
}

// Adds the reads of one member of many.
template <class Value>
Works withMany(Works works) {
  static const Many<Value> alike12(12, alike), alike256(256, alike);
  static const Many<Value> unlike12(12, unlike), unlike256(256, unlike);
  works["read_of_many_12"] = readOf(alike12);
  works["read_of_many_256"] = readOf(alike256);
  works["read_of_unlike_12"] = readOf(unlike12);
  works["read_of_unlike_256"] = readOf(unlike256);
  return works;
}

Works ofPocketjson() {
  static const auto value = target<pocketjson::Value>();
  return {{"read", [] { sum += value["numberOfGraylevels"].asInt(); }},
          {"absent", [] { sum += value["luminanceTolerance"].asInt(); }},
          {"absent_alike", [] { sum += value["numberOfDarklevels"].asInt(); }},
          {"write_nested", writeNested<pocketjson::Value>},
          {"copy_then_write", [] { copyThenWrite(value); }}};
}

Works ofNlohmann() {
  static const auto value = target<nlohmann::json>();
  return {{"read", [] { sum += value["numberOfGraylevels"].get<int>(); }},
          {"absent", [] { sum += value.value("luminanceTolerance", 0); }},
          {"absent_alike", [] { sum += value.value("numberOfDarklevels", 0); }},
          {"write_nested", writeNested<nlohmann::json>},
          {"copy_then_write", [] { copyThenWrite(value); }}};
}

}  // namespace

int main(int argc, char** argv) {
  const bool ours = argc < 2 || argv[1] == std::string("pocketjson");
  const Works works =
      ours ? withMany<pocketjson::Value>(ofPocketjson()) : withMany<nlohmann::json>(ofNlohmann());
  if (argc == 1) {
    for (const auto& [name, work] : works) std::puts(name.c_str());
    return 0;
  }
  if (argc != 4) return 2;
  const auto work = works.find(argv[2]);
  if (work == works.end()) return 2;
  for (long i = std::atol(argv[3]); i > 0; --i) work->second();
}
