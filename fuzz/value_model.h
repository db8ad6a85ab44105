// SPDX-License-Identifier: MIT
#ifndef L5KOV_FUZZ_VALUE_MODEL_H_
#define L5KOV_FUZZ_VALUE_MODEL_H_

#include <map>
#include <string>
#include <vector>

#include "fuzz/plain_conversions.h"
#include "fuzz/require.h"
#include "pocketjson/value.h"

// What a value is to be, as a tree that copies deeply.
struct Model {
  using Type = pocketjson::Value::Type;

  Type type = Type::Null;
  bool truth = false;
  long long integer = 0;
  double real = 0.0;
  std::string text;
  std::vector<Model> elements;
  std::map<std::string, Model> members;

  // What was held stays where the type is the same.
  void become(Type wanted) {
    if (type == wanted) return;
    *this = Model();
    type = wanted;
  }
  // Empties it in any case.
  Model& restart(Type wanted) {
    *this = Model();
    type = wanted;
    return *this;
  }
  std::size_t size() const {
    return type == Type::String ? text.size() : elements.size() + members.size();
  }
};

inline std::size_t nodesOf(const Model& model) {
  std::size_t nodes = 1;
  for (const Model& element : model.elements) nodes += nodesOf(element);
  for (const auto& [key, member] : model.members) nodes += nodesOf(member);
  return nodes;
}

// The whole tree: types, contents, lengths.
inline void compare(const pocketjson::Value& value, const Model& model) {
  require(value.type() == model.type, "type");
  require(value.size() == model.size(), "size");
  switch (model.type) {
    case Model::Type::Bool:
      return require(value.asBool() == model.truth, "truth");
    case Model::Type::Int:
      if (model.integer == static_cast<int>(model.integer)) {
        return require(value.asInt(7) == model.integer, "integer");
      }
      return require(value.asString() == plain::textOf(model.integer), "wide integer");
    case Model::Type::Double:
      return require(plain::same(value.asDouble(), model.real), "double");
    case Model::Type::String:
      return require(value.asString() == model.text, "text");
    case Model::Type::Array:
      for (std::size_t i = 0; i < model.elements.size(); ++i) compare(value[i], model.elements[i]);
      return require(&value[model.elements.size()] == &pocketjson::Value::nullValue(),
                     "past the end");
    case Model::Type::Object:
      for (const auto& [key, member] : model.members) compare(value[key], member);
      return;
    default:
      return;
  }
}

// One node's four conversions, each with that default.
struct Conversions {
  bool truth;
  int integer;
  double real;
  std::string text;
};

inline Conversions convert(const Model& model, const Conversions& byDefault) {
  switch (model.type) {
    case Model::Type::Bool:
      return {model.truth, model.truth, model.truth ? 1.0 : 0.0, model.truth ? "true" : "false"};
    case Model::Type::Int:
      return {model.integer != 0, plain::narrowed(model.integer, byDefault.integer),
              static_cast<double>(model.integer), plain::textOf(model.integer)};
    case Model::Type::Double:
      return {model.real != 0.0, plain::rounded(model.real, byDefault.integer), model.real,
              plain::textOf(model.real)};
    case Model::Type::String:
      return {model.text == "true", plain::intIn(model.text.c_str()),
              plain::doubleIn(model.text.c_str()).value_or(byDefault.real), model.text};
    default:
      return byDefault;
  }
}

inline void checkConversions(const pocketjson::Value& value, const Model& model,
                             const Conversions& byDefault) {
  const Conversions wanted = convert(model, byDefault);
  require(value.asBool(byDefault.truth) == wanted.truth, "as a truth");
  require(value.asInt(byDefault.integer) == wanted.integer, "as an integer");
  require(plain::same(value.asDouble(byDefault.real), wanted.real), "as a double");
  require(value.asString(byDefault.text) == wanted.text, "as a text");
}

// What a reader sees of one node beside its contents: names in their order, conversions, and
// nothing where there is nothing, whatever the type.
inline void probe(const pocketjson::Value& value, const Model& model) {
  checkConversions(value, model, {false, 0, 0.0, ""});
  checkConversions(value, model, {true, -41, 41.5, "none"});
  std::vector<std::string> names;
  for (const auto& [key, member] : model.members) names.push_back(key);
  require(value.keys() == names, "names");

  const auto absent = [&](const std::string& key) {
    if (model.members.count(key) != 0) return;
    require(&value[key] == &pocketjson::Value::nullValue(), "a name that is not there");
    require(value[key].asInt(41) == 41, "the default for it");
  };
  absent("");
  absent("absent");
  if (!names.empty()) {
    absent(names.front() + names.back() + "x");
    absent(names.back().substr(0, names.back().size() / 2));
  }
  require(&value[model.elements.size()] == &pocketjson::Value::nullValue(),
          "an index that is not there");
}

#endif  // L5KOV_FUZZ_VALUE_MODEL_H_
