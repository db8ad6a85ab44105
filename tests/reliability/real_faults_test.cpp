// SPDX-License-Identifier: MIT
// A broken plug-in installation, and a hostile surrounding, over the real Java runtime: what the
// host sees. Each test lays out an installation of its own, with one thing wrong.
#include <gtest/gtest.h>
#include <jni.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/real/support.h"
#include "tests/real/system.h"

namespace {

namespace fs = std::filesystem;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::Env;
using lumora::kov::java::JavaException;
using realtest::Workstation;

constexpr const char* kToolOptions = "JAVA_TOOL_OPTIONS";

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}
void write(const fs::path& file, const std::string& content) {
  fs::remove(file);
  std::ofstream(file, std::ios::binary) << content;
}

// The exception that an operation ends with: "class: message".
template <class Operation>
std::string outcomeOf(Operation operation) {
  try {
    operation();
  } catch (const JavaException& e) {
    return e.getClassName() + ": " + e.what();
  } catch (const std::exception& e) {
    return e.what();
  }
  return "nothing";
}

class BrokenInstallation : public testing::Test {
 protected:
  BrokenInstallation() {
    realtest::system::copyInstallation(Workstation::root(), root);
    realtest::system::setVariable("L5KOV_COMMON_APPDATA", root.string());
  }
  ~BrokenInstallation() override {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }

  fs::path plugins() const { return root / "ORVA/Lumora5/plugins"; }
  fs::path libraryJar() const {
    return plugins() / "com.orva.lumora.common.monitorcom.kov/external/KOVLibrary.jar";
  }
  fs::path dataImportJar() const {
    return plugins() / "com.orva.lumora.dataImport/external/dataImport.jar";
  }
  // The runtime's own.
  std::string runtimeLibrary() const {
    return contentOf(plugins() / "com.orva.lumora.jre/jre" / realtest::system::runtimeLibrary());
  }
  // In place of the Java runtime: nothing but a library file.
  fs::path ownRuntime() const {
    const fs::path jre = plugins() / "com.orva.lumora.jre/jre";
    fs::rename(jre, folder / "whole");
    const fs::path file = jre / realtest::system::runtimeLibrary();
    fs::create_directories(file.parent_path());
    return file;
  }
  // The maker's library is not there: start-up succeeds, and the first use says what is missing.
  static void expectTheLibraryToBeMissed() {
    EXPECT_TRUE(Env()->hasClasses());
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(outcomeOf([] { KovMonitorManager::get().find(); }),
                "java.lang.NoSuchMethodError: com/orva/kov/library/impl/KovMonitorLibrary."
                "getInstance()Lcom/orva/kov/library/api/MonitorLibrary;");
    }
  }
  // One class is missed and everything else works.
  static void expectOnlyTheLockToBeMissed() {
    const lumora::Monitor monitor = Workstation::findColourMonitor();
    EXPECT_EQ(monitor.getModelName(), "OR-C321");
    EXPECT_EQ(outcomeOf([&] { monitor.getKeyLockState(); }),
              "java.lang.NoSuchMethodError: com/orva/kov/library/api/Osd.isLocked()Z");
    EXPECT_FALSE(monitor.getExtractCalibrationData().empty());
  }

  const Workstation workstation;
  const fs::path folder = realtest::system::makeFolder();
  const fs::path root = folder / "appdata";
};

TEST_F(BrokenInstallation, WithTheLibraryJarTruncated) {
  const std::string whole = contentOf(libraryJar());
  ASSERT_GT(whole.size(), 1000u);
  write(libraryJar(), whole.substr(0, whole.size() / 2));
  expectTheLibraryToBeMissed();
}
TEST_F(BrokenInstallation, WithTheLibraryJarEmpty) {
  write(libraryJar(), "");
  expectTheLibraryToBeMissed();
}
TEST_F(BrokenInstallation, WithTheLibraryJarMissing) {
  fs::remove(libraryJar());
  expectTheLibraryToBeMissed();
}
TEST_F(BrokenInstallation, WithAFolderInPlaceOfTheLibraryJar) {
  fs::remove(libraryJar());
  fs::create_directory(libraryJar());
  expectTheLibraryToBeMissed();
}
TEST_F(BrokenInstallation, WithTheDataImportJarFullOfGarbageOnlyThatJarIsMissed) {
  write(dataImportJar(), std::string(100000, '\xA5'));
  EXPECT_EQ(Workstation::findColourMonitor().getModelName(), "OR-C321");
}
TEST_F(BrokenInstallation, WithAClassWhoseStaticInitialiserThrows) {
  write(dataImportJar(), contentOf(L5KOV_TEST_THROWING_JAR));
  expectOnlyTheLockToBeMissed();
}
TEST_F(BrokenInstallation, WithAClassOfANewerJava) {
  // The jar is not compressed: the class file's major version can be changed in place.
  std::string jar = contentOf(L5KOV_TEST_THROWING_JAR);
  int classes = 0;
  for (std::size_t at = 0; (at = jar.find("\xCA\xFE\xBA\xBE", at)) != std::string::npos; ++at) {
    jar[at + 7] = '\x7F';
    ++classes;
  }
  ASSERT_EQ(classes, 2);
  write(dataImportJar(), jar);
  EXPECT_TRUE(Env()->hasClasses());
  // The maker's library cannot load its own class either; its error reaches the host.
  const std::string outcome = outcomeOf([] { Workstation::findColourMonitor(); });
  EXPECT_EQ(
      outcome.rfind("java.lang.UnsupportedClassVersionError: com/orva/kov/library/api/Osd", 0), 0u)
      << outcome;
}

TEST_F(BrokenInstallation, WithARuntimeOf32Bits) {
  const std::string library = runtimeLibrary();
  const fs::path file = ownRuntime();
  write(file, realtest::system::as32Bits(library));
  // Whole, so that it is the loader that refuses it, and for its bits.
  EXPECT_TRUE(realtest::system::isRefusedForItsBits(file));
  EXPECT_EQ(outcomeOf([] { Env(); }), "Failed to create Java VM");
  EXPECT_EQ(outcomeOf([] { Env(); }), "Failed to create Java VM");
}
TEST_F(BrokenInstallation, WithATruncatedRuntime) {
  const std::string library = runtimeLibrary();
  ASSERT_GT(library.size(), 8192u);
  write(ownRuntime(), library.substr(0, 8192));
  EXPECT_EQ(outcomeOf([] { Env(); }), "Failed to create Java VM");
}

TEST_F(BrokenInstallation, WithRubbishInTheToolOptionsCannotStart) {
  // Words that Java does not know, and a quote that does not end.
  for (const char* rubbish : {"-Xrubbish", "--nonsense=1", "nonsense", "-Da='b"}) {
    realtest::system::setVariable(kToolOptions, rubbish);
    EXPECT_EQ(outcomeOf([] { Env(); }), "Failed to create Java VM") << rubbish;
  }
}
// The Java runtime itself ends the process; nothing in it could stop that.
TEST_F(BrokenInstallation, WithAnImpossibleHeapInTheToolOptionsTheJavaRuntimeExits) {
  EXPECT_EXIT(
      {
        realtest::system::setVariable(kToolOptions, "-Xms64m -Xmx32m");
        Env();
      },
      testing::ExitedWithCode(1), "");
}
// So it does for whatever else it cannot have while it starts.
TEST_F(BrokenInstallation, WithAnAgentThatIsMissingInTheToolOptionsTheJavaRuntimeExits) {
  EXPECT_EXIT(
      {
        realtest::system::setVariable(kToolOptions, "-agentlib:nope");
        Env();
      },
      testing::ExitedWithCode(1), "");
}

// On Linux a class that lies in the current folder is not found; that it could be is shown by the
// option that names the folder. On Windows the class path ends with a separator, and so with it.
class CurrentFolder : public BrokenInstallation {
 protected:
  CurrentFolder() { fs::current_path(L5KOV_TEST_PLANTED_FOLDER); }
  static bool plantedClassIsFound() {
    JNIEnv* env = Env()->env();
    const bool found = env->FindClass("Planted") != nullptr;
    env->ExceptionClear();
    return found;
  }
};

#ifdef _WIN32
TEST_F(CurrentFolder, IsOnTheClassPathThatEndsWithASeparator) {
  EXPECT_TRUE(plantedClassIsFound());
}
#else
TEST_F(CurrentFolder, IsNotOnTheClassPath) {
  EXPECT_FALSE(plantedClassIsFound());
}

TEST_F(CurrentFolder, CountsWhereTheToolOptionsNameIt) {
  realtest::system::setVariable(kToolOptions, "-Xbootclasspath/a:.");
  EXPECT_TRUE(plantedClassIsFound());
}
#endif

}  // namespace
