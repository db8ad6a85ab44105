// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_PLUGIN_PATHS_H_
#define L5KOV_JAVA_PLUGIN_PATHS_H_

#include <initializer_list>
#include <string>
#include <string_view>

// Where the maker's plug-in lies. Texts are UTF-8 with backslashes, on every system; no function
// looks at the disk.
namespace lumora::kov::java {

// One trailing "/" or "\" removed (one only), every "/" turned into "\".
std::string normalizePath(std::string text);

// base, "\", piece without one leading "\", normalised.
std::string joinPath(std::string base, std::string_view piece);
std::string joinPath(std::string base, std::initializer_list<std::string_view> pieces);

// The machine-wide application-data folder; empty when the system tells none (paths below it then
// begin with "\", the root of the current drive).
std::string commonAppDataFolder();

// The folder of the plug-ins.
std::string pluginsFolder();

// The runtime library below the plug-ins' folder.
std::string jvmLibraryPath(const std::string& plugins);
// A class-path entry; `jarEntry` brings its own ";".
std::string pluginJarEntry(const std::string& plugins, std::string_view folder,
                           std::string_view jarEntry);
// The runtime's "bin" folder with a ";" after it.
std::string jreBinEntry(const std::string& plugins);

// The two start-up options of the virtual machine.
std::string classPathOption(const std::string& plugins);
std::string nativeLibraryPathOption(const std::string& plugins);

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_PLUGIN_PATHS_H_
