// SPDX-License-Identifier: MIT
#ifndef L5KOV_FUZZ_VALUE_STEPS_H_
#define L5KOV_FUZZ_VALUE_STEPS_H_

#include <cstdint>
#include <cstring>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fuzz/bytes.h"
#include "fuzz/require.h"
#include "fuzz/value_model.h"
#include "pocketjson/value.h"

// The steps that need more than a line, each done to a value and to its model alike.
namespace steps {

using pocketjson::Value;

// Where a step acts, and what it may take from another register.
struct Place {
  Value* value;
  Model* model;
  const Value* other;
  const Model* otherModel;
  bool hasRoom;  // for two copies of the other
};

// Into an element or member that exists; the write access unshares on the way.
inline void descend(Value*& value, Model*& model, Bytes& input) {
  const unsigned which = input.next();
  if (model->type == Value::Array && !model->elements.empty()) {
    const std::size_t index = which % model->elements.size();
    value = &(*value)[index];
    model = &model->elements[index];
  } else if (model->type == Value::Object && !model->members.empty()) {
    auto place = model->members.begin();
    std::advance(place, which % model->members.size());
    value = &(*value)[place->first];
    model = &place->second;
  }
}

template <typename Number>
Number bits(Bytes& input) {
  std::uint64_t pattern = 0;
  for (int i = 0; i < 8; ++i) pattern = pattern << 8 | input.next();
  Number number;
  std::memcpy(&number, &pattern, sizeof number);
  return number;
}

inline void copy(const Place& place) {
  Model taken = *place.otherModel;  // the place may lie inside
  *place.model = std::move(taken);
  *place.value = *place.other;
}

inline void append(const Place& place) {
  Model taken = *place.otherModel;
  place.model->become(Value::Array);
  place.model->elements.push_back(std::move(taken));
  place.value->append(*place.other);
}

inline void setMember(const Place& place, Bytes& input) {
  const std::string key = input.text();
  Model taken = *place.otherModel;
  place.model->become(Value::Object);
  place.model->members[key] = std::move(taken);
  (*place.value)[key] = *place.other;
}

inline void setElement(const Place& place, Bytes& input) {
  auto& [value, model, other, otherModel, hasRoom] = place;
  const std::size_t length = model->type == Value::Array ? model->elements.size() : 0;
  const std::size_t index = input.next() % (length + 2);
  if (index > length) {
    bool thrown = false;
    try {
      (*value)[index] = *other;
    } catch (const std::out_of_range&) {
      thrown = true;
    }
    return require(thrown, "an index past the end");
  }
  Model taken = *otherModel;
  model->become(Value::Array);
  if (index == length) model->elements.emplace_back();
  model->elements[index] = std::move(taken);
  (*value)[index] = *other;
}

inline void setType(Value& value, Model& model, Bytes& input) {
  constexpr Value::Type kTypes[] = {Value::Null,   Value::Bool,  Value::Int,   Value::Double,
                                    Value::String, Value::Array, Value::Object};
  const Value::Type wanted = kTypes[input.next() % 7];
  model.become(wanted);
  value.setType(wanted);
}

// v = v["a"], v = v[0]
inline void replaceByPart(Value& value, Model& model, Bytes& input) {
  Value* part = &value;
  Model* partModel = &model;
  descend(part, partModel, input);
  Model taken = *partModel;
  value = *part;
  model = std::move(taken);
}

// Above the range of Int it becomes a Double.
inline void setUnsigned(Value& value, Model& model, Bytes& input) {
  const auto number = bits<unsigned long long>(input);
  if (number >> 63 != 0) {
    model.restart(Value::Double).real = static_cast<double>(number);
  } else {
    model.restart(Value::Int).integer = static_cast<long long>(number);
  }
  value = number;
}

// Texts of every kind; a C text ends at its NUL. The contents look like numbers at times.
inline void setText(Value& value, Model& model, Bytes& input) {
  const unsigned kind = input.next() % 5;
  std::string text = kind == 4 ? plain::textOf(input.number()) : input.text();
  model.restart(Value::String).text = kind == 0 ? std::string(text.c_str()) : text;
  if (kind == 0) {
    value = text.c_str();
  } else if (kind == 1) {
    value = std::string_view(text);
  } else if (kind == 2) {
    value = text;
  } else {
    value = std::move(text);
  }
}

inline void wrapInArray(const Place& place) {
  Model taken = *place.otherModel;
  place.model->restart(Value::Array).elements = {taken, taken};
  *place.value = Value(std::vector<Value>{*place.other, *place.other});
}

inline void wrapInObject(const Place& place) {
  Model taken = *place.otherModel;
  place.model->restart(Value::Object).members = {{"b", taken}, {"a", Model()}};
  *place.value = Value(std::map<std::string, Value>{{"b", *place.other}, {"a", {}}});
}

// A write access whose result nobody uses makes the member all the same.
inline void touch(Value& value, Model& model, Bytes& input) {
  const std::string key = input.text();
  model.become(Value::Object);
  const bool isNew = model.members.try_emplace(key).second;
  Value& member = value[key];
  if (isNew) require(member.type() == Value::Null, "a new member");
}

}  // namespace steps

#endif  // L5KOV_FUZZ_VALUE_STEPS_H_
