// SPDX-License-Identifier: MIT
#include "run/history_times.h"

#include <fmt/chrono.h>

#include <ctime>
#include <iomanip>
#include <sstream>

namespace kovctl {

std::string utcOf(const std::string& executeDate) {
  std::tm local{};
  std::istringstream text(executeDate);
  text.imbue(std::locale::classic());
  text >> std::get_time(&local, "%Y-%m-%d %H:%M:%S");
  if (text.fail() || text.peek() != std::istringstream::traits_type::eof()) return executeDate;
  local.tm_isdst = -1;
  const std::time_t time = std::mktime(&local);
  if (time == static_cast<std::time_t>(-1)) return executeDate;
  return fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(time));
}

}  // namespace kovctl
