// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_CATALOGUE_ROW_H_
#define L5KOV_JAVA_CATALOGUE_ROW_H_

#include <jni.h>

#include <array>
#include <cstddef>
#include <string_view>

// The shape of the catalogue: a Java class and one row per bound member, known at compile time.
namespace lumora::kov::java {

struct Member {
  enum class Kind : unsigned char { kInstance, kStatic, kEmpty };

  const char* name = "";
  const char* signature = "";
  Kind kind = Kind::kEmpty;
  bool storedLast = false;

  // The identifier goes into the record's last slot, although the row is looked up in its turn.
  consteval Member lastSlot() const { return {name, signature, kind, true}; }
};

consteval Member method(const char* name, const char* signature) {
  return {name, signature, Member::Kind::kInstance, false};
}
consteval Member constructor(const char* signature) { return method("<init>", signature); }
consteval Member staticMethod(const char* name, const char* signature) {
  return {name, signature, Member::Kind::kStatic, false};
}
// A slot that is in the record and never resolved: it stays null.
inline constexpr Member kEmptySlot{};

// Rows in the order of the look-ups, which is the order of the Java library's own table.
template <std::size_t kCount>
struct ClassTable {
  consteval ClassTable(const char* javaName, const Member (&rows)[kCount]) : name(javaName) {
    std::size_t next = 0;
    for (std::size_t row = 0; row < kCount; ++row) {
      members[row] = rows[row];
      slots[row] = rows[row].storedLast ? kCount - 1 : next++;
    }
  }

  static constexpr std::size_t size() { return kCount; }

  const char* name;
  std::array<Member, kCount> members{};
  std::array<std::size_t, kCount> slots{};  // of each row's identifier in the record
};

// One identifier per slot; the type says which class it belongs to.
template <const auto& kTable>
struct MethodRecord {
  static constexpr const auto& table = kTable;
  std::array<jmethodID, kTable.size()> ids{};
};

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_CATALOGUE_ROW_H_
