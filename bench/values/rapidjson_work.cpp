// SPDX-License-Identifier: MIT
#include <rapidjson/document.h>

#include <string>

#include "bench/support/measured.h"
#include "bench/values/target_members.h"

namespace {

using bench::measure;
using rapidjson::Document;
using RapidValue = rapidjson::Value;

// Keys and texts are copied, as in the other libraries.
void addTarget(Document& document) {
  document.SetObject();
  auto& allocator = document.GetAllocator();
  for (const bench::TargetMember& member : bench::kTarget) {
    RapidValue scalar;
    if (const auto* text = std::get_if<const char*>(&member.value)) {
      scalar.SetString(*text, allocator);
    } else if (const auto* number = std::get_if<double>(&member.value)) {
      scalar.SetDouble(*number);
    } else if (const auto* whole = std::get_if<int>(&member.value)) {
      scalar.SetInt(*whole);
    } else {
      scalar.SetBool(std::get<bool>(member.value));
    }
    document.AddMember(RapidValue(member.key, allocator), scalar, allocator);
  }
}

const RapidValue* find(const RapidValue& object, const char* key) {
  const auto place = object.FindMember(key);
  return place != object.MemberEnd() ? &place->value : nullptr;
}
double numberOr(const RapidValue& object, const char* key, double otherwise) {
  const RapidValue* found = find(object, key);
  return found != nullptr ? found->GetDouble() : otherwise;
}
int wholeOr(const RapidValue& object, const char* key, int otherwise) {
  const RapidValue* found = find(object, key);
  return found != nullptr ? found->GetInt() : otherwise;
}
bool flagOr(const RapidValue& object, const char* key, bool otherwise) {
  const RapidValue* found = find(object, key);
  return found != nullptr ? found->GetBool() : otherwise;
}
std::string textOr(const RapidValue& object, const char* key, const char* otherwise) {
  const RapidValue* found = find(object, key);
  return found != nullptr ? found->GetString() : otherwise;
}

Document copyOf(const Document& document) {
  Document copy;
  copy.CopyFrom(document, copy.GetAllocator());
  return copy;
}

void copyTarget(benchmark::State& state) {
  Document document;
  addTarget(document);
  measure(state, [&] { return copyOf(document); });
}

void copyArray(benchmark::State& state) {
  Document document;
  document.SetArray();
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    document.PushBack(0.5, document.GetAllocator());
  }
  measure(state, [&] { return copyOf(document); });
}

void readLiteral(benchmark::State& state) {
  Document document;
  addTarget(document);
  measure(state, [&] { return document["numberOfGraylevels"].GetInt(); });
}

void readAbsent(benchmark::State& state) {
  Document document;
  addTarget(document);
  measure(state, [&] { return wholeOr(document, "luminanceTolerance", 0); });
}

// Absent, but with the beginning of a name that is there.
void readAbsentAlike(benchmark::State& state) {
  Document document;
  addTarget(document);
  measure(state, [&] { return wholeOr(document, "numberOfDarklevels", 0); });
}

void readTarget(benchmark::State& state) {
  Document document;
  addTarget(document);
  measure(state, [&] {
    bench::Sum sum;
    sum.numbers += numberOr(document, "LmaxValue", 0.0);
    sum.numbers += numberOr(document, "LminValue", 0.0);
    sum.flags += flagOr(document, "IsUsedMeasurementLmin", false);
    sum.flags += flagOr(document, "IsUsedLamb", false);
    sum.letters += textOr(document, "ColorTemperatureType", "").size();
    sum.numbers += numberOr(document, "ColorXValue", 0.0);
    sum.numbers += numberOr(document, "ColorYValue", 0.0);
    sum.letters += textOr(document, "DisplayFunctionType", "").size();
    sum.flags += flagOr(document, "IsUsedExternalSensors", false);
    sum.flags += wholeOr(document, "numberOfGraylevels", 0);
    sum.flags += flagOr(document, "measureBacklightResponse", false);
    sum.numbers += numberOr(document, "ExpValue", 0.0);
    return sum;
  });
}

void writeNested(benchmark::State& state) {
  measure(state, [] {
    Document result(rapidjson::kObjectType);
    auto& allocator = result.GetAllocator();
    RapidValue inner(rapidjson::kObjectType);
    inner.AddMember(RapidValue("lmin", allocator), RapidValue(0.5), allocator);
    result.AddMember(RapidValue("calibrationTarget", allocator), inner, allocator);
    return result;
  });
}

void copyThenWrite(benchmark::State& state) {
  Document document;
  addTarget(document);
  measure(state, [&] {
    Document copy = copyOf(document);
    copy["LmaxValue"].SetDouble(300.0);
    return copy;
  });
}

}  // namespace

BENCHMARK(copyTarget)->Name("copy_target/rapidjson");
BENCHMARK(copyArray)->Name("copy_array/rapidjson")->Arg(256);
BENCHMARK(readLiteral)->Name("read_literal/rapidjson");
BENCHMARK(readAbsent)->Name("read_absent/rapidjson");
BENCHMARK(readAbsentAlike)->Name("read_absent_alike/rapidjson");
BENCHMARK(readTarget)->Name("read_target/rapidjson");
BENCHMARK(writeNested)->Name("write_nested/rapidjson");
BENCHMARK(copyThenWrite)->Name("copy_then_write/rapidjson");
