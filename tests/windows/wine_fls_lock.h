// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_WINDOWS_WINE_FLS_LOCK_H_
#define L5KOV_TESTS_WINDOWS_WINE_FLS_LOCK_H_

/// Wine holds one lock of its own (`fls_section` of its ntdll) while it calls the fiber-local
/// callbacks of a thread that ends, and takes the same lock under the loader's while a thread
/// starts. A callback that waits for a thread which starts another therefore waits for ever,
/// whatever library it is of.
///
/// This takes that lock out of the way of one thread's callbacks: a slot before the library's
/// leaves it, a slot after the library's takes it again. The library itself knows nothing of it.
/// Without Wine it does nothing.
namespace wine_fls_lock {

/// Takes the first slot; before the library takes its own, with its first environment.
void before();

/// Takes the second slot; after that.
void after();

/// From now on this thread's end leaves the lock alone. To be called after after().
void avoidOnThisThread();

/// False under Wine when the lock was looked for and not found, or the slots lie the wrong way
/// round: the threads' ends were then those of plain Wine.
bool avoided();

}  // namespace wine_fls_lock

#endif  // L5KOV_TESTS_WINDOWS_WINE_FLS_LOCK_H_
