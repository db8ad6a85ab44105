// SPDX-License-Identifier: MIT
#include "pocketjson/key_order.h"

namespace pocketjson {

bool differentRestBefore(std::string_view left, std::string_view right) noexcept {
  const std::size_t common = left.size() < right.size() ? left.size() : right.size();
  // Of keys with equal fronts, one that is shorter than a front is the beginning of the other.
  for (std::size_t at = kFrontBytes; at < common; at += kFrontBytes) {
    // The last step goes back into what has been found equal, so that it reads no byte too many.
    const std::size_t from = at + kFrontBytes <= common ? at : common - kFrontBytes;
    const std::uint64_t leftBytes = eightBytes(left.data() + from);
    const std::uint64_t rightBytes = eightBytes(right.data() + from);
    if (leftBytes != rightBytes) return leftBytes < rightBytes;
  }
  return left.size() < right.size();
}

}  // namespace pocketjson
