// SPDX-License-Identifier: MIT
#include "tests/fake_jvm/class_table.h"

#include <algorithm>

namespace fakejvm {
namespace {

constexpr const char* kObjectClass = "java/lang/Object";
constexpr const char* kClassClass = "java/lang/Class";
constexpr const char* kThrowableClass = "java/lang/Throwable";

}  // namespace

ClassTable::ClassTable() {
  addBuiltIns(*this);
  reset();
}

void ClassTable::reset() {
  supers.clear();
  extends("java/util/ArrayList", "java/util/List");
  extends("java/lang/Exception", kThrowableClass);
  extends("java/lang/Error", kThrowableClass);
  extends("java/lang/RuntimeException", "java/lang/Exception");
  objectScripts.clear();
  classScripts.clear();
  staticFields.clear();
  missingClasses.clear();
  missingMembers.clear();
}

bool ClassTable::isMissing(const std::string& className, const std::string& name,
                           const std::string& signature) const {
  return missingMembers.count({className, name, signature}) > 0;
}

ObjectRef ClassTable::classObject(const std::string& className) {
  ObjectRef& object = classObjects[className];
  if (!object) object = std::make_shared<Object>(kClassClass, className);
  return object;
}

std::optional<std::string> ClassTable::classNameOf(const ObjectRef& object) {
  if (!object || object->className != kClassClass) return std::nullopt;
  return object->name();
}

const Member* ClassTable::member(Member::Kind kind, const std::string& className,
                                 const std::string& name, const std::string& signature) {
  std::unique_ptr<Member>& slot = members[{kind, className, name, signature}];
  if (!slot) {
    slot = std::make_unique<Member>(
        Member{kind, className, name, signature, parseSignature(signature)});
    identifiers.insert(slot.get());
  }
  return slot.get();
}

const Member* ClassTable::known(const void* identifier) const {
  return identifiers.count(identifier) > 0 ? static_cast<const Member*>(identifier) : nullptr;
}

void ClassTable::extends(const std::string& subclass, const std::string& superclass) {
  supers[subclass].push_back(superclass);
}

void ClassTable::makeThrowable(const std::string& className) {
  if (!isA(className, kThrowableClass)) extends(className, "java/lang/Exception");
}

std::vector<std::string> ClassTable::ancestry(const std::string& className) const {
  std::vector<std::string> line{className};
  for (std::size_t i = 0; i < line.size(); ++i) {
    const auto above = supers.find(line[i]);
    if (above == supers.end()) continue;
    for (const std::string& name : above->second) {
      if (std::find(line.begin(), line.end(), name) == line.end()) line.push_back(name);
    }
  }
  line.push_back(kObjectClass);
  return line;
}

bool ClassTable::isA(const std::string& className, const std::string& ancestor) const {
  const std::vector<std::string> line = ancestry(className);
  return std::find(line.begin(), line.end(), ancestor) != line.end();
}

std::string ClassTable::superclass(const std::string& className) const {
  if (className == kObjectClass) return {};
  return ancestry(className)[1];
}

void ClassTable::script(const ObjectRef& object, const std::string& member, Handler handler) {
  objectScripts[object][member] = std::move(handler);
}

void ClassTable::script(const std::string& className, const std::string& member, Handler handler) {
  classScripts[className][member] = std::move(handler);
}

void ClassTable::builtIn(const std::string& className, const std::string& member, Handler handler) {
  builtIns[className][member] = std::move(handler);
}

const Handler* ClassTable::pick(const Scripts& scripts, const Member& member) {
  auto found = scripts.find(member.name + member.signature);
  if (found == scripts.end()) found = scripts.find(member.name);
  return found == scripts.end() ? nullptr : &found->second;
}

const Handler* ClassTable::pick(const ClassScripts& scripts, const std::string& className,
                                const Member& member) {
  const auto found = scripts.find(className);
  return found == scripts.end() ? nullptr : pick(found->second, member);
}

const Handler* ClassTable::find(const ObjectRef& self, const Member& member) const {
  const bool byClass = member.kind != Member::Kind::kInstance || member.name == "<init>";
  if (!byClass) {
    const auto own = objectScripts.find(self);
    const Handler* handler = own == objectScripts.end() ? nullptr : pick(own->second, member);
    if (handler != nullptr) return handler;
  }
  const std::vector<std::string> line =
      byClass ? std::vector<std::string>{member.className} : ancestry(self->className);
  for (const ClassScripts* scripts : {&classScripts, &builtIns}) {
    for (const std::string& className : line) {
      const Handler* handler = pick(*scripts, className, member);
      if (handler != nullptr) return handler;
    }
  }
  return nullptr;
}

void ClassTable::setStaticField(const std::string& className, const std::string& field,
                                Value value) {
  staticFields[{className, field}] = std::move(value);
}

const Value* ClassTable::staticField(const Member& member) const {
  const auto found = staticFields.find({member.className, member.name});
  return found == staticFields.end() ? nullptr : &found->second;
}

}  // namespace fakejvm
