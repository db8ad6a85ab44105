// SPDX-License-Identifier: MIT
#ifndef L5KOV_PLATFORM_PLATFORM_H_
#define L5KOV_PLATFORM_PLATFORM_H_

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

// The one boundary to the operating system. One folder per system implements it; whoever ports the
// library writes these functions and nothing else.
//
// Texts are UTF-8. Paths and runtime options come in as the rest of the library composes them on
// every system: "\" between the parts of a path, ";" after each entry of a search path, the runtime
// library below "bin\server". Only here do they take the system's own form.
//
// Every function may be called on any thread at any time, unless it says otherwise.
namespace lumora::platform {

/// The machine-wide application-data folder, without a promise about a trailing separator. The
/// empty text when the system has none to tell; never throws but std::bad_alloc.
std::string commonAppDataFolder();

/// A loaded Java runtime library; null stands for none.
using RuntimeLibrary = void*;

/// Loads the runtime library. `path` is valid UTF-8. Null on any failure, without a reason: the
/// caller has one message for all of them.
///
/// Null too where a Java virtual machine of another runtime's file runs in the process, on POSIX:
/// the loader there has one table of names for the process, the second runtime would take the
/// first one's functions for its own, and the process would end. The loader of Windows keeps each
/// library's functions apart, so nothing is asked there, and what two runtimes do is theirs.
RuntimeLibrary loadRuntimeLibrary(const std::string& path);
/// The address of an export, or null.
void* findExport(RuntimeLibrary library, const char* name);
/// Gives the library back. Must not take away code that the virtual machine's own threads run.
void freeRuntimeLibrary(RuntimeLibrary library) noexcept;

/// A start-up option of the virtual machine in the system's own form.
std::string runtimeOption(const std::string& option);

/// A file's content.
struct FileBytes {
  std::unique_ptr<char[]> data;
  std::size_t size = 0;
};

/// A regular file as it is, as long as it was when it was opened. Nothing for a folder, a pipe or a
/// device, without waiting for any of them, for what cannot be read, and for a file that gets
/// shorter meanwhile. Throws std::bad_alloc where the content does not fit into the memory.
std::optional<FileBytes> readFile(const std::string& path);

/// What the library keeps for each thread: pointers, null at first. They can be read and set until
/// the thread is gone, also while its own objects are being destroyed. Setting throws
/// std::bad_alloc when the system has no memory for the thread's first.
enum class ThreadSlot { kJavaEnv, kJniEnv };
inline constexpr int kThreadSlots = 2;
void* threadSlot(ThreadSlot slot) noexcept;
void setThreadSlot(ThreadSlot slot, void* value);

/// Has the function called when the calling thread ends, on it and once, however often this is
/// called; also on the thread that ends the process, if the system can. Throws std::bad_alloc.
void callAtThreadEnd(void (*function)());

/// Blocks the calling thread for at least this long.
void sleepMilliseconds(unsigned milliseconds);

/// True once the system has begun to end the process in a way that leaves other threads' locks
/// behind. Nothing may call into Java then.
bool processIsEnding() noexcept;

}  // namespace lumora::platform

#endif  // L5KOV_PLATFORM_PLATFORM_H_
