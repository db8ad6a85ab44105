// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_REAL_SYSTEM_H_
#define L5KOV_TESTS_REAL_SYSTEM_H_

#include <filesystem>
#include <string>

// What differs between systems (system_<system>.cpp).
namespace realtest::system {

// A new, empty folder.
std::filesystem::path makeFolder();
// Sets an environment variable of this process, for Java and for the shell's folders too.
void setVariable(const char* name, const std::string& value);
// Copies an application-data folder; its Java runtime without its content where the system can.
void copyInstallation(const std::filesystem::path& from, const std::filesystem::path& to);
// Below a runtime's folder: its library.
std::filesystem::path runtimeLibrary();
// A library that is this one but for the number of bits that it is made for.
std::string as32Bits(std::string library);
// Whether the loader refuses that file for the number of its bits.
bool isRefusedForItsBits(const std::filesystem::path& library);
// An export of the runtime's library below `jre`. Throws std::runtime_error.
void* runtimeExport(const std::filesystem::path& jre, const char* symbol);
// The two texts that start-up hands to the virtual machine, as Java shows them.
std::string classPath(const std::filesystem::path& plugins);
std::string nativeLibraryPath(const std::filesystem::path& plugins);

}  // namespace realtest::system

#endif  // L5KOV_TESTS_REAL_SYSTEM_H_
