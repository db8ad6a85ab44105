// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_FILES_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_FILES_H_

#include <optional>
#include <string>
#include <string_view>

namespace kovctl::sys {

/// Writes a file whole or not at all: beside its place first, to the disk, then into its place.
/// What was there before stays until then. Devices such as /dev/stdout are written to directly.
/// @throws std::runtime_error with the path and the system's reason
void writeWhole(const std::string& path, std::string_view content);

/// Whether a new file can be made where this one is to be, without touching any that is there.
/// @throws std::runtime_error as writeWhole()
void tryWriting(const std::string& path);

/// Nothing when the file is missing or cannot be read.
std::optional<std::string> readWhole(const std::string& path);

bool exists(const std::string& path);
bool isFolder(const std::string& path);
/// Neither a file nor a folder: /dev/stdout, a pipe, NUL.
bool isDevice(const std::string& path);
/// Whether others than root and the owner may write to it, by its mode; false when it is missing.
/// Nothing where rights are no mode (Windows).
std::optional<bool> isWritableByOthers(const std::string& path);
void removeFile(const std::string& path);
/// With all that are missing above it. @throws std::runtime_error
void makeFolder(const std::string& path);

/// The machine-wide application-data folder, found as the library finds it.
std::string commonApplicationData();
/// How that folder was found, for people.
std::string commonApplicationDataSource();
/// This user's folder for what programs remember.
std::string stateFolder();
/// This program's own file.
std::string executable();

/// Below the plug-in folder of the Java runtime ("…/jre"): the runtime library.
std::string runtimeLibraryIn(const std::string& jre);

/// The names of the vendor libraries, as the system's loader knows them.
std::string meterLibraryName();
std::string chromaLibraryName();
/// The library that holds kovctl's commands.
std::string mainLibraryName();

std::string hostName();
std::string userName();

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_FILES_H_
