// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_KOV_JAVA_JAVA_EXCEPTION_H_
#define L5KOV_LUMORA_KOV_JAVA_JAVA_EXCEPTION_H_

#include <stdexcept>
#include <string>

#include "l5kov/export.h"
#include "lumora/kov/java/jni_names.h"

namespace lumora {
namespace kov {
namespace java {

/// A Java exception, caught in a call into Java and thrown on. what() is the Java exception's
/// message as UTF-8, empty when it has none.
///
/// Two class names also stand for what would otherwise end the process:
/// "java.lang.NoSuchMethodError" when the plug-in's jars lack the called member (what() names
/// class, member and signature), and "java.lang.NullPointerException" when the target of a call is
/// null. These carry no Java object.
///
/// Every instance, each copy too, holds a global reference to the Java exception object of its own.
/// It is released through the environment of the thread that caught the exception; on any other
/// thread, and after that thread has detached, through the environment of the thread that destroys
/// the instance.
class L5KOV_API JavaException : public std::runtime_error {
 public:
  /// @param env       environment of the calling thread
  /// @param throwable any reference to the Java exception object, or null; not taken over
  /// @param className dotted class name, e.g. "java.io.IOException"
  /// @param message   the text of what()
  JavaException(JNIEnv* env, jthrowable throwable, const std::string& className,
                const std::string& message);
  JavaException(const JavaException& other);
  JavaException& operator=(const JavaException&) = delete;
  ~JavaException() override;

  /// The Java exception's class in dotted form, e.g. "java.io.IOException".
  const std::string& getClassName() const noexcept { return className; }
  /// The Java exception object, or null; owned by this instance.
  jthrowable getThrowable() const noexcept { return throwable; }

 private:
  [[maybe_unused]] JNIEnv* env;  // of the thread that caught it; part of the exported layout
  jthrowable throwable;
  std::string className;
};

}  // namespace java
}  // namespace kov
}  // namespace lumora

#endif  // L5KOV_LUMORA_KOV_JAVA_JAVA_EXCEPTION_H_
