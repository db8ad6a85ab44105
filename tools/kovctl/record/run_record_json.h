// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RECORD_RUN_RECORD_JSON_H_
#define L5KOV_TOOLS_KOVCTL_RECORD_RUN_RECORD_JSON_H_

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

#include "record/run_record.h"

namespace kovctl {

/// Says where in the record something is wrong and what: "patches[3].level: expected a whole number
/// from 0 to 255, found 300".
class RunRecordError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// @throws RunRecordError for a number that JSON cannot write (not finite)
nlohmann::ordered_json toJson(const RunRecord& record);

/// Takes nothing but what the schema allows: no unknown members, no missing ones, no number out of
/// range, no other version.
/// @throws RunRecordError
RunRecord runRecordFromJson(const nlohmann::ordered_json& json);

/// The text of a record file, indented, with a final newline. Bytes that are not UTF-8 become
/// U+FFFD.
/// @throws RunRecordError as toJson()
std::string writeRunRecord(const RunRecord& record);

/// @throws RunRecordError, also for a text that is not JSON (with the position)
RunRecord readRunRecord(std::string_view text);

/// The names in files.
std::string_view nameOf(RunKind kind);
std::string_view nameOf(DisplayFunction function);
std::string_view nameOf(PatchRole role);
std::string_view nameOf(MonitorState state);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RECORD_RUN_RECORD_JSON_H_
