// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_KEPT_H_
#define L5KOV_JAVA_KEPT_H_

#include <utility>

#include "java/jobject.h"
#include "java/thread_env.h"

namespace lumora::kov::java {

// A wrapper seen through the calling thread's environment. Owns nothing.
template <class W>
class Borrowed {
 public:
  Borrowed(const W& kept, JavaEnv* here) : view(BorrowTag{}, kept, here) {}
  ~Borrowed() { view.forget(); }
  Borrowed(const Borrowed&) = delete;
  Borrowed& operator=(const Borrowed&) = delete;

  const W* operator->() const { return &view; }
  const W& operator*() const { return view; }

 private:
  W view;
};

// Owns a wrapper that outlives the operation, and perhaps the thread, that made it: a handle may be
// used on any thread and destroyed on any other. It is called and released through the environment
// of the thread that does so; global references and identifiers are valid on every thread.
template <class W>
class Kept {
 public:
  explicit Kept(W&& made) : wrapper(std::move(made)) {}
  ~Kept() { releaseGlobalRef(wrapper.forget()); }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

  Borrowed<W> on(JavaEnv* here) const { return {wrapper, here}; }
  jobject reference() const { return wrapper.reference(); }

 private:
  W wrapper;
};

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_KEPT_H_
