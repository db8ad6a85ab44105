// SPDX-License-Identifier: MIT
// Translation of a target: the display function, the user's curve and the gamma model tag.
#include <gtest/gtest.h>

#include "tests/calibration/calibrator_fixture.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;
using pocketjson::Value;

class TargetFunction : public CalibratorTest {
 protected:
  static Value function(const Value& name) {
    Value target = Value();
    target["DisplayFunctionType"] = name;
    return target;
  }
  // The calls of the second step: those between the luminance and the gamma model tag.
  Lines callsFor(const Value& target, const Value& curve = {}) {
    KovCalibrator made = calibrator();
    jvm.log.clear();
    EXPECT_EQ(setTarget(made, target, curve), OM_OK);
    Lines calls;
    for (const std::string& call : jvm.log.javaCalls()) {
      const std::size_t dot = call.find('.');
      const std::string name = call.substr(dot + 1);
      if (name.rfind("setGamma", 0) == 0 || name.rfind("setUser", 0) == 0) calls.push_back(name);
    }
    EXPECT_EQ(calls.back(), "setGammaModelTag(\"tag-entry0\")");
    calls.pop_back();
    return calls;
  }
  // The user-defined data that the target has after the step; empty when none was set.
  std::optional<std::vector<double>> curveFor(const Value& curve) {
    std::optional<std::vector<double>> sent;
    jvm->script(kTargetClass, "setUserDefinedData", [&](fakejvm::Call& call) -> fakejvm::Value {
      sent = call.args[0].asObject()->doubles();
      return {};
    });
    callsFor(function("USER_DEFINE"), curve);
    return sent;
  }
};

TEST_F(TargetFunction, EachNameSetsItsGammaModelType) {
  EXPECT_EQ(callsFor(function("DICOM")), Lines{"setGammaModelType(\"Dicom 14\")"});
  EXPECT_EQ(callsFor(function("CIE")), Lines{"setGammaModelType(\"CIE 1976\")"});
  EXPECT_EQ(callsFor(function("LOG_LINEAR")),
            Lines{"setGammaModelType(\"Logarithmic Luminance Linear\")"});
  EXPECT_EQ(callsFor(function("NATIVE")), Lines{"setGammaModelType(\"Original\")"});
}

TEST_F(TargetFunction, ExpSetsTheGivenExponent) {
  Value target = function("EXP");
  target["ExpValue"] = 2.2;
  EXPECT_EQ(callsFor(target),
            (Lines{"setGammaModelType(\"Gamma Function\")", "setGammaValue(2.2)"}));
  target["ExpValue"] = "1.8";
  EXPECT_EQ(callsFor(target).at(1), "setGammaValue(1.8)");
}

TEST_F(TargetFunction, ExpWithoutExpValueSetsTheExponentZero) {
  EXPECT_EQ(callsFor(function("EXP")),
            (Lines{"setGammaModelType(\"Gamma Function\")", "setGammaValue(0)"}));
}

TEST_F(TargetFunction, LinearIsAGammaFunctionOfExponentOneWhateverExpValueSays) {
  Value target = function("LINEAR");
  target["ExpValue"] = 2.2;
  EXPECT_EQ(callsFor(target), (Lines{"setGammaModelType(\"Gamma Function\")", "setGammaValue(1)"}));
}

TEST_F(TargetFunction, AnyOtherTextSetsNothingAndSucceeds) {
  for (const Value& name : {Value(""), Value("dicom"), Value("DICOM "), Value("Gamma Function"),
                            Value("Dicom 14"), Value(), Value(5)}) {
    EXPECT_EQ(callsFor(function(name)), Lines{});
  }
}

TEST_F(TargetFunction, UserDefineSendsTheCurve) {
  EXPECT_EQ(callsFor(function("USER_DEFINE"), std::vector<Value>{Value(0.25)}),
            (Lines{"setGammaModelType(\"Userdefined\")", "setUserDefinedData(double[]#1)"}));
}

TEST_F(TargetFunction, UserDefineConvertsEachElementInOrder) {
  EXPECT_EQ(curveFor(std::vector<Value>{Value("0.5"), Value(true), Value()}),
            (std::vector<double>{0.5, 1.0, 0.0}));
  EXPECT_EQ(curveFor(std::vector<Value>{Value(3), Value("x"), Value(std::vector<Value>(2)),
                                        Value(0.125)}),
            (std::vector<double>{3.0, 0.0, 0.0, 0.125}));
}

TEST_F(TargetFunction, UserDefineCopiesTheWholeCurveAtOnce) {
  curveFor(std::vector<Value>{Value(0.5), Value(0.75)});
  EXPECT_TRUE(jvm.log.contains("NewDoubleArray 2"));
  EXPECT_TRUE(jvm.log.contains("SetDoubleArrayRegion 0 2 [0.5,0.75]"));
}

TEST_F(TargetFunction, UserDefineWithAnEmptyArraySendsAnEmptyCurve) {
  EXPECT_EQ(curveFor(std::vector<Value>()), std::vector<double>{});
}

TEST_F(TargetFunction, UserDefineWithoutAnArrayLeavesTheDataUntouched) {
  Value object;
  object["0"] = 0.5;
  for (const Value& curve : {Value(), Value("0.5"), Value(1), object}) {
    EXPECT_EQ(callsFor(function("USER_DEFINE"), curve),
              Lines{"setGammaModelType(\"Userdefined\")"});
  }
}

TEST_F(TargetFunction, CurveOfAnotherFunctionIsNotRead) {
  EXPECT_EQ(callsFor(function("CIE"), std::vector<Value>{Value(0.5)}),
            Lines{"setGammaModelType(\"CIE 1976\")"});
}

TEST_F(TargetFunction, LongCurveGoesOverWhole) {
  std::vector<Value> curve;
  std::vector<double> expected;
  for (int i = 0; i < 4096; ++i) {
    curve.emplace_back(i / 4095.0);
    expected.push_back(i / 4095.0);
  }
  EXPECT_EQ(curveFor(curve), expected);
}

TEST_F(TargetFunction, CurveForWhichThereIsNoMemoryIsAJavaError) {
  KovCalibrator made = calibrator();
  jvm->onCall([this](const std::string& line) {
    if (line.rfind("NewStringUTF \"Userdefined\"", 0) != 0) return;
    // clear, call, occurred, and then the array
    jvm->failCall(jvm->callCount() + 4, fakejvm::Fault::nullResult());
  });
  EXPECT_EQ(setTarget(made, function("USER_DEFINE"), std::vector<Value>{Value(0.5)}), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "Java heap space");
  EXPECT_EQ(jvm->faultsApplied(), 1);
}

TEST_F(TargetFunction, FailureOfTheSecondStepKeepsTheFirstAndSkipsTheThird) {
  jvm->script(kTargetClass, "setGammaValue", fakejvm::throws("java/io/IOException", "gamma"));
  KovCalibrator made = calibrator();
  jvm.log.clear();
  EXPECT_EQ(setTarget(made, function("LINEAR")), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "gamma");
  EXPECT_EQ(targetCalls(jvm),
            (Lines{"setColorCalibration(1)", "setColorX(0)", "setColorY(0)", "setMaxLuminance(0)",
                   "setMinLuminance(0)", "setUseMinimumLuminance(1)",
                   "setGammaModelType(\"Gamma Function\")", "setGammaValue(1)"}));
}

class GammaModelTag : public CalibratorTest {
 protected:
  std::string lastCall() {
    const Lines calls = targetCalls(jvm);
    return calls.empty() ? "" : calls.back();
  }
};

TEST_F(GammaModelTag, IsTakenFromTheHistoryAtThePositionOfTheMode) {
  KovCalibrator made = calibrator(2);
  EXPECT_EQ(setTarget(made, {}), OM_OK);
  EXPECT_EQ(lastCall(), "setGammaModelTag(\"tag-entry2\")");
}

TEST_F(GammaModelTag, BeyondTheHistoryIsAJavaError) {
  KovCalibrator made = calibrator(4);
  EXPECT_EQ(setTarget(made, {}), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "Index 4 out of bounds for length 4");
}

TEST_F(GammaModelTag, OfAMonitorWithoutHistoryIsAJavaError) {
  objects.monitor->setField("history", fakejvm::makeList({}));
  KovCalibrator made = calibrator();
  EXPECT_EQ(setTarget(made, {}), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "Index 0 out of bounds for length 0");
}

TEST_F(GammaModelTag, OfANullHistoryIsAJavaError) {
  objects.monitor->setField("history", nullptr);
  KovCalibrator made = calibrator();
  EXPECT_EQ(setTarget(made, {}), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "java/util/List.get(I)Ljava/lang/Object; called on null");
}

TEST_F(GammaModelTag, NullTargetOfTheEntryIsAJavaError) {
  objects.history->elements()[0].asObject()->setField("calibrationTargetValues", nullptr);
  KovCalibrator made = calibrator();
  EXPECT_EQ(setTarget(made, {}), OM_ERR_JAVA);
}

TEST_F(GammaModelTag, NegativeModeAsksForANegativePosition) {
  KovCalibrator made = calibrator(-1);
  EXPECT_EQ(setTarget(made, {}), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "Index -1 out of bounds for length 4");
}

TEST_F(GammaModelTag, UnknownMonitorFailsAfterTheFirstTwoStepsWereTaken) {
  KovCalibrator made = strangersCalibrator();
  EXPECT_EQ(setTarget(made, {}), OM_ERR_COMMUNICATION);
  EXPECT_EQ(targetCalls(jvm).back(), "setUseMinimumLuminance(1)");
  EXPECT_EQ(made.getErrorMsg(), "");
}

}  // namespace
