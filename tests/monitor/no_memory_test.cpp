// SPDX-License-Identifier: MIT
// What happens when the library's own allocations fail.
#include <gtest/gtest.h>

#include <new>

#include "l5kov.h"
#include "tests/monitor/failing_new.h"
#include "tests/monitor/host_control.h"
#include "tests/monitor/name_table_fixture.h"

namespace {

using namespace kovtest;
using lumora::Monitor;

TEST(MonitorHandle, ControlIsDestroyedWhenItsShareCountCannotBeMade) {
  HostControlRecord record;
  auto* const control = new HostControl(record);
  {
    const FailingNew noMemory(0);
    try {
      const Monitor monitor(control);
    } catch (const std::bad_alloc&) {
      ++record.destroyed;  // one for the exception, on top of the destructor's one
    }
  }
  EXPECT_EQ(record.destroyed, 2);
}

// The file's size is asked for and a buffer of that size is made.
TEST_F(NameTable, HugeFileForWhichThereIsNoMemoryGivesNoPackage) {
  write(table(package("Alpha", model("L5-X240"))));
  constexpr std::uintmax_t kHuge = std::uintmax_t{1} << 31;
  std::filesystem::resize_file(file, kHuge);  // sparse
  const FailingNew noMemory(static_cast<std::size_t>(kHuge) / 2);
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
}

}  // namespace
