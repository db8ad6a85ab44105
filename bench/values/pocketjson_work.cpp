// SPDX-License-Identifier: MIT
#include <pocketjson/value.h>

#include <string>

#include "bench/support/measured.h"
#include "bench/values/target_members.h"

namespace {

using bench::measure;
using pocketjson::Value;

Value target() {
  Value value;
  for (const bench::TargetMember& member : bench::kTarget) {
    std::visit([&](auto scalar) { value[member.key] = scalar; }, member.value);
  }
  return value;
}

Value members(std::int64_t count) {
  Value value;
  for (std::int64_t i = 0; i < count; ++i) value["member number " + std::to_string(i)] = 0.5;
  return value;
}

Value elements(std::int64_t count) {
  Value value;
  for (std::int64_t i = 0; i < count; ++i) value.append(0.5);
  return value;
}

void copyTarget(benchmark::State& state) {
  const Value value = target();
  measure(state, [&] { return Value(value); });
}

void copyMembers(benchmark::State& state) {
  const Value value = members(state.range(0));
  measure(state, [&] { return Value(value); });
}

void copyArray(benchmark::State& state) {
  const Value value = elements(state.range(0));
  measure(state, [&] { return Value(value); });
}

void readLiteral(benchmark::State& state) {
  const Value value = target();
  measure(state, [&] { return value["numberOfGraylevels"].asInt(); });
}

void readAbsent(benchmark::State& state) {
  const Value value = target();
  measure(state, [&] { return value["luminanceTolerance"].asInt(); });
}

// Absent, but with the beginning of a name that is there.
void readAbsentAlike(benchmark::State& state) {
  const Value value = target();
  measure(state, [&] { return value["numberOfDarklevels"].asInt(); });
}

void readTarget(benchmark::State& state) {
  const Value value = target();
  measure(state, [&] {
    bench::Sum sum;
    sum.numbers += value["LmaxValue"].asDouble();
    sum.numbers += value["LminValue"].asDouble();
    sum.flags += value["IsUsedMeasurementLmin"].asBool();
    sum.flags += value["IsUsedLamb"].asBool();
    sum.letters += value["ColorTemperatureType"].asString().size();
    sum.numbers += value["ColorXValue"].asDouble();
    sum.numbers += value["ColorYValue"].asDouble();
    sum.letters += value["DisplayFunctionType"].asString().size();
    sum.flags += value["IsUsedExternalSensors"].asBool();
    sum.flags += value["numberOfGraylevels"].asInt();
    sum.flags += value["measureBacklightResponse"].asBool();
    sum.numbers += value["ExpValue"].asDouble();
    return sum;
  });
}

void readOfMany(benchmark::State& state) {
  const Value value = members(state.range(0));
  const std::string key = "member number " + std::to_string(state.range(0) / 2);
  measure(state, [&] { return value[key].asDouble(); });
}

void writeNested(benchmark::State& state) {
  measure(state, [] {
    Value result;
    result["calibrationTarget"]["lmin"] = 0.5;
    return result;
  });
}

void writeNestedAgain(benchmark::State& state) {
  Value result;
  measure(state, [&] {
    result["calibrationTarget"]["lmin"] = 0.5;
    return 0;
  });
}

void copyThenWrite(benchmark::State& state) {
  const Value value = target();
  measure(state, [&] {
    Value copy = value;
    copy["LmaxValue"] = 300.0;
    return copy;
  });
}

void build(benchmark::State& state) {
  measure(state, [&] { return members(state.range(0)); });
}

}  // namespace

BENCHMARK(copyTarget)->Name("copy_target/pocketjson");
BENCHMARK(copyMembers)->Name("copy_members/pocketjson")->Arg(1)->Arg(12)->Arg(256)->Arg(10000);
BENCHMARK(copyArray)->Name("copy_array/pocketjson")->Arg(256);
BENCHMARK(readLiteral)->Name("read_literal/pocketjson");
BENCHMARK(readAbsent)->Name("read_absent/pocketjson");
BENCHMARK(readAbsentAlike)->Name("read_absent_alike/pocketjson");
BENCHMARK(readTarget)->Name("read_target/pocketjson");
BENCHMARK(readOfMany)->Name("read_of_many/pocketjson")->Arg(1)->Arg(12)->Arg(256)->Arg(10000);
BENCHMARK(writeNested)->Name("write_nested/pocketjson");
BENCHMARK(writeNestedAgain)->Name("write_nested_again/pocketjson");
BENCHMARK(copyThenWrite)->Name("copy_then_write/pocketjson");
BENCHMARK(build)->Name("build/pocketjson")->Arg(1)->Arg(12)->Arg(256)->Arg(10000);
