// SPDX-License-Identifier: MIT
// The Java platform classes that libl5kov touches, working.
#include <algorithm>

#include "tests/fake_jvm/class_table.h"

namespace fakejvm {
namespace {

Value listGet(Call& call) {
  const std::vector<Value> elements = call.self->elements();
  const int32_t index = call.args.at(0).asInt();
  if (index < 0 || static_cast<std::size_t>(index) >= elements.size()) {
    throw JavaThrow("java/lang/IndexOutOfBoundsException", "Index " + std::to_string(index) +
                                                               " out of bounds for length " +
                                                               std::to_string(elements.size()));
  }
  return elements[static_cast<std::size_t>(index)];
}

Value listAdd(Call& call) {
  call.self->addElement(call.args.at(0));
  return true;
}

Value listSize(Call& call) { return static_cast<int32_t>(call.self->elements().size()); }

// Boxes keep their number in the field "value".
Value box(Call& call) {
  call.self->setField("value", call.args.at(0));
  return {};
}
Value unbox(Call& call) { return call.self->field("value"); }

Value classOf(Call& call) {
  // getClass: the class object is the runtime's own, made by name.
  return call.runtime.classObject(call.self->className);
}

// "java/lang/String" becomes "java.lang.String", as Class.getName writes it.
Value className(Call& call) {
  std::string name = call.self->name();
  std::replace(name.begin(), name.end(), '/', '.');
  return name;
}

Value throwableMessage(Call& call) {
  const Value message = call.self->field("message");
  return message.kind() == Value::Kind::kVoid ? Value(nullptr) : message;
}

}  // namespace

void addBuiltIns(ClassTable& classes) {
  classes.builtIn("java/util/ArrayList", "<init>()V", nothing());
  classes.builtIn("java/util/List", "add", listAdd);
  classes.builtIn("java/util/List", "get", listGet);
  classes.builtIn("java/util/List", "size", listSize);
  classes.builtIn("java/lang/Integer", "<init>(I)V", box);
  classes.builtIn("java/lang/Integer", "intValue", unbox);
  classes.builtIn("java/lang/Double", "<init>(D)V", box);
  classes.builtIn("java/lang/Double", "doubleValue", unbox);
  classes.builtIn("java/lang/Long", "<init>(J)V", box);
  classes.builtIn("java/lang/Long", "longValue", unbox);
  classes.builtIn("java/lang/Object", "getClass", classOf);
  classes.builtIn("java/lang/Class", "getName", className);
  classes.builtIn("java/lang/System", "gc", nothing());
  classes.builtIn("java/lang/Throwable", "<init>()V", nothing());
  classes.builtIn("java/lang/Throwable", "getMessage", throwableMessage);
}

}  // namespace fakejvm
