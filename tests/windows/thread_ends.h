// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_WINDOWS_THREAD_ENDS_H_
#define L5KOV_TESTS_WINDOWS_THREAD_ENDS_H_

#include <l5kov.h>

/// How 1,000 threads end that have attached and asked the monitor for its name, ten at a time.
enum class ThreadEnds {
  kPlain,     ///< while Java threads start and stop; see wine_fls_lock.h
  kReleased,  ///< the same, each after DeleteJavaVM(), as docs/windows.md advises
  kAlone      ///< while another thread searches for monitors; Java starts no thread
};

/// Prints what went wrong; the process's exit code.
int endThreads(const lumora::Monitor& monitor, ThreadEnds how);

#endif  // L5KOV_TESTS_WINDOWS_THREAD_ENDS_H_
