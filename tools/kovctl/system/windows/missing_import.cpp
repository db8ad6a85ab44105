// SPDX-License-Identifier: MIT
#include "system/windows/missing_import.h"

#include <windows.h>

#include <cstdint>
#include <set>
#include <vector>

#include "system/windows/wide_text.h"

namespace kovctl::sys {
namespace {

// A library as it lies in memory, without what it needs, and without running it.
class Image {
 public:
  explicit Image(const std::string& name)
      : handle(::LoadLibraryExW(wide(name).c_str(), nullptr, LOAD_LIBRARY_AS_IMAGE_RESOURCE)) {}
  ~Image() {
    if (handle != nullptr) ::FreeLibrary(handle);
  }
  Image(const Image&) = delete;
  Image& operator=(const Image&) = delete;

  bool found() const { return handle != nullptr; }

  // Names of the libraries that it is linked with; in ASCII.
  std::vector<std::string> imports() const {
    std::vector<std::string> names;
    const auto* header =
        at<IMAGE_NT_HEADERS64>(static_cast<DWORD>(at<IMAGE_DOS_HEADER>(0)->e_lfanew));
    if (header->OptionalHeader.Magic != IMAGE_NT_OPTIONAL_HDR64_MAGIC) return names;
    const DWORD table =
        header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    if (table == 0) return names;
    for (const auto* entry = at<IMAGE_IMPORT_DESCRIPTOR>(table); entry->Name != 0; ++entry) {
      names.emplace_back(at<char>(entry->Name));
    }
    return names;
  }

 private:
  // The handle's two lowest bits tell how it was opened.
  template <typename Type>
  const Type* at(DWORD offset) const {
    return reinterpret_cast<const Type*>((reinterpret_cast<std::uintptr_t>(handle) & ~3ULL) +
                                         offset);
  }

  HMODULE handle;
};

std::string firstMissing(const std::string& library, std::set<std::string>& seen) {
  // What this process has loaded lacks nothing; the system's libraries are among it.
  const bool known = !seen.insert(library).second || ::GetModuleHandleW(wide(library).c_str());
  if (known) return "";
  const Image image(library);
  if (!image.found()) return library;
  for (const std::string& name : image.imports()) {
    const std::string missing = firstMissing(name, seen);
    if (!missing.empty()) return missing;
  }
  return "";
}

}  // namespace

std::string missingImport(const std::string& library) {
  std::set<std::string> seen;
  return firstMissing(library, seen);
}

}  // namespace kovctl::sys
