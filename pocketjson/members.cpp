// SPDX-License-Identifier: MIT
#include "pocketjson/members.h"

namespace pocketjson {

Value* findAmongAlike(Members& members, Members::iterator first, std::string_view name) noexcept {
  const SoughtKey key(name);
  if (++first == members.end() || !first->first.beginsLike(key)) return nullptr;
  const auto place = members.lower_bound(key);
  return place != members.end() && place->first.text() == name ? &place->second : nullptr;
}

Value& makeAmongAlike(Members& members, std::string_view name) {
  const auto place = members.lower_bound(SoughtKey(name));
  if (place != members.end() && place->first.text() == name) return place->second;
  return makeAt(members, place, name);
}

}  // namespace pocketjson
