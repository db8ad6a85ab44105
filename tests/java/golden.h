// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_JAVA_GOLDEN_H_
#define L5KOV_TESTS_JAVA_GOLDEN_H_

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "tests/support/fake_jvm.h"

namespace kovtest {

// The lines of a text file in tests/java/golden.
inline Lines golden(const std::string& name) {
  std::ifstream file(std::string(L5KOV_GOLDEN_DIR) + "/" + name);
  EXPECT_TRUE(file.is_open()) << name;
  Lines lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

}  // namespace kovtest

#endif  // L5KOV_TESTS_JAVA_GOLDEN_H_
