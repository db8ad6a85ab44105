// SPDX-License-Identifier: MIT
#include "record/run_record_json.h"

#include <fmt/format.h>

#include "record/json_reader.h"
#include "record/json_writer.h"

namespace kovctl {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kVersionMember = "schemaVersion";

template <class Enum>
std::string_view lookUp(Enum wanted) {
  for (const auto& [value, name] : Names<Enum>::kAll)
    if (value == wanted) return name;
  throw RunRecordError(fmt::format("no name for the value {}", static_cast<int>(wanted)));
}

// Before anything else: a record of another version may be wrong in many ways, and only one of them
// is worth telling.
void checkVersion(const Json& json) {
  if (!json.is_object()) throw RunRecordError("the record: expected an object");
  const auto version = json.find(kVersionMember);
  if (version == json.end() || !version->is_number_integer())
    throw RunRecordError("schemaVersion: the file is not a record of a run");
  if (*version != kRunRecordVersion)
    throw RunRecordError(fmt::format("schemaVersion: this program reads version {}, not {}",
                                     kRunRecordVersion, version->dump()));
}

// Gray patches say so by their level; a level that contradicts its components cannot be drawn.
void checkLevels(const RunRecord& record) {
  for (std::size_t i = 0; i < record.patches.size(); ++i) {
    const PatchResult& patch = record.patches[i];
    if (patch.level &&
        (patch.r != *patch.level || patch.g != *patch.level || patch.b != *patch.level))
      throw RunRecordError(
          fmt::format("patches[{}].level: the level {} is not that of the components {}, {}, {}", i,
                      *patch.level, patch.r, patch.g, patch.b));
  }
}

}  // namespace

std::string_view nameOf(RunKind kind) {
  return lookUp(kind);
}
std::string_view nameOf(DisplayFunction function) {
  return lookUp(function);
}
std::string_view nameOf(PatchRole role) {
  return lookUp(role);
}
std::string_view nameOf(MonitorState state) {
  return lookUp(state);
}

Json toJson(const RunRecord& record) {
  JsonWriter writer{std::string()};
  writer.object[kVersionMember] = kRunRecordVersion;
  fields(writer, record);
  return std::move(writer.object);
}

RunRecord runRecordFromJson(const Json& json) {
  checkVersion(json);
  Json members = json;
  members.erase(kVersionMember);
  RunRecord record;
  JsonReader reader(members, std::string());
  fields(reader, record);
  reader.finish();
  checkLevels(record);
  return record;
}

std::string writeRunRecord(const RunRecord& record) {
  return toJson(record).dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

RunRecord readRunRecord(std::string_view text) {
  Json json;
  try {
    json = Json::parse(text);
  } catch (const Json::exception& e) {
    // Only the position and the reason, without the JSON library's own error number.
    const std::string what = e.what();
    const std::size_t reason = what.find("] ");
    throw RunRecordError("not JSON: " +
                         (reason == std::string::npos ? what : what.substr(reason + 2)));
  }
  return runRecordFromJson(json);
}

}  // namespace kovctl
