// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_JAVA_WRAPPER_ROWS_H_
#define L5KOV_TESTS_JAVA_WRAPPER_ROWS_H_

#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "java/java_classes.h"
#include "tests/support/fake_jvm.h"

// Every method of every wrapper, as a table: the member it must call, what reaches Java, what comes
// back. Objects are named after their class: the wrapper of a List calls "List.size()".
namespace kovtest {

namespace kov = lumora::kov::java;

// Ready-made things to hand to wrapper methods.
struct Arguments {
  explicit Arguments(FakeJvm& jvm);

  kov::JavaEnv* env;
  kov::JInteger boxed;                     // "boxed"
  kov::JApiCalibrationTargetValues other;  // "other"
  jobject element;                         // "element"
  jdoubleArray numbers;                    // "numbers"
};

struct Outcome {
  Lines lines;
  std::string result;
};

struct WrapperRow {
  std::string member;  // "java/util/List.size()I"
  std::function<Outcome(FakeJvm&)> run;
  Lines expected;
  std::string result;

  // "List_size", with a number where the class has several members of that name.
  std::string testName() const;
};
inline void PrintTo(const WrapperRow& row, std::ostream* out) { *out << row.testName(); }

// All of them, and their parts.
std::vector<WrapperRow> wrapperRows();
std::vector<WrapperRow> platformRows();
std::vector<WrapperRow> monitorRows();
std::vector<WrapperRow> targetRows();
std::vector<WrapperRow> historyRows();

// "java/util/List" -> "List".
std::string simpleName(std::string_view className);

std::string shown(const std::string& text);
inline std::string shown(const char* text) { return text; }
inline std::string shown(bool value) { return value ? "true" : "false"; }
std::string shown(std::int32_t value);
std::string shown(double value);
std::string shown(jobject reference);
template <kov::Wrapper W>
std::string shown(const W& wrapper) {
  return shown(wrapper.reference());
}

// The three steps of a guarded call.
Lines guarded(const std::string& call);
Lines operator+(Lines first, const Lines& second);

// A method of W: Java answers `answer`.
template <class W, class Body>
WrapperRow row(const std::string& member, fakejvm::Value answer, Body body, Lines expected,
               std::string result) {
  const std::string className(W::kDescriptorClass);
  const auto run = [=](FakeJvm& jvm) {
    const fakejvm::ObjectRef self = jvm.object(simpleName(className), className);
    jvm->script(self, member, fakejvm::returns(answer));
    const Arguments arguments(jvm);
    const W wrapper = kov::wrap<W>(arguments.env, jvm->local(self));
    jvm.log.clear();
    Outcome outcome;
    outcome.result = body(wrapper, arguments);
    outcome.lines = jvm.log.lines();
    return outcome;
  };
  return {className + "." + member, run, std::move(expected), std::move(result)};
}

// "CallIntMethodV List.size(" + arguments + ")"
template <class W>
std::string callLine(const char* slot, const char* name, const std::string& arguments) {
  return std::string(slot) + " " + simpleName(W::kDescriptorClass) + "." + name + "(" + arguments +
         ")";
}

// Getters without parameters, by what they answer.
template <class W, class Body>
WrapperRow intGetter(const char* name, Body body) {
  return row<W>(std::string(name) + "()I", 7, body,
                guarded(callLine<W>("CallIntMethodV", name, "")), "7");
}
template <class W, class Body>
WrapperRow boolGetter(const char* name, Body body) {
  return row<W>(std::string(name) + "()Z", true, body,
                guarded(callLine<W>("CallBooleanMethodV", name, "")), "true");
}
template <class W, class Body>
WrapperRow doubleGetter(const char* name, Body body) {
  return row<W>(std::string(name) + "()D", 2.5, body,
                guarded(callLine<W>("CallDoubleMethodV", name, "")), "2.5");
}
template <class W, class Body>
WrapperRow textGetter(const char* name, Body body) {
  return row<W>(std::string(name) + "()Ljava/lang/String;", "text", body,
                guarded(callLine<W>("CallObjectMethodV", name, "")) +
                    Lines{"GetStringUTFChars \"text\"", "ReleaseStringUTFChars \"text\""},
                "text");
}
// The answer is wrapped, and its wrapper destroyed.
template <class W, class Body>
WrapperRow wrapperGetter(const char* name, const std::string& answerClass, Body body) {
  const auto answer = std::make_shared<fakejvm::Object>(answerClass, "answer");
  return row<W>(std::string(name) + "()L" + answerClass + ";", answer, body,
                guarded(callLine<W>("CallObjectMethodV", name, "")) +
                    Lines{"NewGlobalRef answer", "DeleteGlobalRef answer"},
                "answer");
}
template <class W, class Body>
WrapperRow action(const char* name, Body body) {
  return row<W>(std::string(name) + "()V", {}, body,
                guarded(callLine<W>("CallVoidMethodV", name, "")), "");
}
// Setters of one parameter; `argument` as the log shows it.
template <class W, class Body>
WrapperRow setter(const char* name, const char* signature, const char* argument, Body body) {
  return row<W>(std::string(name) + signature, {}, body,
                guarded(callLine<W>("CallVoidMethodV", name, argument)), "");
}
template <class W, class Body>
WrapperRow textSetter(const char* name, Body body) {
  return row<W>(
      std::string(name) + "(Ljava/lang/String;)V", {}, body,
      Lines{"NewStringUTF \"text\""} + guarded(callLine<W>("CallVoidMethodV", name, "\"text\"")),
      "");
}
// A constructor: body makes a wrapper of the new object.
template <class W, class Body>
WrapperRow creation(const char* signature, const char* arguments, Body body) {
  const std::string className(W::kDescriptorClass);
  const std::string made = simpleName(className) + "#1";
  const auto run = [=](FakeJvm& jvm) {
    jvm->script(className, std::string("<init>") + signature, fakejvm::nothing());
    const Arguments made(jvm);
    jvm.log.clear();
    Outcome outcome;
    outcome.result = body(made);
    outcome.lines = jvm.log.lines();
    return outcome;
  };
  return {className + ".<init>" + signature, run,
          guarded("NewObjectV " + className + ".<init>(" + arguments + ")") +
              Lines{"NewGlobalRef " + made, "DeleteGlobalRef " + made},
          made};
}

}  // namespace kovtest

#endif  // L5KOV_TESTS_JAVA_WRAPPER_ROWS_H_
