// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_KOVCTL_REPORT_SAMPLE_RECORD_H_
#define L5KOV_TESTS_KOVCTL_REPORT_SAMPLE_RECORD_H_

#include <string>

#include "record/run_record.h"

namespace kovctl::test {

/// A calibration of an invented panel to DICOM, 0.5 to 250 cd/m² in 0.1 cd/m² of room light:
/// warm-up, black, white, primaries, 52 native grays and 18 verified ones, with seeded noise.
/// Within the limits of every profile but the one that wants 300 cd/m².
RunRecord sampleCalibration();

/// A verification with 52 levels of the same panel, with one gray far too bright.
RunRecord sampleVerification();

/// A calibration canceled after 20 native grays.
RunRecord sampleCanceled();

/// Every text of it tries to break out of the page.
RunRecord hostileRecord();

/// What hostileRecord() has in that field: it ends an attribute of either quotes, and begins an
/// element.
std::string hostileTag(const std::string& field);

/// A record with every optional member present.
RunRecord completeRecord();

/// By name ("calibration", "verification", "canceled", "hostile", "complete"), for programs.
RunRecord sampleByName(const std::string& name);

}  // namespace kovctl::test

#endif  // L5KOV_TESTS_KOVCTL_REPORT_SAMPLE_RECORD_H_
