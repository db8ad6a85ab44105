// SPDX-License-Identifier: MIT
// Paths and options as composed on every system, with backslashes.
#include "java/plugin_paths.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <stdlib.h>
#endif

namespace lumora::kov::java {
namespace {

TEST(NormalizePath, RemovesOneTrailingSeparatorOnly) {
  EXPECT_EQ(normalizePath("a\\b\\"), "a\\b");
  EXPECT_EQ(normalizePath("a/b/"), "a\\b");
  EXPECT_EQ(normalizePath("a\\\\"), "a\\");
  EXPECT_EQ(normalizePath("a//"), "a\\");
  EXPECT_EQ(normalizePath("a\\/"), "a\\");
  EXPECT_EQ(normalizePath("a/\\"), "a\\");
}

TEST(NormalizePath, TurnsEverySlash) {
  EXPECT_EQ(normalizePath("/a/b//c"), "\\a\\b\\\\c");
  EXPECT_EQ(normalizePath("C:/x\\y/z"), "C:\\x\\y\\z");
}

TEST(NormalizePath, EmptyTextStaysEmpty) {
  EXPECT_EQ(normalizePath(""), "");
  EXPECT_EQ(normalizePath("/"), "");
  EXPECT_EQ(normalizePath("\\"), "");
}

TEST(JoinPath, InsertsOneSeparatorAndDropsOneOfThePiece) {
  EXPECT_EQ(joinPath("a", "b"), "a\\b");
  EXPECT_EQ(joinPath("a", "\\b"), "a\\b");
  EXPECT_EQ(joinPath("a", "b\\"), "a\\b");
  EXPECT_EQ(joinPath("", "b"), "\\b");
}

// Kept: the base is taken as it is, and only a backslash is dropped from the piece, only one.
TEST(JoinPath, NormalisesTheResultAndNotTheBase) {
  EXPECT_EQ(joinPath("a\\", "b"), "a\\\\b");
  EXPECT_EQ(joinPath("a", "\\\\b"), "a\\\\b");
  EXPECT_EQ(joinPath("a", "/b"), "a\\\\b");
  EXPECT_EQ(joinPath("a", ""), "a");
}

TEST(JoinPath, TakesSeveralPiecesInTheirOrder) {
  EXPECT_EQ(joinPath("a", {"b", "c/d", "e"}), "a\\b\\c\\d\\e");
  EXPECT_EQ(joinPath("a", std::initializer_list<std::string_view>{}), "a");
}

constexpr const char* kPlugins = "C:\\ProgramData\\ORVA\\Lumora5\\plugins";

TEST(PluginPaths, RuntimeLibraryBelowThePlugins) {
  EXPECT_EQ(
      jvmLibraryPath(kPlugins),
      "C:\\ProgramData\\ORVA\\Lumora5\\plugins\\com.orva.lumora.jre\\jre\\bin\\server\\jvm.dll");
}

TEST(PluginPaths, JarEntryBringsItsOwnSemicolon) {
  EXPECT_EQ(pluginJarEntry(kPlugins, "folder", "x.jar;"),
            "C:\\ProgramData\\ORVA\\Lumora5\\plugins\\folder\\external\\x.jar;");
}

TEST(PluginPaths, NativeLibraryEntryEndsInBinAndSemicolon) {
  EXPECT_EQ(jreBinEntry(kPlugins),
            "C:\\ProgramData\\ORVA\\Lumora5\\plugins\\com.orva.lumora.jre\\jre\\bin;");
}

// Kept: the data-import jar first, nothing between the entries, ";" at the end.
TEST(PluginPaths, ClassPathOptionByteForByte) {
  EXPECT_EQ(classPathOption(kPlugins),
            "-Djava.class.path="
            "C:\\ProgramData\\ORVA\\Lumora5\\plugins\\com.orva.lumora.dataImport\\external\\"
            "dataImport.jar;"
            "C:\\ProgramData\\ORVA\\Lumora5\\plugins\\com.orva.lumora.common.monitorcom.kov\\"
            "external\\KOVLibrary.jar;");
}

// Kept: ends in "bin;".
TEST(PluginPaths, NativeLibraryPathOptionByteForByte) {
  EXPECT_EQ(nativeLibraryPathOption(kPlugins),
            "-Djna.library.path="
            "C:\\ProgramData\\ORVA\\Lumora5\\plugins\\com.orva.lumora.jre\\jre\\bin;");
}

TEST(PluginPaths, WithoutAnApplicationDataFolderLieBelowTheRoot) {
  EXPECT_EQ(joinPath(normalizePath(""), "ORVA/Lumora5/plugins"), "\\ORVA\\Lumora5\\plugins");
}

#ifndef _WIN32
class PluginsFolder : public testing::Test {
 protected:
  static std::string below(const char* folder) {
    ::setenv("L5KOV_COMMON_APPDATA", folder, 1);
    return pluginsFolder();
  }
};

TEST_F(PluginsFolder, HasExactlyOneSeparatorAfterAFolderThatEndsInOne) {
  EXPECT_EQ(below("/srv/data"), "\\srv\\data\\ORVA\\Lumora5\\plugins");
  EXPECT_EQ(below("/srv/data/"), "\\srv\\data\\ORVA\\Lumora5\\plugins");
  EXPECT_EQ(below("/srv/data\\"), "\\srv\\data\\ORVA\\Lumora5\\plugins");
}

TEST_F(PluginsFolder, HasNoSlashLeft) {
  EXPECT_EQ(below("/a/b\\c/d").find('/'), std::string::npos);
}
#endif

}  // namespace
}  // namespace lumora::kov::java
