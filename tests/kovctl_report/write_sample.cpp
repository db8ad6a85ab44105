// SPDX-License-Identifier: MIT
// write_sample NAME report|record FILE: what the tests of other programs look at.
#include <cstdio>
#include <exception>
#include <fstream>
#include <string>

#include "record/run_record_json.h"
#include "report/report.h"
#include "sample_record.h"

int main(int count, char** arguments) try {
  if (count != 4) return 2;
  const kovctl::RunRecord record = kovctl::test::sampleByName(arguments[1]);
  const bool report = std::string(arguments[2]) == "report";
  std::ofstream file(arguments[3], std::ios::binary);
  file << (report ? kovctl::renderReport(record) : kovctl::writeRunRecord(record));
  return file.flush() ? 0 : 1;
} catch (const std::exception& e) {
  std::fprintf(stderr, "%s\n", e.what());
  return 1;
}
