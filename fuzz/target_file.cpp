// SPDX-License-Identifier: MIT
// kovctl's target files, beside a second reading of the same bytes: what is a target is taken as it
// says, field by field; what is none is refused with a sentence that begins with the file's name;
// and a target that cannot be aimed at is refused with a sentence that says why.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "failure.h"
#include "fuzz/plain_target.h"
#include "fuzz/require.h"
#include "target/target_request.h"
#include "tests/real/system.h"
#include "tests/support/fake_vendor.h"

namespace {

namespace fs = std::filesystem;
using kovctl::DisplayFunction;

class Scratch {
 public:
  ~Scratch() { fs::remove_all(root); }
  std::string file() const { return (root / "target.json").string(); }

 private:
  const fs::path root = realtest::system::makeFolder();
};

// The names in files, in the order of the enumerators.
std::string nameOfFunction(DisplayFunction function) {
  constexpr const char* kNames[] = {"DICOM",  "CIE",    "EXP",        "LOG_LINEAR",
                                    "LINEAR", "NATIVE", "USER_DEFINE"};
  return kNames[static_cast<int>(function)];
}

void checkLuminance(const kovctl::TargetInfo& target, const PlainTarget& file) {
  require(target.lmax == file.number("LmaxValue", 250.0), "LmaxValue");
  require(target.lmin == file.number("LminValue", 0.0), "LminValue");
  require(target.useMeasuredLmin == file.measuresMinimum(), "IsUsedMeasurementLmin");
  require(target.ambient == file.ambient(), "ambientLight");
}

void checkWhite(const kovctl::TargetInfo& target, const PlainTarget& file) {
  const kovtest::FakeChroma& chroma = kovtest::fakeChroma();
  const std::string white = file.text("ColorTemperatureType", "OFF");
  require(target.whiteName == white, "ColorTemperatureType");
  require(target.white.has_value() == (white != "OFF"), "a white for its name");
  if (white == "CUSTOM") {
    require(target.white->x == file.number("ColorXValue", 0.0), "ColorXValue");
    require(target.white->y == file.number("ColorYValue", 0.0), "ColorYValue");
  }
  const auto kelvin = file.kelvin();
  require(chroma.inputs.size() == (kelvin ? 1 : 0), "the colour library is asked");
  if (!kelvin) return;
  std::int32_t asked = 0;
  std::memcpy(&asked, chroma.inputs[0].data() + 96, sizeof asked);
  require(asked == *kelvin, "the temperature that it is asked for");
  require(target.white->x == chroma.x && target.white->y == chroma.y, "its answer");
}

void checkTarget(const kovctl::TargetRequest& request, const PlainTarget& file) {
  const kovctl::TargetInfo& target = request.target;
  require(file.isTarget(), "no target is taken for one");
  checkLuminance(target, file);
  checkWhite(target, file);
  require(nameOfFunction(target.function) == file.text("DisplayFunctionType", "DICOM"),
          "DisplayFunctionType");
  require(target.exponent == file.maybe("ExpValue"), "ExpValue");
  require(target.userCurve == file.curve(), "curve");
  require(target.levels == file.number("numberOfGraylevels", 52.0), "numberOfGraylevels");
  require(request.useExternalSensors == file.truth("IsUsedExternalSensors", false),
          "IsUsedExternalSensors");
  require(request.measureBacklightResponse == file.truth("measureBacklightResponse", false),
          "measureBacklightResponse");
  const bool isExponent = target.function == DisplayFunction::kExp;
  require(!isExponent || target.exponent.has_value(), "an exponent");
  const bool isUsers = target.function == DisplayFunction::kUserDefine;
  require(!isUsers || !target.userCurve.empty(), "a curve");
  require(!kovctl::describe(target).empty(), "words for it");
}

void checkRefusal(const kovctl::Failure& failure, const std::string& name,
                  const PlainTarget& file) {
  const auto begins = [what = std::string(failure.what())](const std::string& beginning) {
    return what.size() > beginning.size() && what.compare(0, beginning.size(), beginning) == 0;
  };
  require(failure.code == kovctl::ExitCode::kUsage, "refused as wrong use");
  if (!file.isTarget()) return require(begins(name + ": "), "a sentence that names the file");
  // These are of the target as a whole, which flags may have changed as well.
  const std::string function = file.text("DisplayFunctionType", "DICOM");
  require(function != "NATIVE", "the panel's own curve needs nothing");
  if (function == "EXP" && !file.has("ExpValue")) {
    require(begins("a gamma function needs its exponent"), "a sentence about the exponent");
  } else if (function == "USER_DEFINE" && file.curve().empty()) {
    require(begins("a user-defined function needs its \"curve\""), "a sentence about the curve");
  } else {
    require(begins("the target makes no curve: "), "a sentence that describes the target");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Scratch scratch;
  const std::string text(reinterpret_cast<const char*>(data), size);
  std::ofstream(scratch.file(), std::ios::binary | std::ios::trunc) << text;
  kovtest::fakeChroma().inputs.clear();
  const PlainTarget file(text);
  kovctl::TargetFlags flags;
  flags.file = scratch.file();
  try {
    checkTarget(kovctl::makeTarget(flags), file);
  } catch (const kovctl::Failure& failure) {
    checkRefusal(failure, flags.file, file);
  }
  return 0;
}
