// SPDX-License-Identifier: MIT
#include "monitor/name_table.h"

#include <tinyxml2.h>

#include <new>

#include "java/plugin_paths.h"
#include "platform/platform.h"

namespace lumora::kov {
namespace {

using tinyxml2::XMLElement;

constexpr const char* kNoPackage = "noPackage";

// An element that is missing, or has no text, reads as the empty text.
const char* childText(const XMLElement& parent, const char* name) {
  const XMLElement* child = parent.FirstChildElement(name);
  const char* text = child == nullptr ? nullptr : child->GetText();
  return text == nullptr ? "" : text;
}

bool lists(const XMLElement& package, const std::string& model) {
  for (const XMLElement* info = package.FirstChildElement("ModelInfo"); info != nullptr;
       info = info->NextSiblingElement("ModelInfo")) {
    if (model == childText(*info, "ModelName")) return true;
  }
  return false;
}

}  // namespace

std::string nameTablePath() {
  return java::joinPath(java::normalizePath(java::commonAppDataFolder()),
                        {"ORVA/Lumora5", "Data/", "Profile/", "KovMonitorName.xml"});
}

std::string packageOfModel(const std::string& model) try {
  // Read by the platform: tinyxml2 would take the name in the ANSI code page on Windows.
  const auto file = platform::readFile(nameTablePath());
  if (!file) return kNoPackage;
  // Not its LoadFile(), which keeps what it has understood of a file that goes wrong further on.
  tinyxml2::XMLDocument document;
  if (document.Parse(file->data.get(), file->size) != tinyxml2::XML_SUCCESS) return kNoPackage;
  const XMLElement* root = document.FirstChildElement("KovMonitorName");
  if (root == nullptr) return kNoPackage;
  // Kept: the last entry of a model wins, so hosts can append corrections. Hence from the end.
  for (const XMLElement* package = root->LastChildElement("PackageInfo"); package != nullptr;
       package = package->PreviousSiblingElement("PackageInfo")) {
    if (lists(*package, model)) return childText(*package, "PackageName");
  }
  return kNoPackage;
} catch (const std::bad_alloc&) {
  // A file beyond the memory there is counts as unreadable.
  return kNoPackage;
}

}  // namespace lumora::kov
