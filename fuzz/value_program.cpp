// SPDX-License-Identifier: MIT
// Programs over four values, beside a model that copies deeply: sharing must never show.
#include <cstdint>
#include <utility>

#include "fuzz/bytes.h"
#include "fuzz/require.h"
#include "fuzz/value_model.h"
#include "fuzz/value_steps.h"
#include "pocketjson/value.h"

namespace {

using namespace steps;

constexpr int kRegisters = 4;
constexpr std::size_t kMaxNodes = 120;  // copies of copies grow without bound
constexpr unsigned kFirstFurther = 200;

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
    const unsigned own = registers % kRegisters;
    const unsigned from = (registers >> 2) % kRegisters;
    if (operation >= kFirstFurther && operation % 2 == 0) return exchange(operation, own, from);
    // Taken before the step goes down into a register: a reference into a value is not to be
    // written through after that value was copied (value.h says so of every write access).
    const Value other = values[from];
    Place place{&values[own], &models[own], &other, &models[from], false};
    place.hasRoom = nodesOf(models[own]) + 2 * nodesOf(models[from]) <= kMaxNodes;
    // Some steps act on what lies below the register.
    for (unsigned depth = (registers >> 4) % 4; depth > 0; --depth) {
      descend(place.value, place.model, input);
    }
    if (operation < kFirstFurther) {
      act(operation % 10, place);
    } else {
      actFurther(operation / 2 % 7, place);
    }
    probe(*place.value, *place.model);
  }

  void act(unsigned operation, const Place& place) {
    auto& [value, model, other, otherModel, hasRoom] = place;
    switch (operation) {
      case 0:
        model->restart(Value::Bool).truth = input.next() % 2 == 1;
        *value = Value(model->truth);
        break;
      case 1:
        model->restart(Value::Int).integer = static_cast<int>(input.next() * 16777259u);
        *value = Value(static_cast<int>(model->integer));
        break;
      case 2:
        model->restart(Value::Double).real = input.number();
        *value = Value(model->real);
        break;
      case 3:
        model->restart(Value::String).text = input.text();
        *value = Value(model->text);
        break;
      case 4:
        if (hasRoom) copy(place);
        break;
      case 5:
        if (hasRoom) append(place);
        break;
      case 6:
        if (hasRoom) setMember(place, input);
        break;
      case 7:
        if (hasRoom) setElement(place, input);
        break;
      case 8:
        setType(*value, *model, input);
        break;
      default:
        replaceByPart(*value, *model, input);
        break;
    }
  }

  void actFurther(unsigned operation, const Place& place) {
    auto& [value, model, other, otherModel, hasRoom] = place;
    switch (operation) {
      case 0:
        model->restart(Value::Int).integer = bits<long long>(input);
        *value = Value(model->integer);
        break;
      case 1:
        setUnsigned(*value, *model, input);
        break;
      case 2:
        model->restart(Value::Double).real = bits<double>(input);
        *value = model->real;
        break;
      case 3:
        setText(*value, *model, input);
        break;
      case 4:
        if (hasRoom) wrapInArray(place);
        break;
      case 5:
        if (hasRoom) wrapInObject(place);
        break;
      default:
        if (hasRoom) touch(*value, *model, input);
        break;
    }
  }

  // Swaps and moves, of whole registers. (What was moved from is Null; a value moved to itself
  // stays.)
  void exchange(unsigned operation, unsigned own, unsigned from) {
    switch (operation / 2 % 4) {
      case 0:
        values[own].swap(values[from]);
        std::swap(models[own], models[from]);
        break;
      case 1:
        swap(values[own], values[from]);
        std::swap(models[own], models[from]);
        break;
      case 2: {
        Value taken(std::move(values[from]));
        require(values[from].type() == Value::Null, "moved from");
        values[own] = std::move(taken);
        moveModel(own, from);
        break;
      }
      default: {
        Value& source = values[from];
        values[own] = std::move(source);
        moveModel(own, from);
        break;
      }
    }
    probe(values[own], models[own]);
    probe(values[from], models[from]);
  }

  void moveModel(unsigned own, unsigned from) {
    Model taken = std::exchange(models[from], Model());
    models[own] = std::move(taken);
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
