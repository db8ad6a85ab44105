// SPDX-License-Identifier: MIT
// Strings, as modified UTF-8 bytes that nobody looks into.
#include <cstring>

#include "tests/fake_jvm/describe.h"
#include "tests/fake_jvm/entry.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

constexpr const char* kNoMemory = "java/lang/OutOfMemoryError";
constexpr const char* kHeapSpace = "Java heap space";

// Null, noted as a problem, unless the reference is a string.
ObjectRef stringOf(Entry& call, jstring reference) {
  ObjectRef string = call.object(reference);
  if (reference == nullptr) {
    call.problem("null string");
  } else if (string && string->className != kStringClass) {
    call.problem(displayName(string) + " is no string");
    string = nullptr;
  }
  return string;
}

jstring JNICALL newStringUtf(JNIEnv* env, const char* bytes) {
  Entry call(env, "NewStringUTF");
  call.log(bytes == nullptr ? "null" : quoted(bytes));
  if (bytes == nullptr || call.fails(kNoMemory, kHeapSpace)) return nullptr;
  return static_cast<jstring>(call.local(makeString(bytes)));
}

jsize JNICALL getStringUtfLength(JNIEnv* env, jstring reference) {
  Entry call(env, "GetStringUTFLength");
  const ObjectRef string = stringOf(call, reference);
  call.log(displayName(string));
  return string ? static_cast<jsize>(string->text().size()) : 0;
}

const char* JNICALL getStringUtfChars(JNIEnv* env, jstring reference, jboolean* isCopy) {
  Entry call(env, "GetStringUTFChars");
  const ObjectRef string = stringOf(call, reference);
  call.log(displayName(string));
  if (!string || call.fails(kNoMemory, kHeapSpace)) return nullptr;
  const std::string text = string->text();
  auto* bytes = new char[text.size() + 1];
  std::memcpy(bytes, text.c_str(), text.size() + 1);
  call.machine.utf[bytes] = displayName(string);
  if (isCopy != nullptr) *isCopy = JNI_TRUE;
  return bytes;
}

void JNICALL releaseStringUtfChars(JNIEnv* env, jstring reference, const char* bytes) {
  Entry call(env, "ReleaseStringUTFChars", PendingRule::kAllowed);
  const ObjectRef string = stringOf(call, reference);
  call.log(displayName(string));
  const auto found = call.machine.utf.find(bytes);
  if (found == call.machine.utf.end()) {
    call.problem("these characters are not taken");
    return;
  }
  if (string && found->second != displayName(string)) {
    call.problem("characters of " + found->second + " released for " + displayName(string));
  }
  call.machine.utf.erase(found);
  delete[] bytes;
}

}  // namespace

void addStringSlots(JNINativeInterface_& table) {
  table.NewStringUTF = newStringUtf;
  table.GetStringUTFLength = getStringUtfLength;
  table.GetStringUTFChars = getStringUtfChars;
  table.ReleaseStringUTFChars = releaseStringUtfChars;
}

}  // namespace fakejvm
