// SPDX-License-Identifier: MIT
// The native library of JavaHost.java: a host of libl5kov inside a machine that runs already.
#include <jni.h>

#include <exception>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/real/support.h"

namespace {

using lumora::Monitor;
using lumora::kov::java::JavaException;
using realtest::Workstation;

std::unique_ptr<Monitor> kept;

std::string nameOf(const Monitor& monitor) {
  return monitor.getModelName() + " " + monitor.getSerialNumber();
}

std::string use(bool calibrate) {
  const std::string found = nameOf(Workstation::findColourMonitor());
  if (!calibrate) return found;
  realtest::Calibration run(realtest::kColour);
  if (run.calibrator.registerCallback() != OM_OK) return "not registered";
  if (setTarget(run, realtest::dicomTarget()) != OM_OK) return "no target";
  return found + " " + std::to_string(static_cast<int>(run.calibrator.execute()));
}

std::string inWords(const std::function<std::string()>& operation) {
  try {
    return operation();
  } catch (const JavaException& e) {
    return e.getClassName() + ": " + e.what();
  } catch (const std::logic_error& e) {
    return std::string("logic_error: ") + e.what();
  } catch (const std::exception& e) {
    return std::string("exception: ") + e.what();
  }
}

jstring text(JNIEnv* env, const std::string& words) {
  return env->NewStringUTF(words.c_str());
}

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL Java_JavaHost_useHere(JNIEnv* env, jclass, jboolean calibrate) {
  return text(env, inWords([&] { return use(calibrate == JNI_TRUE); }));
}

JNIEXPORT jstring JNICALL Java_JavaHost_useOnOwnThread(JNIEnv* env, jclass, jboolean calibrate) {
  std::string words;
  std::thread([&] { words = inWords([&] { return use(calibrate == JNI_TRUE); }); }).join();
  return text(env, words);
}

JNIEXPORT void JNICALL Java_JavaHost_keep(JNIEnv*, jclass) {
  kept = std::make_unique<Monitor>(Workstation::findColourMonitor());
}

JNIEXPORT jstring JNICALL Java_JavaHost_askKept(JNIEnv* env, jclass) {
  return text(env, inWords([] { return nameOf(*kept); }));
}

JNIEXPORT jstring JNICALL Java_JavaHost_release(JNIEnv* env, jclass) {
  return text(env, inWords([]() -> std::string {
                lumora::kov::java::DeleteJavaVM();
                return "released";
              }));
}

JNIEXPORT jstring JNICALL Java_JavaHost_failure(JNIEnv* env, jclass) {
  return text(env, inWords([] { return use(false); }));
}

}  // extern "C"
