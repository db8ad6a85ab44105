// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_RELIABILITY_LOT_H_
#define L5KOV_TESTS_RELIABILITY_LOT_H_

#include <cstdlib>
#include <random>
#include <string>

namespace kovtest {

// What tests draw moments by. The seed is L5KOV_TEST_SEED, so that a run can be had again, else
// another one each time.
class Lot {
 public:
  Lot() : engine(seed) {}

  // From `least` to `most`, both among them.
  int draw(int least, int most) { return std::uniform_int_distribution<>(least, most)(engine); }

  const unsigned seed = givenOrRandom();

 private:
  static unsigned givenOrRandom() {
    const char* const given = std::getenv("L5KOV_TEST_SEED");
    return given == nullptr ? std::random_device()() : static_cast<unsigned>(std::stoul(given));
  }

  std::minstd_rand engine;
};

}  // namespace kovtest

#endif  // L5KOV_TESTS_RELIABILITY_LOT_H_
