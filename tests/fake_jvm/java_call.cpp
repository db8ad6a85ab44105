// SPDX-License-Identifier: MIT
#include "tests/fake_jvm/java_call.h"

#include "tests/fake_jvm/describe.h"
#include "tests/fake_jvm/instance.h"

namespace fakejvm {
namespace {

bool isReference(char type) { return type == 'L' || type == '['; }

bool sameKind(char wanted, char found) {
  return wanted == found || (wanted == 'L' && found == '[');
}

ObjectRef boxed(const std::string& type, const Value& value) {
  const bool named = type.size() > 2 && type.rfind("Ljava/lang/", 0) == 0;
  std::string className = named ? type.substr(1, type.size() - 2) : "";
  if (className != "java/lang/Integer" && className != "java/lang/Double" &&
      className != "java/lang/Long") {
    className = value.kind() == Value::Kind::kDouble ? "java/lang/Double"
                : value.kind() == Value::Kind::kLong ? "java/lang/Long"
                                                     : "java/lang/Integer";
  }
  auto box = std::make_shared<Object>(className);
  box->setField("value", value);
  return box;
}

// From its return on, a call owes an exception check.
class OwedCheck {
 public:
  explicit OwedCheck(Entry& entry) : call(entry) {}
  ~OwedCheck() { call.thread->unchecked = call.line(); }
  OwedCheck(const OwedCheck&) = delete;
  OwedCheck& operator=(const OwedCheck&) = delete;

 private:
  Entry& call;
};

// False, and a problem, where a real runtime would crash or hand back garbage.
bool legal(Entry& call, const CallForm& form, const Member& member, const ObjectRef& self) {
  if (!self) {
    call.problem("null object: " + member.text());
    call.raise("java/lang/NullPointerException", std::nullopt);
    return false;
  }
  const std::string& className =
      member.kind == Member::Kind::kStatic ? self->name() : self->className;
  if (!call.machine.classes.isA(className, member.className)) {
    call.problem(displayName(self) + " of class " + className + " has no " + member.text());
    return false;
  }
  if (!sameKind(form.result, member.parsed.result)) {
    call.problem("wrong result kind: " + member.text());
    return false;
  }
  return true;
}

}  // namespace

Value toValue(Entry& call, char type, const jvalue& raw) {
  switch (type) {
    case 'Z':
      return raw.z != JNI_FALSE;
    case 'J':
      return static_cast<int64_t>(raw.j);
    case 'D':
      return raw.d;
    case 'F':
      return static_cast<double>(raw.f);
    case 'V':
      return {};
    default:
      return isReference(type) ? Value(call.object(raw.l)) : Value(static_cast<int32_t>(raw.i));
  }
}

std::vector<Value> toValues(Entry& call, const Signature& signature,
                            const std::vector<jvalue>& raw) {
  std::vector<Value> values;
  for (std::size_t i = 0; i < raw.size(); ++i) {
    values.push_back(toValue(call, signature.parameters[i], raw[i]));
  }
  return values;
}

jvalue toRaw(Entry& call, const std::string& type, const Value& value) {
  jvalue raw{};
  const char kind = type.empty() ? 'V' : type[0];
  const bool isNumber = value.kind() != Value::Kind::kObject && value.kind() != Value::Kind::kVoid;
  if (isReference(kind)) {
    raw.l = call.local(isNumber ? boxed(type, value) : value.asObject());
  } else if (kind == 'Z') {
    raw.z = value.asBool() ? JNI_TRUE : JNI_FALSE;
  } else if (kind == 'J') {
    raw.j = value.asLong();
  } else if (kind == 'D') {
    raw.d = value.asDouble();
  } else if (kind != 'V') {
    raw.i = value.asInt();
  }
  return raw;
}

Value runScript(Entry& call, const Member& member, const ObjectRef& self,
                const std::vector<Value>& args) {
  const Handler* found = call.machine.classes.find(self, member);
  if (found == nullptr) {
    call.machine.problem("unscripted call: " + displayName(self) + "." + member.name +
                         argumentsText(args));
    return {};
  }
  const Handler handler = *found;
  Call javaCall{runtimeInstance(), call.thread, self, member.name, member.signature, args};
  Value result;
  std::optional<JavaThrow> thrown;
  bool foreign = false;
  ++call.thread->javaDepth;
  call.unlocked([&] {
    try {
      result = handler(javaCall);
    } catch (const JavaThrow& exception) {
      thrown = exception;
    } catch (...) {
      foreign = true;
    }
  });
  --call.thread->javaDepth;
  if (foreign) call.machine.problem("C++ exception left the script of " + member.text());
  if (!thrown) return result;
  if (thrown->throwable) {
    call.machine.classes.makeThrowable(thrown->throwable->className);
    call.thread->pending = thrown->throwable;
  } else {
    call.raise(thrown->className, thrown->message);
  }
  return {};
}

jvalue callMember(JNIEnv* env, const CallForm& form, jobject target, jmethodID id,
                  const ArgumentReader& reader) {
  Entry call(env, form.slot);
  const Member* member = call.member(id, form.kind);
  const ObjectRef self = call.object(target);
  if (member == nullptr) {
    call.log(displayName(self) + ".?");
    return {};
  }
  const std::vector<Value> args = toValues(call, member->parsed, reader(member->parsed));
  call.log(displayName(self) + "." + member->name + argumentsText(args));
  const OwedCheck owed(call);
  if (!legal(call, form, *member, self) || call.failsAsCall(form.result == 'V')) return {};
  const Value result = runScript(call, *member, self, args);
  return toRaw(call, member->parsed.resultType, result);
}

jobject newObject(JNIEnv* env, const char* slot, jclass clazz, jmethodID id,
                  const ArgumentReader& reader) {
  Entry call(env, slot);
  const Member* member = call.member(id, Member::Kind::kInstance);
  const auto className = call.className(clazz);
  const std::string shown = className.value_or("null");
  if (member == nullptr) {
    call.log(shown + ".?");
    return nullptr;
  }
  const std::vector<Value> args = toValues(call, member->parsed, reader(member->parsed));
  call.log(shown + "." + member->name + argumentsText(args));
  const OwedCheck owed(call);
  if (!className) return nullptr;
  if (member->name != "<init>" || member->className != *className) {
    call.problem(*className + " has no constructor " + member->text());
    return nullptr;
  }
  if (call.fails("java/lang/OutOfMemoryError", "Java heap space")) return nullptr;
  if (call.machine.classes.find(nullptr, *member) == nullptr) {
    call.machine.problem("unscripted call: " + *className + ".<init>" + argumentsText(args));
    return nullptr;
  }
  const auto object = std::make_shared<Object>(*className);
  const ObjectRef pendingBefore = call.thread->pending;
  runScript(call, *member, object, args);
  const bool thrown = call.thread->pending != pendingBefore;
  return thrown ? nullptr : call.local(object);
}

}  // namespace fakejvm
