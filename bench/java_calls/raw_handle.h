// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_JAVA_CALLS_RAW_HANDLE_H_
#define L5KOV_BENCH_JAVA_CALLS_RAW_HANDLE_H_

#include <jni.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

// A Java exception by hand.
namespace bench {

struct RawException : std::runtime_error {
  RawException(const std::string& message, std::string name, jobject reference)
      : std::runtime_error(message), className(std::move(name)), throwable(reference) {}
  std::string className;
  jobject throwable;  // a global reference
};

// Throws a RawException. What a translation needs: message and class name, looked up by name each
// time, since it must work before anything is cached; and a reference that outlives the frame.
[[noreturn]] void translateByHand(JNIEnv* env, jthrowable thrown);

// What a handle promises, by hand: a shared control behind virtual functions, which pushes a frame
// that its destructor pops. Compiled apart from its caller, as a library is.
class RawHandle {
 public:
  explicit RawHandle(jobject monitor);
  std::string getConnectionType() const;

  class Control {
   public:
    virtual ~Control() = default;
    virtual std::string getConnectionType() = 0;
  };

 private:
  std::shared_ptr<Control> control;
};

}  // namespace bench

#endif  // L5KOV_BENCH_JAVA_CALLS_RAW_HANDLE_H_
