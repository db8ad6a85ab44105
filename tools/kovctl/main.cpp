// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <vector>

#include "doctor/doctor_without_library.h"
#include "exit_code.h"
#include "main_library.h"
#include "system/files.h"
#include "system/shared_library.h"
#include "system/streams.h"

namespace {

int runWithoutLibrary(const std::vector<std::string>& arguments, const std::string& reason) {
  using kovctl::sys::Stream;
  kovctl::sys::prepareStandardStreams();
  if (std::find(arguments.begin(), arguments.end(), "doctor") != arguments.end()) {
    return kovctl::doctorWithoutLibrary(arguments, reason);
  }
  kovctl::sys::write(Stream::kErr, "kovctl: a library that it needs cannot be loaded: " + reason +
                                       "\nkovctl:   \"kovctl doctor\" finds out more.\n");
  return static_cast<int>(kovctl::ExitCode::kRuntime);
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string> texts(arguments, arguments + count);
  try {
    const kovctl::sys::SharedLibrary library(kovctl::sys::mainLibraryName());
    const auto run = library.function<decltype(&kovctlMain)>(kMainSymbol);
    if (run == nullptr) return runWithoutLibrary(texts, kovctl::sys::mainLibraryName());
    return run(count, arguments);
  } catch (const std::exception& reason) {
    return runWithoutLibrary(texts, reason.what());
  }
}
