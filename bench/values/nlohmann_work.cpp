// SPDX-License-Identifier: MIT
#include <nlohmann/json.hpp>
#include <string>

#include "bench/support/measured.h"
#include "bench/values/nlohmann_call.h"
#include "bench/values/target_members.h"

namespace {

using bench::measure;
using nlohmann::json;

json target() {
  json value;
  for (const bench::TargetMember& member : bench::kTarget) {
    std::visit([&](auto scalar) { value[member.key] = scalar; }, member.value);
  }
  return value;
}

json members(std::int64_t count) {
  json value;
  for (std::int64_t i = 0; i < count; ++i) value["member number " + std::to_string(i)] = 0.5;
  return value;
}

void copyTarget(benchmark::State& state) {
  const json value = target();
  measure(state, [&] { return json(value); });
}

void copyMembers(benchmark::State& state) {
  const json value = members(state.range(0));
  measure(state, [&] { return json(value); });
}

void copyArray(benchmark::State& state) {
  const json value = json::array_t(static_cast<std::size_t>(state.range(0)), json(0.5));
  measure(state, [&] { return json(value); });
}

void readLiteral(benchmark::State& state) {
  const json value = target();
  measure(state, [&] { return value["numberOfGraylevels"].get<int>(); });
}

// The call that takes a default, which is what a host writes for a member that may be absent.
void readAbsent(benchmark::State& state) {
  const json value = target();
  measure(state, [&] { return value.value("luminanceTolerance", 0); });
}

// Absent, but with the beginning of a name that is there.
void readAbsentAlike(benchmark::State& state) {
  const json value = target();
  measure(state, [&] { return value.value("numberOfDarklevels", 0); });
}

void readAbsentByFind(benchmark::State& state) {
  const json value = target();
  measure(state, [&] {
    const auto place = value.find("luminanceTolerance");
    return place != value.end() ? place->get<int>() : 0;
  });
}

void readLiteralByCall(benchmark::State& state) {
  const json value = target();
  measure(state, [&] { return bench::numberOf(value, "numberOfGraylevels"); });
}

void readAbsentByCall(benchmark::State& state) {
  const json value = target();
  measure(state, [&] { return bench::numberOr(value, "luminanceTolerance", 0); });
}

void readTarget(benchmark::State& state) {
  const json value = target();
  measure(state, [&] {
    bench::Sum sum;
    sum.numbers += value.value("LmaxValue", 0.0);
    sum.numbers += value.value("LminValue", 0.0);
    sum.flags += value.value("IsUsedMeasurementLmin", false);
    sum.flags += value.value("IsUsedLamb", false);
    sum.letters += value.value("ColorTemperatureType", std::string()).size();
    sum.numbers += value.value("ColorXValue", 0.0);
    sum.numbers += value.value("ColorYValue", 0.0);
    sum.letters += value.value("DisplayFunctionType", std::string()).size();
    sum.flags += value.value("IsUsedExternalSensors", false);
    sum.flags += value.value("numberOfGraylevels", 0);
    sum.flags += value.value("measureBacklightResponse", false);
    sum.numbers += value.value("ExpValue", 0.0);
    return sum;
  });
}

void readOfMany(benchmark::State& state) {
  const json value = members(state.range(0));
  const std::string key = "member number " + std::to_string(state.range(0) / 2);
  measure(state, [&] { return value[key].get<double>(); });
}

void writeNested(benchmark::State& state) {
  measure(state, [] {
    json result;
    result["calibrationTarget"]["lmin"] = 0.5;
    return result;
  });
}

void writeNestedAgain(benchmark::State& state) {
  json result;
  measure(state, [&] {
    result["calibrationTarget"]["lmin"] = 0.5;
    return 0;
  });
}

void copyThenWrite(benchmark::State& state) {
  const json value = target();
  measure(state, [&] {
    json copy = value;
    copy["LmaxValue"] = 300.0;
    return copy;
  });
}

void build(benchmark::State& state) {
  measure(state, [&] { return members(state.range(0)); });
}

}  // namespace

BENCHMARK(copyTarget)->Name("copy_target/nlohmann");
BENCHMARK(copyMembers)->Name("copy_members/nlohmann")->Arg(1)->Arg(12)->Arg(256)->Arg(10000);
BENCHMARK(copyArray)->Name("copy_array/nlohmann")->Arg(256);
BENCHMARK(readLiteral)->Name("read_literal/nlohmann");
BENCHMARK(readAbsent)->Name("read_absent/nlohmann");
BENCHMARK(readAbsentAlike)->Name("read_absent_alike/nlohmann");
BENCHMARK(readAbsentByFind)->Name("read_absent/nlohmann_find");
BENCHMARK(readLiteralByCall)->Name("read_literal/nlohmann_call");
BENCHMARK(readAbsentByCall)->Name("read_absent/nlohmann_call");
BENCHMARK(readTarget)->Name("read_target/nlohmann");
BENCHMARK(readOfMany)->Name("read_of_many/nlohmann")->Arg(1)->Arg(12)->Arg(256)->Arg(10000);
BENCHMARK(writeNested)->Name("write_nested/nlohmann");
BENCHMARK(writeNestedAgain)->Name("write_nested_again/nlohmann");
BENCHMARK(copyThenWrite)->Name("copy_then_write/nlohmann");
BENCHMARK(build)->Name("build/nlohmann")->Arg(1)->Arg(12)->Arg(256)->Arg(10000);
