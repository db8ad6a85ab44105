// SPDX-License-Identifier: MIT
#include "record/patch_roles.h"

#include <algorithm>
#include <cstddef>

namespace kovctl {
namespace {

using Patches = std::vector<PatchResult>;

constexpr std::size_t kShortestScale = 3;

struct Scale {
  std::size_t begin;
  std::size_t end;
};

bool isGray(const PatchResult& p) { return p.r == p.g && p.g == p.b; }
bool isBlack(const PatchResult& p) { return isGray(p) && p.r == 0; }

std::vector<Scale> grayScales(const Patches& patches) {
  std::vector<Scale> scales;
  for (std::size_t i = 0; i < patches.size();) {
    std::size_t end = i + 1;
    if (isBlack(patches[i])) {
      while (end < patches.size() && isGray(patches[end]) && patches[end].r > patches[end - 1].r)
        ++end;
      if (end - i >= kShortestScale) scales.push_back({i, end});
    }
    i = end;
  }
  return scales;
}

PatchRole roleBeforeScale(const PatchResult& patch, bool blackSeen) {
  if (!isGray(patch)) return PatchRole::kPrimary;
  if (patch.r == 0) return PatchRole::kBlack;
  return blackSeen ? PatchRole::kWhite : PatchRole::kWarmUp;
}

}  // namespace

void assignCalibrationRoles(Patches& patches) {
  const std::vector<Scale> scales = grayScales(patches);
  const std::size_t firstScale = scales.empty() ? patches.size() : scales.front().begin;
  bool blackSeen = false;
  for (std::size_t i = 0; i < patches.size(); ++i) {
    patches[i].role = i < firstScale ? roleBeforeScale(patches[i], blackSeen) : PatchRole::kOther;
    blackSeen = blackSeen || isBlack(patches[i]);
  }
  const auto mark = [&](const Scale& scale, PatchRole role) {
    for (std::size_t i = scale.begin; i < scale.end; ++i) patches[i].role = role;
  };
  if (!scales.empty()) mark(scales.front(), PatchRole::kGray);
  if (scales.size() > 1) mark(scales.back(), PatchRole::kLibraryVerify);
}

}  // namespace kovctl
