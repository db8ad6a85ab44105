// SPDX-License-Identifier: MIT
#include <boost/json.hpp>
#include <string>

#include "bench/support/measured.h"
#include "bench/values/target_members.h"

namespace {

using bench::measure;
using boost::json::value;

value target() {
  boost::json::object made;
  for (const bench::TargetMember& member : bench::kTarget) {
    std::visit([&](auto scalar) { made[member.key] = scalar; }, member.value);
  }
  return made;
}

// A member's number, text or flag, or the default.
template <class T>
T numberOr(const value& of, const char* key, T otherwise) {
  const value* found = of.as_object().if_contains(key);
  return found != nullptr ? found->to_number<T>() : otherwise;
}
bool flagOr(const value& of, const char* key, bool otherwise) {
  const value* found = of.as_object().if_contains(key);
  return found != nullptr ? found->as_bool() : otherwise;
}
std::string textOr(const value& of, const char* key, const char* otherwise) {
  const value* found = of.as_object().if_contains(key);
  return found != nullptr ? std::string(found->as_string()) : otherwise;
}

void copyTarget(benchmark::State& state) {
  const value made = target();
  measure(state, [&] { return value(made); });
}

void copyArray(benchmark::State& state) {
  const value made = boost::json::array(static_cast<std::size_t>(state.range(0)), value(0.5));
  measure(state, [&] { return value(made); });
}

void readLiteral(benchmark::State& state) {
  const value made = target();
  measure(state, [&] { return made.at("numberOfGraylevels").to_number<int>(); });
}

void readAbsent(benchmark::State& state) {
  const value made = target();
  measure(state, [&] { return numberOr(made, "luminanceTolerance", 0); });
}

// Absent, but with the beginning of a name that is there.
void readAbsentAlike(benchmark::State& state) {
  const value made = target();
  measure(state, [&] { return numberOr(made, "numberOfDarklevels", 0); });
}

void readTarget(benchmark::State& state) {
  const value made = target();
  measure(state, [&] {
    bench::Sum sum;
    sum.numbers += numberOr(made, "LmaxValue", 0.0);
    sum.numbers += numberOr(made, "LminValue", 0.0);
    sum.flags += flagOr(made, "IsUsedMeasurementLmin", false);
    sum.flags += flagOr(made, "IsUsedLamb", false);
    sum.letters += textOr(made, "ColorTemperatureType", "").size();
    sum.numbers += numberOr(made, "ColorXValue", 0.0);
    sum.numbers += numberOr(made, "ColorYValue", 0.0);
    sum.letters += textOr(made, "DisplayFunctionType", "").size();
    sum.flags += flagOr(made, "IsUsedExternalSensors", false);
    sum.flags += numberOr(made, "numberOfGraylevels", 0);
    sum.flags += flagOr(made, "measureBacklightResponse", false);
    sum.numbers += numberOr(made, "ExpValue", 0.0);
    return sum;
  });
}

void writeNested(benchmark::State& state) {
  measure(state, [] {
    value result;
    result.emplace_object()["calibrationTarget"].emplace_object()["lmin"] = 0.5;
    return result;
  });
}

void writeNestedAgain(benchmark::State& state) {
  value result;
  result.emplace_object()["calibrationTarget"].emplace_object()["lmin"] = 0.5;
  measure(state, [&] {
    result.as_object()["calibrationTarget"].as_object()["lmin"] = 0.5;
    return 0;
  });
}

void copyThenWrite(benchmark::State& state) {
  const value made = target();
  measure(state, [&] {
    value copy = made;
    copy.as_object()["LmaxValue"] = 300.0;
    return copy;
  });
}

}  // namespace

BENCHMARK(copyTarget)->Name("copy_target/boost");
BENCHMARK(copyArray)->Name("copy_array/boost")->Arg(256);
BENCHMARK(readLiteral)->Name("read_literal/boost");
BENCHMARK(readAbsent)->Name("read_absent/boost");
BENCHMARK(readAbsentAlike)->Name("read_absent_alike/boost");
BENCHMARK(readTarget)->Name("read_target/boost");
BENCHMARK(writeNested)->Name("write_nested/boost");
BENCHMARK(writeNestedAgain)->Name("write_nested_again/boost");
BENCHMARK(copyThenWrite)->Name("copy_then_write/boost");
