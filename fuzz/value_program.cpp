// SPDX-License-Identifier: MIT
// Programs over four values, beside a model that copies deeply: sharing must never show.
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "fuzz/bytes.h"
#include "fuzz/require.h"
#include "pocketjson/value.h"

namespace {

using pocketjson::Value;

struct Model {
  Value::Type type = Value::Null;
  bool truth = false;
  int integer = 0;
  double real = 0.0;
  std::string text;
  std::vector<Model> elements;
  std::map<std::string, Model> members;

  void become(Value::Type wanted) {
    if (type == wanted) return;
    *this = Model();
    type = wanted;
  }
};

constexpr int kRegisters = 4;
constexpr std::size_t kMaxNodes = 2000;  // copies of copies grow without bound

std::size_t nodesOf(const Model& model) {
  std::size_t nodes = 1;
  for (const Model& element : model.elements) nodes += nodesOf(element);
  for (const auto& [key, member] : model.members) nodes += nodesOf(member);
  return nodes;
}

void compare(const Value& value, const Model& model) {
  require(value.type() == model.type, "type");
  switch (model.type) {
    case Value::Bool:
      return require(value.asBool() == model.truth, "truth");
    case Value::Int:
      return require(value.asInt() == model.integer, "integer");
    case Value::Double:
      return require(value.asDouble() == model.real, "double");
    case Value::String:
      return require(value.asString() == model.text, "text");
    case Value::Array:
      require(value.size() == model.elements.size(), "length");
      for (std::size_t i = 0; i < model.elements.size(); ++i) compare(value[i], model.elements[i]);
      return require(value[model.elements.size()].type() == Value::Null, "past the end");
    case Value::Object:
      require(value.size() == model.members.size(), "members");
      for (const auto& [key, member] : model.members) compare(value[key], member);
      return;
    default:
      return;
  }
}

class Program {
 public:
  explicit Program(Bytes bytes) : input(bytes) {}

  void run() {
    while (!input.empty()) {
      step();
      for (int i = 0; i < kRegisters; ++i) compare(values[i], models[i]);
    }
  }

 private:
  void step() {
    const unsigned operation = input.next();
    const unsigned registers = input.next();
    Value* value = &values[registers % kRegisters];
    Model* model = &models[registers % kRegisters];
    // Taken before the step goes down into a register: a reference into a value is not to be
    // written through after that value was copied (value.h says so of every write access).
    const Value other = values[(registers >> 2) % kRegisters];
    const Model otherModel = models[(registers >> 2) % kRegisters];
    // Some steps act on what lies below the register.
    for (unsigned depth = (registers >> 4) % 4; depth > 0; --depth) descend(value, model);
    const bool grows = nodesOf(*model) + nodesOf(otherModel) > kMaxNodes;
    switch (operation % 10) {
      case 0:
        model->become(Value::Null);
        *model = Model();
        model->type = Value::Bool;
        model->truth = input.next() % 2 == 1;
        *value = Value(model->truth);
        break;
      case 1:
        *model = Model();
        model->type = Value::Int;
        model->integer = static_cast<int>(input.next() * 16777259u);
        *value = Value(model->integer);
        break;
      case 2:
        *model = Model();
        model->type = Value::Double;
        model->real = input.number();
        *value = Value(model->real);
        break;
      case 3:
        *model = Model();
        model->type = Value::String;
        model->text = input.text();
        *value = Value(model->text);
        break;
      case 4:
        if (!grows) copy(*value, *model, other, otherModel);
        break;
      case 5:
        if (!grows) append(*value, *model, other, otherModel);
        break;
      case 6:
        if (!grows) setMember(*value, *model, other, otherModel);
        break;
      case 7:
        if (!grows) setElement(*value, *model, other, otherModel);
        break;
      case 8:
        setType(*value, *model);
        break;
      default:
        replaceByPart(*value, *model);
        break;
    }
  }

  // Into an element or member that exists; the write access unshares on the way.
  void descend(Value*& value, Model*& model) {
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

  static void copy(Value& value, Model& model, const Value& other, const Model& otherModel) {
    value = other;
    model = otherModel;
  }

  static void append(Value& value, Model& model, const Value& other, const Model& otherModel) {
    model.become(Value::Array);
    model.elements.push_back(otherModel);
    value.append(other);
  }

  void setMember(Value& value, Model& model, const Value& other, const Model& otherModel) {
    const std::string key = input.text();
    model.become(Value::Object);
    model.members[key] = otherModel;
    value[key] = other;
  }

  void setElement(Value& value, Model& model, const Value& other, const Model& otherModel) {
    const std::size_t length = model.type == Value::Array ? model.elements.size() : 0;
    const std::size_t index = input.next() % (length + 2);
    if (index > length) {
      bool thrown = false;
      try {
        value[index] = other;
      } catch (const std::out_of_range&) {
        thrown = true;
      }
      return require(thrown, "an index past the end");
    }
    model.become(Value::Array);
    if (index == length) model.elements.emplace_back();
    model.elements[index] = otherModel;
    value[index] = other;
  }

  void setType(Value& value, Model& model) {
    constexpr Value::Type kTypes[] = {Value::Null,   Value::Bool,  Value::Int,   Value::Double,
                                      Value::String, Value::Array, Value::Object};
    const Value::Type wanted = kTypes[input.next() % 7];
    model.become(wanted);
    value.setType(wanted);
  }

  // v = v["a"], v = v[0]
  void replaceByPart(Value& value, Model& model) {
    Value* part = &value;
    Model* partModel = &model;
    descend(part, partModel);
    const Model taken = *partModel;
    value = *part;
    model = taken;
  }

  Bytes input;
  Value values[kRegisters];
  Model models[kRegisters];
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size <= 4096) Program(Bytes(data, size)).run();
  return 0;
}
