// SPDX-License-Identifier: MIT
#include "calibration/measurement_device_code_map.h"

#include <algorithm>
#include <iterator>

namespace lumora::kov {
namespace {

struct Row {
  std::int32_t code;    // Java library
  std::int32_t device;  // measurement-device library
};

// Kept: the order. Where two codes share a device (163, 302), the later code answers for it; hence
// the search from the end.
constexpr Row kRows[] = {
    {-1, 1003}, {11, 103},  {13, 116}, {12, 104}, {9, 10},   {6, 163},    {7, 163},  {8, 1000},
    {3, 162},   {10, 1001}, {15, 302}, {16, 9},   {17, 301}, {18, 151},   {19, 152}, {20, 150},
    {21, 8},    {22, 153},  {23, 302}, {24, 154}, {25, 19},  {1004, 161},
};
constexpr std::int32_t kUnknownDevice = -2;  // Kept: not -1, which is a code

}  // namespace

std::int32_t MeasurementDeviceCodeMap::codeToDevice(std::int32_t code) const {
  const auto row = std::find_if(std::rbegin(kRows), std::rend(kRows),
                                [code](const Row& candidate) { return candidate.code == code; });
  return row == std::rend(kRows) ? code : row->device;
}

std::int32_t MeasurementDeviceCodeMap::deviceToCode(std::int32_t device) const {
  const auto row =
      std::find_if(std::rbegin(kRows), std::rend(kRows),
                   [device](const Row& candidate) { return candidate.device == device; });
  return row == std::rend(kRows) ? kUnknownDevice : row->code;
}

}  // namespace lumora::kov
