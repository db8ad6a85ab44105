// SPDX-License-Identifier: MIT
#include "output/document.h"

namespace kovctl {
namespace {

// Raised when a member changes its meaning or goes.
constexpr int kSchemaVersion = 1;

}  // namespace

Json documentOf(const std::string& kind) {
  return {{"schema", "kovctl-" + kind}, {"schemaVersion", kSchemaVersion}};
}

}  // namespace kovctl
