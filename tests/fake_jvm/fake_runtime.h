// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_FAKE_RUNTIME_H_
#define L5KOV_TESTS_FAKE_JVM_FAKE_RUNTIME_H_

#include <jni.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/fake_jvm/java_value.h"

namespace fakejvm {

class Runtime;

// One Java call as a scripted member sees it. No lock of the runtime is held meanwhile.
struct Call {
  Runtime& runtime;
  JNIEnv* env;
  ObjectRef self;  // the class object for static members, the new object for "<init>"
  std::string member;
  std::string signature;
  std::vector<Value> args;
};

// Answers one call: returns the Java result, or throws JavaThrow.
using Handler = std::function<Value(Call&)>;

inline Handler returns(Value value) {
  return [value = std::move(value)](Call&) { return value; };
}
inline Handler throws(std::string className, std::optional<std::string> message = std::nullopt) {
  return [className = std::move(className), message = std::move(message)](Call&) -> Value {
    throw JavaThrow(className, message);
  };
}
inline Handler nothing() { return returns(Value()); }

// How a call is made to fail, whatever is scripted for it.
struct Fault {
  // kNullResult: null, 0 or an error code, with the error that HotSpot leaves pending beside it
  // (NoClassDefFoundError, NoSuchMethodError, OutOfMemoryError ...; none after Call* and
  // NewGlobalRef). kException: this exception pending, result null or 0.
  enum class Kind { kNullResult, kException };
  Kind kind = Kind::kNullResult;
  std::string className;
  std::optional<std::string> message;

  static Fault nullResult() { return {}; }
  static Fault exception(std::string className, std::optional<std::string> message = {}) {
    return {Kind::kException, std::move(className), std::move(message)};
  }
};

// JavaVMInitArgs as JNI_CreateJavaVM received them, texts copied.
struct VmArguments {
  jint version = 0;
  std::vector<std::string> options;
  std::vector<void*> extraInfo;
  bool ignoreUnrecognized = false;
};

struct LogLine {
  int thread = 0;  // 1, 2, 3 ... in the order in which threads first appeared
  std::string text;
};

// The fake Java runtime: scripts it, inspects it. Every operation may be called on any thread.
//
// Classes are named in JNI form ("java/util/List"). Members are named "getModel", or with the
// signature where overloads differ: "setExecuteDate(Ljava/util/Date;)V".
//
// Log lines (one per JNI call, in the order of the calls; what an implicit default leaves out
// is not written):
//   FindClass java/util/List                GetMethodID java/util/List.get(I)Ljava/lang/Object;
//   GetStaticFieldID pkg/Status.NONE Lpkg/Status;   GetStaticObjectField pkg/Status.NONE
//   CallObjectMethodV monitor.getModel()    CallVoidMethodV osd.setLocked(1)
//   CallStaticVoidMethodV java/lang/System.gc()     NewObjectV java/lang/Integer.<init>(5)
//   NewStringUTF "text"   GetStringUTFChars "text"  NewGlobalRef monitor   IsSameObject a b
//   PushLocalFrame 16     PopLocalFrame [object]    NewDoubleArray 3
//   SetDoubleArrayRegion 0 3 [1,0.5,0]      RegisterNatives pkg/Callbacks 6
//   Throw IOException#1   ThrowNew java/lang/Error "text"   ExceptionOccurred
//   JNI_GetCreatedJavaVMs  JNI_CreateJavaVM  AttachCurrentThread  DetachCurrentThread
// Objects that no test named get names in the order in which they first appear ("Integer#1",
// "ArrayList#2"); classes stand as their JNI names; texts of more than 200 bytes are cut:
// "aaaa..."(1048576 bytes). Around a native method that Java calls (callNative):
//   enter jniSendProgress(50,1234)          leave jniSendProgress
class Runtime {
 public:
  // --- the virtual machine ---

  // Forgets scripts, named objects, missing members, faults, hooks, log, problems and counters,
  // and what a failed test left behind (local frames, UTF characters, pending exceptions).
  // The virtual machine, attached threads, live references and identifiers stay, since the
  // library's bindings hold them.
  virtual void reset() = 0;
  // Pretends that no virtual machine exists: every thread counts as detached, what they held is
  // gone, the next JNI_CreateJavaVM succeeds. For running start-up again, on a new thread.
  virtual void forgetVm() = 0;
  // The host already runs a virtual machine (no thread of the library attached yet).
  virtual void preCreateVm() = 0;
  virtual bool vmExists() const = 0;
  // What JNI_CreateJavaVM / JNI_GetCreatedJavaVMs answer, until reset().
  virtual void setCreateResult(jint result) = 0;
  virtual void setCreatedVmsResult(jint result) = 0;
  // Of the last JNI_CreateJavaVM; empty when there was none.
  virtual std::optional<VmArguments> vmArguments() const = 0;
  virtual JavaVM* vm() = 0;
  // For the test's own thread; not logged, not counted.
  virtual JNIEnv* attachThread() = 0;
  virtual void detachThread() = 0;
  virtual int attachedThreads() const = 0;

  // --- classes and objects ---

  // The object of that name; made on the first call.
  virtual ObjectRef object(const std::string& name, const std::string& className) = 0;
  // Null when there is none of that name.
  virtual ObjectRef find(const std::string& name) const = 0;
  virtual ObjectRef classObject(const std::string& className) = 0;
  // Every class has java/lang/Object as its superclass until told otherwise; classes that are
  // thrown get java/lang/Exception. An interface counts as a superclass.
  virtual void extends(const std::string& subclass, const std::string& superclass) = 0;
  virtual void script(const ObjectRef& object, const std::string& member, Handler handler) = 0;
  virtual void script(const std::string& className, const std::string& member, Handler handler) = 0;
  virtual void setStaticField(const std::string& className, const std::string& field,
                              Value value) = 0;
  // FindClass fails with NoClassDefFoundError.
  virtual void missingClass(const std::string& className) = 0;
  // The look-up fails with NoSuchMethodError (a signature with "(") or NoSuchFieldError.
  virtual void missingMember(const std::string& className, const std::string& member,
                             const std::string& signature) = 0;

  // --- references, for tests that hand raw ones to the library (neither logged nor counted) ---

  // A new local reference of the calling thread, which must be attached.
  virtual jobject local(const ObjectRef& object) = 0;
  // Null for a reference that is null or no longer valid.
  virtual ObjectRef resolve(jobject reference) const = 0;

  // --- the calling thread's pending exception (not logged) ---

  virtual void throwPending(const std::string& className,
                            std::optional<std::string> message = std::nullopt) = 0;
  // Null when none is pending.
  virtual ObjectRef pendingException() const = 0;
  virtual void clearPendingException() = 0;

  // --- native methods that the library registered ---

  virtual bool hasNative(const std::string& method) const = 0;
  // "jniSendProgress(IJ)V", in the order of registration.
  virtual std::vector<std::string> nativeMethods() const = 0;
  // Calls it as Java would, on the calling thread (which must be attached), in a local frame of
  // its own. Throws JavaThrow when it left a Java exception pending. A C++ exception that leaves
  // it (which ends a real process) is recorded as a problem.
  virtual Value callNative(const std::string& method, const std::vector<Value>& args) = 0;

  // --- faults ---

  // JNI calls since reset(), on all threads; the next one has this number plus one.
  virtual int callCount() const = 0;
  // Makes the call of that number (from 1, since reset()) fail, if it can fail in that way.
  virtual void failCall(int number, Fault fault) = 0;
  // How many such faults have struck.
  virtual int faultsApplied() const = 0;
  // Runs before every JNI call, on its thread, with the line that the log got; to block there
  // or to look. Must not call the runtime's scripted members itself.
  virtual void onCall(std::function<void(const std::string& line)> hook) = 0;

  // --- what happened ---

  virtual std::vector<std::string> log() const = 0;  // of the calling thread
  virtual std::vector<LogLine> logOfAllThreads() const = 0;
  virtual void clearLog() = 0;

  // Misuse that a real runtime answers with a crash, garbage or a leak, and unscripted calls.
  virtual std::vector<std::string> problems() const = 0;
  virtual std::vector<std::string> takeProblems() = 0;  // and forgets them
  // What -Xcheck:jni would warn of (measured on HotSpot 17): calls with an exception pending, calls
  // of Java members that no exception check follows. Here constructors count as such calls, too.
  virtual std::vector<std::string> xcheckWarnings() const = 0;
  // Whether a test made anything fail (missing members, faults, throwPending): xcheckWarnings
  // are then to be expected.
  virtual bool disturbed() const = 0;

  virtual int liveGlobalRefs() const = 0;
  virtual int liveGlobalRefs(const std::string& objectName) const = 0;
  virtual std::vector<std::string> liveGlobalRefNames() const = 0;
  virtual int outstandingUtf() const = 0;   // UTF characters taken and not released
  virtual int localFrameDepth() const = 0;  // frames pushed and not popped, all threads
  virtual int localRefs() const = 0;        // live local references of the calling thread

 protected:
  ~Runtime() = default;
};

// The library file exports, with C linkage, a function of this type under this name: it gives the
// one instance. Tests obtain it with the dynamic loader, from the very file that libl5kov loads.
using RuntimeGetter = Runtime* (*)();
inline constexpr const char* kRuntimeSymbol = "fakejvm_runtime";

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_FAKE_RUNTIME_H_
