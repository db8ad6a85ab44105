// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_KOV_JAVA_JAVA_ENV_H_
#define L5KOV_LUMORA_KOV_JAVA_JAVA_ENV_H_

#include <memory>

#include "l5kov/export.h"
#include "lumora/kov/java/jni_names.h"

namespace lumora {
namespace kov {
namespace java {

struct JavaClasses;
class JavaEnv;

/// The calling thread's Java environment. The first call in a process loads the Java runtime of the
/// plug-in folder and creates the virtual machine, or joins one that already runs in the process;
/// the first call on a thread attaches it and looks up all classes and methods once.
///
/// After DeleteJavaVM() on the same thread the same object comes back, without bindings.
///
/// A thread's first call should not come from inside a Java native method or a JNI local frame of
/// the host's own: the class references that it makes live as long as the frame around it.
///
/// @return never null; owned by the library
/// @throws std::logic_error while the thread's own thread-local objects are being destroyed
/// @throws std::runtime_error "Failed to create Java VM": the runtime library is missing, cannot be
///         loaded or refuses to start, or the thread cannot be attached; on Linux also when a
///         virtual machine of another runtime library runs in the process. A failed load is not
///         tried again in this process.
/// @throws std::range_error "bad conversion": the path of the runtime library is not valid UTF-8
L5KOV_API JavaEnv* Env();

/// Releases the calling thread's hold on the virtual machine: on the thread that created it, one
/// System.gc() and the end of the bindings; on any other thread, the end of the bindings and a
/// detach. The virtual machine goes on running. Does nothing while no virtual machine runs, and
/// nothing on a thread that has released its hold before.
///
/// It is the last Java-related call that a thread may make, and must not be made inside a
/// KovCalibratorDelegate. Every later operation of this library on the thread throws
/// std::logic_error; the calibrator's that return an OmError return OM_ERR_COMMUNICATION instead,
/// but for setCalibrationTarget(), which throws. Does nothing while the thread's own objects are
/// being destroyed.
///
/// @throws what Env() throws, and JavaException when System.gc() failed
L5KOV_API void DeleteJavaVM();

/// One thread's access to Java: its JNI environment and its class bindings. There is one per thread
/// that called Env(); it belongs to that thread, must not be used on another, and lives until the
/// thread ends.
///
/// When the thread ends it is detached, also if the host had attached it. The thread that created
/// the virtual machine stays attached: neither it nor anyone else destroys the machine, since a
/// second one cannot be created in the same process.
class L5KOV_API JavaEnv {
 public:
  JavaEnv(const JavaEnv&) = delete;
  JavaEnv& operator=(const JavaEnv&) = delete;
  ~JavaEnv();

  /// The process's virtual machine.
  JavaVM* vm() const noexcept { return vm_; }
  /// This thread's JNI environment; null once DeleteJavaVM() has detached the thread.
  JNIEnv* env() const noexcept { return *env_; }
  /// True when this thread created the virtual machine, false when it joined one.
  bool createdVm() const noexcept { return createdVm_; }
  /// False after DeleteJavaVM() on this thread.
  bool hasClasses() const noexcept { return classes_ != nullptr; }

  /// The class bindings, for the library itself.
  /// @throws std::logic_error after DeleteJavaVM() on this thread
  const JavaClasses& classes() const;
  /// The cell that bindings and wrappers read the environment through, for the library itself.
  JNIEnv** cell() const noexcept { return env_.get(); }

 private:
  // Env() and DeleteJavaVM(). Not friends themselves: mingw's compiler would forget that they are
  // imported.
  friend struct EnvOfThread;

  JavaEnv();
  void release();

  JavaVM* vm_ = nullptr;
  std::unique_ptr<JNIEnv*> env_;
  bool createdVm_ = false;
  std::unique_ptr<JavaClasses> classes_;
};

}  // namespace java
}  // namespace kov
}  // namespace lumora

#endif  // L5KOV_LUMORA_KOV_JAVA_JAVA_ENV_H_
