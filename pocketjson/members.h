// SPDX-License-Identifier: MIT
#ifndef L5KOV_POCKETJSON_MEMBERS_H_
#define L5KOV_POCKETJSON_MEMBERS_H_

#include <string_view>
#include <tuple>
#include <utility>

#include "pocketjson/container.h"

// Looking a member up. Names that begin alike are rare: mostly it is enough to compare beginnings,
// as numbers, on the way down the tree, and one name to its end. The rest is compiled apart, so
// that the common road, which is a few instructions a level, keeps its registers.

namespace pocketjson {

/// The member of that name, or null. `first` is the first one whose name begins like it, and is
/// another one.
Value* findAmongAlike(Members& members, Members::iterator first, std::string_view name) noexcept;
/// The member of that name, made where it is missing.
Value& makeAmongAlike(Members& members, std::string_view name);

/// Makes a member where it belongs.
inline Value& makeAt(Members& members, Members::iterator place, std::string_view name) {
  return members
      .emplace_hint(place, std::piecewise_construct, std::forward_as_tuple(name), std::tuple<>())
      ->second;
}

/// The member of that name, or null.
inline Value* findMember(Members& members, std::string_view name) noexcept {
  const SoughtFront front(name);
  const auto place = members.lower_bound(front);
  if (place == members.end() || !place->first.beginsLike(front)) return nullptr;
  if (place->first.hasRestOf(name)) return &place->second;
  return findAmongAlike(members, place, name);
}

/// The member of that name, made where it is missing.
inline Value& findOrMakeMember(Members& members, std::string_view name) {
  const SoughtFront front(name);
  const auto place = members.lower_bound(front);
  if (place == members.end() || !place->first.beginsLike(front)) {
    return makeAt(members, place, name);
  }
  return place->first.hasRestOf(name) ? place->second : makeAmongAlike(members, name);
}

}  // namespace pocketjson

#endif  // L5KOV_POCKETJSON_MEMBERS_H_
