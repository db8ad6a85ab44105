// SPDX-License-Identifier: MIT
#include "system/shared_library.h"

#include <dlfcn.h>

#include <stdexcept>

namespace kovctl::sys {

SharedLibrary::SharedLibrary(const std::string& name)
    : handle(::dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (handle == nullptr) throw std::runtime_error(::dlerror());
}

void* SharedLibrary::find(const char* symbol) const {
  return ::dlsym(handle, symbol);
}

}  // namespace kovctl::sys
