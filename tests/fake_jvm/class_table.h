// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_CLASS_TABLE_H_
#define L5KOV_TESTS_FAKE_JVM_CLASS_TABLE_H_

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "tests/fake_jvm/fake_runtime.h"
#include "tests/fake_jvm/member.h"

namespace fakejvm {

// Classes, their members and what is scripted for them. Guarded by the machine's mutex.
class ClassTable {
 public:
  ClassTable();

  // Forgets what tests scripted; class objects and members stay.
  void reset();

  // --- look-ups ---
  bool isMissing(const std::string& className) const { return missingClasses.count(className) > 0; }
  bool isMissing(const std::string& className, const std::string& name,
                 const std::string& signature) const;
  ObjectRef classObject(const std::string& className);
  // Empty when `object` is no class object.
  static std::optional<std::string> classNameOf(const ObjectRef& object);
  // The one member of these names; lives until the process ends, as identifiers do.
  const Member* member(Member::Kind kind, const std::string& className, const std::string& name,
                       const std::string& signature);
  // Null when the identifier is none that `member` gave out.
  const Member* known(const void* identifier) const;

  // --- hierarchy ---
  void extends(const std::string& subclass, const std::string& superclass);
  void makeThrowable(const std::string& className);
  bool isA(const std::string& className, const std::string& ancestor) const;
  // Empty for java/lang/Object.
  std::string superclass(const std::string& className) const;

  // --- scripts ---
  void script(const ObjectRef& object, const std::string& member, Handler handler);
  void script(const std::string& className, const std::string& member, Handler handler);
  void builtIn(const std::string& className, const std::string& member, Handler handler);
  // What answers the member on that object: its own script, then its class's and their
  // superclasses', then built-in behaviour. Null when nothing does.
  const Handler* find(const ObjectRef& self, const Member& member) const;

  void setStaticField(const std::string& className, const std::string& field, Value value);
  // Null when it was never set.
  const Value* staticField(const Member& member) const;

  void missingClass(const std::string& className) { missingClasses.insert(className); }
  void missingMember(const std::string& className, const std::string& name,
                     const std::string& signature) {
    missingMembers.insert({className, name, signature});
  }

 private:
  using Scripts = std::map<std::string, Handler>;  // by name, or name and signature
  using ClassScripts = std::map<std::string, Scripts>;

  static const Handler* pick(const Scripts& scripts, const Member& member);
  static const Handler* pick(const ClassScripts& scripts, const std::string& className,
                             const Member& member);
  // The class, then everything above it, nearest first.
  std::vector<std::string> ancestry(const std::string& className) const;

  std::map<std::string, ObjectRef> classObjects;
  std::map<std::tuple<Member::Kind, std::string, std::string, std::string>, std::unique_ptr<Member>>
      members;
  std::set<const void*> identifiers;
  std::map<std::string, std::vector<std::string>> supers;
  std::map<ObjectRef, Scripts> objectScripts;
  ClassScripts classScripts;
  ClassScripts builtIns;
  std::map<std::pair<std::string, std::string>, Value> staticFields;
  std::set<std::string> missingClasses;
  std::set<std::tuple<std::string, std::string, std::string>> missingMembers;
};

// The working Java platform: lists, boxes, strings, throwables (built_ins.cpp).
void addBuiltIns(ClassTable& classes);

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_CLASS_TABLE_H_
