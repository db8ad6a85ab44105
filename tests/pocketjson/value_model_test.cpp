// SPDX-License-Identifier: MIT
// Random programs on values and on a model that shares nothing, side by side.
#include <gtest/gtest.h>
#include <pocketjson/value.h>

#include <array>
#include <random>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "describe.h"

using pocketjson::Value;

namespace {

// A value that copies everything.
struct Model {
  Value::Type type = Value::Null;
  long long number = 0;
  double real = 0.0;
  std::string text;
  std::map<std::string, Model> members;
  std::vector<Model> elements;

  void become(Value::Type wanted) {
    if (type == wanted) return;
    *this = Model();
    type = wanted;
  }
  Model& operator[](const std::string& key) {
    become(Value::Object);
    return members[key];
  }
  Model& operator[](std::size_t index) {
    const std::size_t length = type == Value::Array ? elements.size() : 0;
    if (index > length) throw std::out_of_range("model");
    become(Value::Array);
    if (index == length) elements.emplace_back();
    return elements[index];
  }
  std::size_t nodes() const {
    std::size_t count = 1;
    for (const auto& [key, member] : members) count += member.nodes();
    for (const Model& element : elements) count += element.nodes();
    return count;
  }
};

bool same(const Value& value, const Model& model);

bool sameMembers(const Value& value, const Model& model) {
  const std::vector<std::string> keys = value.keys();
  if (keys.size() != model.members.size() || value.size() != keys.size()) return false;
  std::size_t at = 0;
  for (const auto& [key, member] : model.members) {
    if (keys[at++] != key || !same(value[key], member)) return false;
  }
  return true;
}

bool sameElements(const Value& value, const Model& model) {
  if (value.size() != model.elements.size()) return false;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (!same(value[i], model.elements[i])) return false;
  }
  return true;
}

bool same(const Value& value, const Model& model) {
  if (value.type() != model.type) return false;
  switch (model.type) {
    case Value::Bool:
      return value.asBool(model.number == 0) == (model.number != 0);
    case Value::Int:
      return value.asString() == std::to_string(model.number);
    case Value::Double:
      return value.asDouble() == model.real;
    case Value::String:
      return value.asString() == model.text;
    case Value::Object:
      return sameMembers(value, model);
    case Value::Array:
      return sameElements(value, model);
    default:
      return true;
  }
}

class Program {
 public:
  explicit Program(std::uint64_t seed) : random(seed) {}

  void step() {
    const std::size_t to = pick(kSlots);
    const std::size_t from = pick(kSlots);
    if (models[to].nodes() + models[from].nodes() > kMostNodes) {
      values[to] = nullptr;
      models[to] = Model();
    }
    operate(to, from);
    ASSERT_TRUE(same(values[to], models[to])) << describe(values[to]);
    ASSERT_TRUE(same(values[from], models[from])) << describe(values[from]);
  }

  void checkAll() const {
    for (std::size_t i = 0; i < kSlots; ++i)
      ASSERT_TRUE(same(values[i], models[i])) << "slot " << i;
  }

 private:
  static constexpr std::size_t kSlots = 8;
  static constexpr std::size_t kMostNodes = 200;

  std::size_t pick(std::size_t count) { return random() % count; }

  std::string key() {
    static const std::array<const char*, 9> kKeys{
        "a", "B", "IsUsedMeasurementLmin", "IsUsedMeasurementLmax", "IsUsedMe", "IsUsedLamb", "",
        "\xC3\xA4", "numberOfGraylevels"};
    return kKeys[pick(kKeys.size())];
  }

  std::pair<Value, Model> leaf() {
    Model model;
    switch (pick(5)) {
      case 0:
        return {Value(), model};
      case 1:
        model.type = Value::Bool;
        model.number = static_cast<long long>(pick(2));
        return {Value(model.number != 0), model};
      case 2:
        model.type = Value::Int;
        model.number = static_cast<long long>(random());
        return {Value(model.number), model};
      case 3:
        model.type = Value::Double;
        model.real = static_cast<double>(pick(1000)) / 8;
        return {Value(model.real), model};
      default:
        model.type = Value::String;
        model.text = std::string(pick(30), 'x');
        return {Value(model.text), model};
    }
  }

  // Somewhere inside the slot, reached by up to three writes that mostly fit what is there.
  std::pair<Value*, Model*> place(std::size_t slot) {
    Value* value = &values[slot];
    Model* model = &models[slot];
    for (std::size_t depth = pick(4); depth > 0; --depth) {
      const bool byIndex = model->type == Value::Array ? pick(20) != 0 : pick(20) == 0;
      if (byIndex) {
        const std::size_t index = pick((model->type == Value::Array ? value->size() : 0) + 1);
        value = &(*value)[index];
        model = &(*model)[index];
      } else {
        const std::string name = key();
        value = &(*value)[name];
        model = &(*model)[name];
      }
    }
    return {value, model};
  }

  void operate(std::size_t to, std::size_t from) {
    switch (pick(14)) {
      case 0:
        values[to] = values[from];
        models[to] = Model(models[from]);
        return;
      case 1:
        std::swap(values[to], values[from]);
        std::swap(models[to], models[from]);
        return;
      case 2:
        return moveFrom(to, from);
      case 3:
        return changeType(to);
      case 4:
        return takeOwnMember(to);
      case 5:
        return putIntoItself(to);
      case 6:
      case 7:
        return append(to, from);
      case 8:
        return readOnly(to);
      case 9:
      case 10:
        return writeCopy(to, from);
      default:
        return writeLeaf(to);
    }
  }

  void writeLeaf(std::size_t to) {
    const auto [value, model] = place(to);
    std::tie(*value, *model) = leaf();
  }

  void writeCopy(std::size_t to, std::size_t from) {
    const Value copy = values[from];  // taken before the place is looked up
    const Model modelCopy = models[from];
    const auto [value, model] = place(to);
    *value = copy;
    *model = modelCopy;
  }

  void moveFrom(std::size_t to, std::size_t from) {
    if (to == from) return;
    values[to] = std::move(values[from]);
    models[to] = std::exchange(models[from], Model());
  }

  // This one and the next ones destroy much: only now and then where they do not fit.
  void changeType(std::size_t to) {
    if (pick(4) != 0) return;
    static const std::array<Value::Type, 7> kKinds{Value::Null,   Value::Bool,   Value::Int,
                                                   Value::Double, Value::String, Value::Object,
                                                   Value::Array};
    const auto [value, model] = place(to);
    const Value::Type kind = kKinds[pick(kKinds.size())];
    value->setType(kind);
    model->become(kind);
  }

  void takeOwnMember(std::size_t to) {
    if (pick(4) != 0) return;
    const std::string name = key();
    values[to] = values[to][name];
    models[to] = Model(models[to][name]);
  }

  void putIntoItself(std::size_t to) {
    if (values[to].type() != Value::Object && pick(5) != 0) return;
    const std::string name = key();
    const Model before = models[to];
    values[to][name] = values[to];
    models[to][name] = before;
  }

  void append(std::size_t to, std::size_t from) {
    if (values[to].type() != Value::Array && pick(5) != 0) return;
    const Model element = models[from];
    values[to].append(values[from]);
    models[to].become(Value::Array);
    models[to].elements.push_back(element);
  }

  void readOnly(std::size_t to) {
    const std::string name = key();
    const Value& read = values[to];
    const bool there = models[to].type == Value::Object && models[to].members.count(name) != 0;
    EXPECT_EQ(&read[name] != &Value::nullValue(), there);
    EXPECT_THROW(values[to][read.size() + 1 + pick(5)], std::out_of_range);
  }

  std::mt19937_64 random;
  std::array<Value, kSlots> values;
  std::array<Model, kSlots> models;
};

TEST(ValueModel, TwoHundredThousandRandomStepsAgreeWithACopyingModel) {
  for (std::uint64_t seed = 1; seed <= 4; ++seed) {
    Program program(seed);
    for (int i = 0; i < 50000; ++i) {
      program.step();
      if (i % 500 == 0) program.checkAll();
      if (testing::Test::HasFailure()) FAIL() << "seed " << seed << ", step " << i;
    }
  }
}

}  // namespace
