// SPDX-License-Identifier: MIT
#include "doctor/file_checks.h"

#include <tinyxml2.h>

#include "doctor/java_release.h"
#include "doctor/zip_file.h"
#include "monitors/mode_note.h"
#include "system/binary_format.h"
#include "system/files.h"
#include "system/shared_library.h"

namespace kovctl {
namespace {

constexpr const char* kReinstall = "install the maker's plug-ins again";

void checkJar(CheckList& list, const std::string& id, const std::string& path) {
  const std::string title = path.substr(path.rfind('/') + 1);
  const auto content = sys::readWhole(path);
  if (!content) {
    list.fail(id, title, sys::exists(path) ? "cannot be read: " + path : "missing: " + path,
              sys::exists(path) ? "let this user read it" : kReinstall);
    return;
  }
  const auto entries = zipEntries(*content);
  if (!entries) {
    list.fail(id, title, "damaged (no directory of its contents): " + path, kReinstall);
  } else {
    list.ok(id, title, path + ", " + std::to_string(*entries) + " entries");
  }
}

int countModels(const tinyxml2::XMLElement& root) {
  int count = 0;
  for (const auto* package = root.FirstChildElement("PackageInfo"); package != nullptr;
       package = package->NextSiblingElement("PackageInfo")) {
    for (const auto* model = package->FirstChildElement("ModelInfo"); model != nullptr;
         model = model->NextSiblingElement("ModelInfo")) {
      ++count;
    }
  }
  return count;
}

void checkLibrary(CheckList& list, const std::string& id, const std::string& title,
                  const std::string& name, std::initializer_list<const char*> symbols) {
  constexpr const char* kRemedy =
      "install the maker's library beside libl5kov, or where the system's loader looks";
  try {
    const sys::SharedLibrary library(name);
    for (const char* symbol : symbols) {
      if (library.find(symbol) != nullptr) continue;
      list.fail(id, title, name + " has no " + symbol, kRemedy);
      return;
    }
    const bool simulated = library.find("MDSimOpen") != nullptr;
    list.ok(id, title, name + (simulated ? " (simulated)" : ""));
  } catch (const std::exception& reason) {
    list.fail(id, title, reason.what(), kRemedy);
  }
}

}  // namespace

void checkFolders(CheckList& list, const PluginLayout& layout) {
  const std::string source =
      layout.applicationData + " (" + sys::commonApplicationDataSource() + ")";
  if (sys::isFolder(layout.applicationData)) {
    list.ok("application-data", "Application-data folder", source);
  } else {
    list.fail("application-data", "Application-data folder", "missing: " + source,
              "make the folder, or let the environment name the right one");
  }
  if (sys::isFolder(layout.plugins)) {
    list.ok("plugins", "Plug-in folder", layout.plugins);
  } else {
    list.fail("plugins", "Plug-in folder", "missing: " + layout.plugins,
              "install the maker's plug-ins there");
  }
}

void checkRuntime(CheckList& list, const PluginLayout& layout) {
  constexpr const char* kTitle = "Java runtime library";
  const auto content = sys::readWhole(layout.runtimeLibrary);
  if (!content) {
    list.fail("runtime-library", kTitle, "missing: " + layout.runtimeLibrary,
              "install a Java runtime (with a server virtual machine) as " + layout.jre);
    list.skip("runtime-version", "Java runtime version", "there is no runtime");
    return;
  }
  const std::string own = sys::machineOf(sys::readWhole(sys::executable()).value_or(""));
  const std::string machine = sys::machineOf(*content);
  if (machine.empty() || machine != own) {
    list.fail("runtime-library", kTitle,
              (machine.empty() ? "not a library of this system" : "for " + machine) + ": " +
                  layout.runtimeLibrary,
              "install a Java runtime for " + own);
  } else {
    list.ok("runtime-library", kTitle, layout.runtimeLibrary + ", " + machine);
  }
  const JavaRelease release = JavaRelease::of(layout.jre);
  if (release.version.empty()) {
    list.warn("runtime-version", "Java runtime version", "does not say: " + layout.jre + "/release",
              "any version from 8 on that the plug-ins accept will do");
  } else {
    list.ok("runtime-version", "Java runtime version", release.version + " " + release.vendor);
  }
}

void checkJars(CheckList& list, const PluginLayout& layout) {
  checkJar(list, "data-import-jar", layout.dataImportJar);
  checkJar(list, "library-jar", layout.libraryJar);
}

void checkNameTable(CheckList& list, const PluginLayout& layout) {
  constexpr const char* kId = "name-table";
  constexpr const char* kTitle = "Name table";
  const auto text = sys::readWhole(layout.nameTable);
  if (!text) {
    list.warn(kId, kTitle, "missing: " + layout.nameTable,
              "install it: without it no model belongs to a package");
    return;
  }
  tinyxml2::XMLDocument document;
  if (document.Parse(text->data(), text->size()) != tinyxml2::XML_SUCCESS) {
    list.fail(kId, kTitle,
              "not well-formed, line " + std::to_string(document.ErrorLineNum()) + ": " +
                  layout.nameTable,
              "mend the XML: the library reads a broken table as an empty one");
    return;
  }
  const auto* root = document.FirstChildElement("KovMonitorName");
  if (root == nullptr) {
    list.fail(kId, kTitle, "has no element KovMonitorName: " + layout.nameTable,
              "mend the XML: the library reads such a table as an empty one");
  } else {
    list.ok(kId, kTitle, layout.nameTable + ", " + std::to_string(countModels(*root)) + " models");
  }
}

void checkVendorLibraries(CheckList& list) {
  checkLibrary(list, "measurement-library", "Measurement library", sys::meterLibraryName(),
               {"MDGetDeviceID", "MDGetSerialNumber"});
  checkLibrary(list, "colour-library", "Colour library", sys::chromaLibraryName(),
               {"Colour_tmp2xy"});
}

// As much as a note takes: a full disk may have room for an empty file.
void checkStateFolder(CheckList& list) {
  constexpr const char* kId = "state-folder";
  constexpr const char* kTitle = "Folder for notes of runs";
  const std::string folder = sys::stateFolder();
  const std::string file = folder + "/doctor.try";
  try {
    sys::makeFolder(folder);
    sys::writeWhole(file, std::string(64, '\n'));
    sys::removeFile(file);
    list.ok(kId, kTitle, folder);
  } catch (const std::runtime_error& reason) {
    list.warn(kId, kTitle, std::string("cannot be written to: ") + reason.what(),
              "let this user write there, and make room: without it a run that is killed leaves no "
              "trace of what was active before, and runs are not kept apart");
  }
}

void checkModeNotes(CheckList& list) {
  constexpr const char* kId = "unfinished-runs";
  constexpr const char* kTitle = "Unfinished runs";
  std::string found;
  std::string remedy;
  std::string underWay;
  for (const ModeNote& note : ModeNote::all()) {
    if (note.underWay) {
      underWay += ", " + note.monitor + ": a run is under way";
      continue;
    }
    found += (found.empty() ? "" : ", ") + note.monitor + ": look-up table " +
             std::to_string(note.mode) + " was active before";
    remedy += (remedy.empty() ? "" : ", ") + ("kovctl restore -m " + note.monitor);
  }
  if (found.empty()) {
    list.ok(kId, kTitle, "none that has not been put right" + underWay);
  } else {
    list.warn(kId, kTitle, found + underWay, remedy);
  }
}

void checkFiles(CheckList& list, const PluginLayout& layout) {
  checkFolders(list, layout);
  checkRuntime(list, layout);
  checkJars(list, layout);
  checkRights(list, layout);
  checkNameTable(list, layout);
  checkVendorLibraries(list);
  checkJavaOptions(list);
  checkStateFolder(list);
  checkModeNotes(list);
}

}  // namespace kovctl
