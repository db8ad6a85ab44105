// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RECORD_JSON_WRITER_H_
#define L5KOV_TOOLS_KOVCTL_RECORD_JSON_WRITER_H_

#include <cmath>
#include <concepts>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "record/fields.h"
#include "record/names.h"
#include "record/run_record_json.h"

namespace kovctl {

/// The visitor of fields() that makes a JSON object.
class JsonWriter {
 public:
  explicit JsonWriter(std::string place) : path(std::move(place)) {}

  template <class T, class... Rule>
  void operator()(const char* name, const std::optional<T>& member, Rule... rule) {
    if (member) (*this)(name, *member, rule...);
  }

  template <class T, class... Rule>
  void operator()(const char* name, const T& member, Rule...) {
    object[name] = value(member, path.empty() ? name : path + "." + name);
  }

  nlohmann::ordered_json object = nlohmann::ordered_json::object();

 private:
  template <class T>
  static nlohmann::ordered_json value(const T& member, const std::string& place) {
    if constexpr (std::floating_point<T>) {
      if (!std::isfinite(member)) throw RunRecordError(place + ": the number is not finite");
      return member;
    } else if constexpr (std::integral<T> || std::same_as<T, std::string>) {
      return member;
    } else if constexpr (std::is_enum_v<T>) {
      return nameOf(member);
    } else {
      JsonWriter writer(place);
      fields(writer, member);
      return std::move(writer.object);
    }
  }

  template <class T>
  static nlohmann::ordered_json value(const std::vector<T>& members, const std::string& place) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const T& member : members)
      list.push_back(value(member, place + "[" + std::to_string(list.size()) + "]"));
    return list;
  }

  std::string path;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RECORD_JSON_WRITER_H_
