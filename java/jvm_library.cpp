// SPDX-License-Identifier: MIT
#include "java/jvm_library.h"

#include <stdexcept>
#include <string>

#include "java/jni_calls.h"
#include "java/plugin_paths.h"
#include "java/utf8.h"

namespace lumora::kov::java {
namespace {

constexpr const char* kFailed = "Failed to create Java VM";
constexpr const char* kBadConversion = "bad conversion";

// A path that is not UTF-8 cannot be turned into the wide text that the loader takes.
const std::string& requireUtf8(const std::string& path) {
  if (!isUtf8(path)) throw std::range_error(kBadConversion);
  return path;
}

}  // namespace

JvmLibrary& JvmLibrary::instance() {
  static JvmLibrary library;
  return library;
}

JvmLibrary::JvmLibrary() {
  const std::string path = jvmLibraryPath(pluginsFolder());
  module = platform::loadRuntimeLibrary(requireUtf8(path));
  if (module == nullptr) return;  // shows when a virtual machine is wanted
  createJavaVM = reinterpret_cast<CreateJavaVM>(platform::findExport(module, "JNI_CreateJavaVM"));
  getCreatedJavaVMs =
      reinterpret_cast<GetCreatedJavaVMs>(platform::findExport(module, "JNI_GetCreatedJavaVMs"));
}

JvmLibrary::~JvmLibrary() { platform::freeRuntimeLibrary(module); }

JavaVM* JvmLibrary::runningVm() const {
  JavaVM* vm = nullptr;
  jsize count = 0;
  if (getCreatedJavaVMs == nullptr || getCreatedJavaVMs(&vm, 1, &count) != JNI_OK) return nullptr;
  return count > 0 ? vm : nullptr;
}

JvmLibrary::Joined JvmLibrary::joinOrCreate() {
  JavaVM* vm = nullptr;
  {
    const std::lock_guard lock(searchOrCreate);
    vm = runningVm();
    if (vm == nullptr) return create();
  }
  // The call's result is not examined; that no environment came is, since using it would crash.
  JNIEnv* env = jni::attachCurrentThread(vm);
  if (env == nullptr) throw std::runtime_error(kFailed);
  return {vm, env, false};
}

JvmLibrary::Joined JvmLibrary::create() const {
  const std::string plugins = pluginsFolder();
  std::string texts[] = {platform::runtimeOption(classPathOption(plugins)),
                         platform::runtimeOption(nativeLibraryPathOption(plugins))};
  JavaVMOption options[2] = {};
  for (int i = 0; i < 2; ++i) options[i].optionString = texts[i].data();

  JavaVMInitArgs arguments = {};
  arguments.version = JNI_VERSION_1_8;
  arguments.nOptions = 2;
  arguments.options = options;
  arguments.ignoreUnrecognized = JNI_TRUE;

  Joined joined{nullptr, nullptr, true};
  void* env = nullptr;
  if (createJavaVM == nullptr || createJavaVM(&joined.vm, &env, &arguments) != JNI_OK) {
    throw std::runtime_error(kFailed);
  }
  joined.env = static_cast<JNIEnv*>(env);
  return joined;
}

}  // namespace lumora::kov::java
