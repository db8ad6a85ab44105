// SPDX-License-Identifier: MIT
// One process, one start of Java: prints the nanoseconds that the starting thread worked for it,
// those of them in loading the runtime's library, and those in creating the virtual machine.
//   first_env library   the first Env()
//   first_env raw       the same by hand: load, create, look everything up
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <l5kov.h>

#include "bench/java_calls/look_ups.h"
#include "bench/processes/watched_start.h"

namespace {

using CreateJavaVM = jint(JNICALL*)(JavaVM**, void**, void*);
using GetCreatedJavaVMs = jint(JNICALL*)(JavaVM**, jsize, jsize*);

bool startByHand() {
  const std::string plugins =
      std::string(std::getenv("L5KOV_COMMON_APPDATA")) + "/ORVA/Lumora5/plugins/";
  void* module = ::dlopen((plugins + "com.orva.lumora.jre/jre/lib/server/libjvm.so").c_str(),
                          RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (module == nullptr) return false;
  const auto create = reinterpret_cast<CreateJavaVM>(::dlsym(module, "JNI_CreateJavaVM"));
  const auto created = reinterpret_cast<GetCreatedJavaVMs>(::dlsym(module, "JNI_GetCreatedJavaVMs"));
  JavaVM* vm = nullptr;
  jsize count = 0;
  if (created(&vm, 1, &count) != JNI_OK || count != 0) return false;

  std::string classPath =
      "-Djava.class.path=" + plugins + "com.orva.lumora.dataImport/external/dataImport.jar:" +
      plugins + "com.orva.lumora.common.monitorcom.kov/external/KOVLibrary.jar";
  std::string libraryPath = "-Djna.library.path=" + plugins + "com.orva.lumora.jre/jre/bin";
  JavaVMOption options[2] = {};
  options[0].optionString = classPath.data();
  options[1].optionString = libraryPath.data();
  JavaVMInitArgs arguments = {};
  arguments.version = JNI_VERSION_1_8;
  arguments.nOptions = 2;
  arguments.options = options;
  arguments.ignoreUnrecognized = JNI_TRUE;
  void* env = nullptr;
  if (create(&vm, &env, &arguments) != JNI_OK) return false;
  const bench::RawLookUps found(static_cast<JNIEnv*>(env));
  return found.classes + found.members == 129;
}

bool startTheLibrary() { return lumora::kov::java::Env()->createdVm(); }

}  // namespace

int main(int argc, char** argv) {
  const bool library = argc > 1 && std::strcmp(argv[1], "library") == 0;
  bench::watchStart();
  const long long start = bench::nanosecondsOfThread();
  const bool done = library ? startTheLibrary() : startByHand();
  const long long whole = bench::nanosecondsOfThread() - start;
  const bench::StartSteps steps = bench::stepsSoFar();
  std::printf("%lld %lld %lld\n", whole, steps.load, steps.create);
  std::fflush(stdout);
  std::_Exit(done ? 0 : 1);
}
