// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_SHARED_LIBRARY_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_SHARED_LIBRARY_H_

#include <string>

namespace kovctl::sys {

/// A shared library of this process. It is never unloaded: what came from it stays callable.
class SharedLibrary {
 public:
  /// By name, where the system's loader looks, or by path.
  /// @throws std::runtime_error with the loader's reason
  explicit SharedLibrary(const std::string& name);

  /// Null when the library has no such symbol.
  void* find(const char* symbol) const;

  template <typename Function>
  Function function(const char* symbol) const {
    return reinterpret_cast<Function>(find(symbol));
  }

 private:
  void* handle;
};

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_SHARED_LIBRARY_H_
