// SPDX-License-Identifier: MIT
#include "tests/java/wrapper_rows.h"

#include <algorithm>
#include <cctype>

#include "tests/support/plugin_folder.h"

namespace kovtest {
namespace {

constexpr const char* kTarget = "com/orva/kov/library/api/CalibrationTargetValues";

}  // namespace

Arguments::Arguments(FakeJvm& jvm)
    : env(kov::Env()),
      boxed(kov::wrap<kov::JInteger>(env, jvm->local(jvm.object("boxed", "java/lang/Integer")))),
      other(kov::wrap<kov::JApiCalibrationTargetValues>(env,
                                                        jvm->local(jvm.object("other", kTarget)))),
      element(jvm->local(jvm.object("element", "java/lang/Object"))),
      numbers(static_cast<jdoubleArray>(jvm->local(jvm.object("numbers", "[D")))) {}

std::string simpleName(std::string_view className) {
  return std::string(className.substr(className.rfind('/') + 1));
}

std::string WrapperRow::testName() const {
  const std::size_t dot = member.find('.');
  std::string name = simpleName(member.substr(0, dot)) + "_" + member.substr(dot + 1);
  std::replace_if(
      name.begin(), name.end(),
      [](char c) { return !std::isalnum(static_cast<unsigned char>(c)) && c != '_'; }, '_');
  return name;
}

std::string shown(const std::string& text) { return text; }
std::string shown(std::int32_t value) { return std::to_string(value); }
std::string shown(double value) {
  std::string text = std::to_string(value);
  return text.substr(0, text.find_last_not_of('0') + 1);
}
std::string shown(jobject reference) {
  const fakejvm::ObjectRef object = PluginFolder::get().runtime().resolve(reference);
  return object == nullptr ? "null" : object->name();
}

Lines guarded(const std::string& call) { return {"ExceptionClear", call, "ExceptionOccurred"}; }

Lines operator+(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

std::vector<WrapperRow> wrapperRows() {
  std::vector<WrapperRow> all;
  for (const auto& part : {platformRows(), monitorRows(), targetRows(), historyRows()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

}  // namespace kovtest
