// SPDX-License-Identifier: MIT
// The finish callback: how it takes the results over.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/calibration/callbacks_fixture.h"

namespace {

using namespace kovtest;
using fakejvm::Value;
using lumora::kov::KovCalibrator;

class FinishCallback : public Callbacks {};

TEST_F(FinishCallback, TakesTheResultsInThisOrder) {
  KovCalibrator made = calibrator();
  const auto results = fakejvm::makeList(
      {world.result("first", 1, 2, 3), world.result("second", 4, 5, 6)}, "results");
  bool answer = false;
  run(made, [&](CalibrationRun& run) { answer = run.finish(results); });
  EXPECT_TRUE(answer);
  const auto one = [](const std::string& get, const std::string& name) {
    return guardedObject("results.get(" + get + ")", name) +
           guarded("CallBooleanMethodV ArrayList#1.add(" + name + ")") +
           guarded("CallIntMethodV results.size()") + released(name);
  };
  EXPECT_EQ(logInside,
            Lines{"enter jniFinishCalibration(results," + std::to_string(addressOf(made)) + ")"} +
                Lines{"NewGlobalRef results"} + guarded("CallIntMethodV results.size()") +
                one("0", "first") + one("1", "second") + released("results") +
                Lines{"leave jniFinishCalibration"});
  EXPECT_EQ(delegate.events, std::vector<std::string>{"FinishCalibration"});
}

TEST_F(FinishCallback, NotifiesBeforeTheListIsReleased) {
  KovCalibrator made = calibrator();
  bool released = true;
  delegate.onEvent = [&](const std::string&) {
    released = jvm.log.contains("DeleteGlobalRef results");
  };
  run(made, [&](CalibrationRun& run) { run.finish(fakejvm::makeList({}, "results")); });
  EXPECT_FALSE(released);
  EXPECT_EQ(std::count(logInside.begin(), logInside.end(), "DeleteGlobalRef results"), 1);
}

TEST_F(FinishCallback, ReadsTheSizeAgainAfterEveryElement) {
  KovCalibrator made = calibrator(2);
  const auto results = fakejvm::makeList({world.result("a", 0, 0, 1)}, "results");
  jvm->script(results, "get", [&](fakejvm::Call& call) -> Value {
    const auto elements = call.self->elements();
    // The list grows while it is read, up to three.
    if (elements.size() < 3) {
      call.self->addElement(world.result("grown" + std::to_string(elements.size()), 0, 0.75, 40));
    }
    return elements[static_cast<std::size_t>(call.args[0].asInt())];
  });
  run(made, [&](CalibrationRun& run) { run.finish(results); });
  EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(-5), 40) << "the grown third one";
}

TEST_F(FinishCallback, FinishOfAListThatShrinksEndsEarlier) {
  KovCalibrator made = calibrator();
  const auto results =
      fakejvm::makeList({world.result("a", 0, 0, 1), world.result("b", 0, 0, 2)}, "results");
  jvm->script(results, "get", [&](fakejvm::Call& call) -> Value {
    const Value first = call.self->elements()[0];
    call.self->setElements({first});
    return first;
  });
  run(made, [&](CalibrationRun& run) { EXPECT_TRUE(run.finish(results)); });
  EXPECT_EQ(std::count(logInside.begin(), logInside.end(), "CallBooleanMethodV ArrayList#1.add(a)"),
            1);
}

// The fixture's verdict fails on more local references than announced.
TEST_F(FinishCallback, TakesThousandResultsInSmallFrames) {
  KovCalibrator made = calibrator();
  std::vector<Value> results;
  for (int i = 0; i < 1000; ++i) results.push_back(world.result("r" + std::to_string(i), 0, 0, i));
  run(made, [&](CalibrationRun& run) {
    EXPECT_TRUE(run.finish(fakejvm::makeList(std::move(results), "results")));
  });
  const auto added = [](const std::string& line) {
    return line.rfind("CallBooleanMethodV ArrayList#1.add(r", 0) == 0;
  };
  EXPECT_EQ(std::count_if(logInside.begin(), logInside.end(), added), 1000);
  EXPECT_EQ(std::count(logInside.begin(), logInside.end(), "PushLocalFrame 32"), 1000 / 32);
}

TEST_F(FinishCallback, FinishWithAnEmptyListAddsNothingAndStillNotifies) {
  KovCalibrator made = calibrator();
  run(made, [](CalibrationRun& run) { EXPECT_TRUE(run.finish(fakejvm::makeList({}, "none"))); });
  EXPECT_EQ(delegate.events, std::vector<std::string>{"FinishCalibration"});
  EXPECT_EQ(made.getCalibrationData().type(), pocketjson::Value::String);
}

TEST_F(FinishCallback, FinishWithANullListIsAJavaError) {
  KovCalibrator made = calibrator();
  run(
      made, [](CalibrationRun& run) { run.finish(nullptr); }, OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "java/util/List.size()I called on null");
  EXPECT_TRUE(delegate.events.empty());
}

TEST_F(FinishCallback, NullResultIsKeptAsOne) {
  KovCalibrator made = calibrator();
  run(made, [](CalibrationRun& run) { run.finish(fakejvm::makeList({nullptr})); });
  EXPECT_EQ(made.getCalibrationData().type(), pocketjson::Value::String);
  EXPECT_EQ(made.getErrorMsg(),
            "com/orva/kov/library/api/CalibrationResultValues.getMinLuminance()D called on null");
}

}  // namespace
