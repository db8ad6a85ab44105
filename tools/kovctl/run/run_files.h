// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_RUN_FILES_H_
#define L5KOV_TOOLS_KOVCTL_RUN_RUN_FILES_H_

#include <string>
#include <vector>

#include "cli/context.h"
#include "record/run_record.h"
#include "run/run_options.h"

namespace kovctl {

struct FilesWritten {
  bool allWritten = true;
  std::vector<std::string> paths;
};

/// Tries, before anything is measured, whether the files that the options ask for can be written;
/// makes the folder that is missing.
/// @throws Failure(kOutput), Failure(kUsage) for one file that is to serve for two
void checkRunFiles(const RunOptions& options);

/// Writes the report and the record that the options ask for, each whole or not at all. What cannot
/// be written is said and does not keep the other from being written.
FilesWritten writeRunFiles(Context& context, const RunRecord& record, const RunOptions& options);

/// Whether two names are those of one file, be it there already or not.
bool isSameFile(const std::string& one, const std::string& other);

/// Earlier runs with the same monitor and look-up table, from the records of a folder.
std::vector<HistoryPoint> earlierRuns(const std::string& folder, const RunRecord& of);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_RUN_FILES_H_
