// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_POCKETJSON_FOREIGN_LOCALE_H_
#define L5KOV_TESTS_POCKETJSON_FOREIGN_LOCALE_H_

#include <filesystem>
#include <string>

// Number formatting of another country while it lives. Where the machine has no such locale, one
// with nothing but a decimal point is made with `localedef` in a folder of its own.
class ForeignLocale {
 public:
  enum Point { kComma, kTwoBytes };  // "," or the Arabic decimal separator U+066B in UTF-8

  explicit ForeignLocale(Point point);
  ~ForeignLocale();
  ForeignLocale(const ForeignLocale&) = delete;
  ForeignLocale& operator=(const ForeignLocale&) = delete;

  // False where there is none and none can be made.
  bool active() const { return isActive; }

 private:
  bool choose(const char* name, const std::string& wanted);
  bool make(Point point, const std::string& wanted);

  std::string before;
  std::filesystem::path folder;
  bool isActive = false;
};

inline constexpr const char* kNoForeignLocale =
    "no locale with this decimal point, and localedef could not make one";

#endif  // L5KOV_TESTS_POCKETJSON_FOREIGN_LOCALE_H_
