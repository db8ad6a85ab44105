// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <vector>

#include "doctor/doctor_without_library.h"
#include "main_library.h"
#include "system/arguments.h"
#include "system/files.h"
#include "system/shared_library.h"
#include "system/streams.h"

namespace {

int runWithoutLibrary(const std::vector<std::string>& arguments, const std::string& reason) {
  kovctl::sys::prepareStandardStreams();
  if (std::find(arguments.begin(), arguments.end(), "doctor") != arguments.end()) {
    return kovctl::doctorWithoutLibrary(arguments, reason);
  }
  return kovctl::failWithoutLibrary(arguments, reason);
}

}  // namespace

int main(int count, char** given) {
  const std::vector<std::string> texts = kovctl::sys::commandLineArguments(count, given);
  try {
    const kovctl::sys::SharedLibrary library(kovctl::sys::mainLibraryName());
    const auto run = library.function<decltype(&kovctlMain)>(kMainSymbol);
    if (run == nullptr) return runWithoutLibrary(texts, kovctl::sys::mainLibraryName());
    std::vector<const char*> arguments;
    for (const std::string& text : texts) arguments.push_back(text.c_str());
    arguments.push_back(nullptr);
    return run(static_cast<int>(texts.size()), arguments.data());
  } catch (const std::exception& reason) {
    return runWithoutLibrary(texts, reason.what());
  }
}
