// SPDX-License-Identifier: MIT
// Calibration targets of any shape through the fake Java runtime: what the setters of Java's target
// object and the calibration are told is what the target says, or one of the two exceptions that a
// colour temperature may raise; nothing is misused or left behind.
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

#include "fuzz/bytes.h"
#include "fuzz/java_target.h"
#include "fuzz/require.h"
#include "l5kov.h"
#include "tests/reliability/flow.h"

namespace {

using pocketjson::Value;

constexpr const char* kKeys[] = {"LmaxValue",
                                 "LminValue",
                                 "IsUsedMeasurementLmin",
                                 "IsUsedLamb",
                                 "ColorXValue",
                                 "ColorYValue",
                                 "ColorTemperatureType",
                                 "DisplayFunctionType",
                                 "ExpValue",
                                 "curve",
                                 "IsUsedExternalSensors",
                                 "numberOfGraylevels",
                                 "measureBacklightResponse"};
constexpr const char* kTexts[] = {"OFF",    "CUSTOM",      "K6500", "K",          "K99999999999",
                                  "DICOM",  "CIE",         "EXP",   "LOG_LINEAR", "LINEAR",
                                  "NATIVE", "USER_DEFINE", "true"};

Value scalar(Bytes& bytes) {
  switch (bytes.next() % 7) {
    case 0:
      return {};
    case 1:
      return Value(bytes.next() % 2 == 1);
    case 2:
      return Value(static_cast<int>(bytes.next() * 16777259u));
    case 3:
      return Value(bytes.number());
    case 4:
      return Value(kTexts[bytes.next() % 13]);
    case 5:
      return Value("K" + bytes.text());
    default:
      return Value(bytes.text());
  }
}

Value any(Bytes& bytes, int depth) {
  const unsigned kind = bytes.next() % 8;
  if (depth == 0 || kind < 6) return scalar(bytes);
  Value made;
  const unsigned count = bytes.next() % 6;
  for (unsigned i = 0; i < count; ++i) {
    if (kind == 6) {
      made.append(any(bytes, depth - 1));
    } else {
      made[bytes.text()] = any(bytes, depth - 1);
    }
  }
  return made;
}

struct World {
  World() { reliability::furnish(world, jvm); }
  kovtest::FakeJvm jvm;
  kovtest::KovWorld world{jvm};
  JavaTarget java{jvm};
  reliability::QuietDelegate delegate;
  lumora::kov::KovCalibrator calibrator{"L5-X240", "SN0001", 1, &delegate, "text", "", &delegate};
};

void checkAsked(const Value& target, const std::optional<std::int32_t>& kelvin) {
  const auto& asked = kovtest::fakeChroma().inputs;
  require(asked.size() == (kelvin ? 1 : 0), "the colour library is asked for a temperature alone");
  if (kelvin) require(kovtest::FakeChroma::temperatureOf(asked[0]) == kelvin, "and for that one");
  require(kelvin || target["ColorTemperatureType"].asString().substr(0, 1) != "K", "a temperature");
}

// Sets the target, and says whether its temperature was one.
bool setTarget(World& world, const Value& target, const Value& curve) {
  const std::string type = target["ColorTemperatureType"].asString();
  std::optional<std::int32_t> kelvin;
  std::string refusal;
  try {
    if (type.substr(0, 1) == "K") kelvin = kelvinOf(type);
  } catch (const std::invalid_argument&) {
    refusal = "invalid stol argument";
  } catch (const std::out_of_range&) {
    refusal = "stol argument out of range";
  }
  try {
    const OmError result =
        world.calibrator.setCalibrationTarget(target, curve, {}, kAmbientLight, false);
    require(result == OM_OK, "nothing in Java fails");
    require(refusal.empty(), "a temperature that cannot be read is refused");
    checkAsked(target, kelvin);
    return true;
  } catch (const std::logic_error& e) {  // both kinds
    require(e.what() == refusal, "why a temperature is refused");
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static World* const world = new World;
  Bytes bytes(data, size);
  Value target, curve;
  while (!bytes.empty()) {
    const std::string key = kKeys[bytes.next() % 13];
    if (key == "curve") {
      curve = any(bytes, 2);
    } else {
      target[key] = any(bytes, 2);
    }
  }
  const Value& asked = target;
  world->java.forget();
  const int globals = world->jvm->liveGlobalRefs();
  const bool isTemperatureGood = setTarget(*world, asked, curve);
  const std::string wrong = world->java.difference(settingsOf(asked, curve, isTemperatureGood));
  require(wrong.empty(), ("told as the target says: " + wrong).c_str());
  require(world->calibrator.execute() == OM_OK, "a calibration");
  require(world->java.isCalibratedWith(asked), "with what the target says");
  require(world->jvm->problems().empty(), "no misuse of JNI");
  require(world->jvm->liveGlobalRefs() == globals, "no reference left");
  require(world->jvm->localFrameDepth() == 0, "no frame left");
  require(world->jvm->pendingException() == nullptr, "no exception left");
  world->jvm->clearLog();
  return 0;
}
