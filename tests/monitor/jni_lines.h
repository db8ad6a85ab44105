// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_MONITOR_JNI_LINES_H_
#define L5KOV_TESTS_MONITOR_JNI_LINES_H_

#include <initializer_list>
#include <string>

#include "tests/support/fake_jvm.h"
#include "tests/support/kov_world.h"

// The recurring steps of the JNI log, so that an expected sequence reads like the operation.
namespace kovtest {

inline Lines operator+(Lines left, const Lines& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

// A call into Java under guard.
inline Lines guarded(const std::string& call) {
  return {"ExceptionClear", call, "ExceptionOccurred"};
}
// Such a call with a text as its result, and how the text is taken.
inline Lines guardedText(const std::string& call, const std::string& text) {
  return guarded("CallObjectMethodV " + call) +
         Lines{"GetStringUTFChars \"" + text + "\"", "ReleaseStringUTFChars \"" + text + "\""};
}
// Such a call with an object as its result, which a wrapper then holds.
inline Lines guardedObject(const std::string& call, const std::string& object) {
  return guarded("CallObjectMethodV " + call) + Lines{"NewGlobalRef " + object};
}
inline Lines released(const std::string& object) { return {"DeleteGlobalRef " + object}; }
// An operation in its local frame.
inline Lines inFrame(const Lines& body, int capacity = 32) {
  return Lines{"PushLocalFrame " + std::to_string(capacity)} + body + Lines{"PopLocalFrame"};
}
inline Lines takesLibrary() {
  return guarded(std::string("CallStaticObjectMethodV ") + kLibraryClass + ".getInstance()") +
         Lines{"NewGlobalRef library"};
}
// getMonitorByName("<model>", "<serial>") with an answer.
inline Lines looksUp(const std::string& monitor, const std::string& model = "L5-X240",
                     const std::string& serial = "SN0001") {
  return inFrame(
      takesLibrary() + Lines{"NewStringUTF \"" + model + "\"", "NewStringUTF \"" + serial + "\""} +
      guardedObject("library.getMonitor(\"" + model + "\",\"" + serial + "\")", monitor) +
      released("library"));
}

}  // namespace kovtest

#endif  // L5KOV_TESTS_MONITOR_JNI_LINES_H_
