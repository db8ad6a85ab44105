// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RECORD_JSON_READER_H_
#define L5KOV_TOOLS_KOVCTL_RECORD_JSON_READER_H_

#include <concepts>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "record/fields.h"
#include "record/names.h"
#include "record/run_record_json.h"
#include "record/text_form.h"

namespace kovctl {

/// The visitor of fields() that reads a JSON object and says exactly where one does not fit.
class JsonReader {
 public:
  using Json = nlohmann::ordered_json;

  /// @throws RunRecordError when `node` is no object
  JsonReader(const Json& node, std::string place);

  template <class T, class... Rule>
  void operator()(const char* name, std::optional<T>& member, Rule... rule) {
    if (object.contains(name))
      (*this)(name, member.emplace(), rule...);
    else
      known.emplace_back(name);
  }

  template <class T, class... Rule>
  void operator()(const char* name, T& member, Rule... rule) {
    read(take(name), placeOf(name), member, rule...);
  }

  /// @throws RunRecordError when the object has members that were not asked for
  void finish() const;

 private:
  const Json& take(const char* name);
  std::string placeOf(const std::string& name) const;

  [[noreturn]] static void fail(const std::string& place, const std::string& expected,
                                const Json& found);
  static double number(const Json& node, const std::string& place, Range range, bool whole);
  static void read(const Json& node, const std::string& place, bool& member);
  static void read(const Json& node, const std::string& place, double& member, Range range);
  static void read(const Json& node, const std::string& place, std::string& member, TextForm form);

  template <std::integral T>
  static void read(const Json& node, const std::string& place, T& member, Range range) {
    number(node, place, range, true);
    member = node.get<T>();
  }

  template <class T>
  static void read(const Json& node, const std::string& place, T& member) {
    if constexpr (std::is_enum_v<T>) {
      readName(node, place, member);
    } else {
      JsonReader reader(node, place);
      fields(reader, member);
      reader.finish();
    }
  }

  template <class T, class... Rule>
  static void read(const Json& node, const std::string& place, std::vector<T>& members,
                   Rule... rule) {
    if (!node.is_array()) fail(place, "a list", node);
    for (const Json& element : node) {
      const std::string at = place + "[" + std::to_string(members.size()) + "]";
      read(element, at, members.emplace_back(), rule...);
    }
  }

  template <class Enum>
  static void readName(const Json& node, const std::string& place, Enum& member) {
    std::string all;
    for (const auto& [value, name] : Names<Enum>::kAll) {
      if (node.is_string() && node.get_ref<const std::string&>() == name) {
        member = value;
        return;
      }
      all += (all.empty() ? "\"" : ", \"") + std::string(name) + "\"";
    }
    fail(place, "one of " + all, node);
  }

  const Json& object;
  std::string path;
  std::vector<std::string> known;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RECORD_JSON_READER_H_
