// SPDX-License-Identifier: MIT
// Every operation of the calibrator with each of its JNI calls failing in turn: the code and the
// message, nothing left behind, and a calibrator that works afterwards.
#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <set>

#include "tests/calibration/calibrator_fixture.h"
#include "tests/monitor/fault_sweep.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;
using pocketjson::Value;

const fakejvm::Fault kBroken = fakejvm::Fault::exception("com/orva/Broken", "torn cable");

// A calibrator ready to run, in a fresh world.
struct Ready {
  Ready(FakeJvm&, KovWorld& fresh) : world(fresh), objects(fresh.addMonitor()) {
    resetFakeVendors();
    for (int i = 0; i < 2; ++i) world.addHistory(objects, i, "entry" + std::to_string(i));
    made = std::make_unique<KovCalibrator>("L5-X240", "SN0001", 1, nullptr, "text", "", &delegate);
    made->registerCallback();
  }
  // Of an operation that gives a code; -1 stands for bad_alloc.
  template <class Operation>
  void codeFrom(Operation operation) {
    try {
      code = operation();
    } catch (const std::bad_alloc&) {
      code = -1;
    }
  }
  KovWorld& world;
  MonitorObjects objects;
  RecordingDelegate delegate;
  std::unique_ptr<KovCalibrator> made;
  int code = 0;
};

Value fullTarget(const char* function) {
  Value target;
  target["ColorTemperatureType"] = "K6500";
  target["IsUsedLamb"] = true;
  target["DisplayFunctionType"] = function;
  return target;
}

struct SetTarget : Ready {
  using Ready::Ready;
  void run() {
    codeFrom([&] { return setTarget(*made, fullTarget("EXP"), {}, 1.0); });
  }
};
struct SetCurve : Ready {
  using Ready::Ready;
  void run() {
    codeFrom([&] {
      return setTarget(*made, fullTarget("USER_DEFINE"), std::vector<Value>{Value(0.5)}, 1.0);
    });
  }
};
struct Execute : Ready {
  using Ready::Ready;
  void run() {
    codeFrom([&] { return made->execute(); });
  }
};
struct CancelIt : Ready {
  using Ready::Ready;
  void run() {
    codeFrom([&] { return made->cancel(); });
  }
};
struct Restore : Ready {
  using Ready::Ready;
  void run() {
    codeFrom([&] { return made->restore(); });
  }
};
struct Register : Ready {
  using Ready::Ready;
  void run() {
    codeFrom([&] { return made->registerCallback(); });
  }
};
struct Data : Ready {
  Data(FakeJvm& jvm, KovWorld& fresh) : Ready(jvm, fresh) { made->execute(); }
  void run() {
    try {
      data = made->getCalibrationData();
    } catch (const std::bad_alloc&) {
      code = -1;
    }
  }
  Value data;
};
struct Construct : Ready {
  using Ready::Ready;
  void run() {
    try {
      const KovCalibrator another("L5-X240", "SN0001", 0, nullptr, "", "", nullptr);
      outcome = "nothing";
    } catch (const lumora::kov::java::JavaException& e) {
      outcome = e.getClassName() + ": " + e.what();
    } catch (const std::bad_alloc&) {
      outcome = "bad_alloc";
    }
  }
  std::string outcome;
};

// A Java exception from each call ends in OM_ERR_JAVA with its message; the same calibrator then
// runs through.
template <class Scenario>
void expectJavaErrorFromEachCall(int calls) {
  const int struck = FaultSweep<Scenario>::everyJavaCallThrows(
      kBroken, [](const std::string&, FakeJvm& jvm, Scenario& scenario) {
        EXPECT_EQ(scenario.code, OM_ERR_JAVA);
        EXPECT_EQ(scenario.made->getErrorMsg(), "torn cable");
        EXPECT_EQ(jvm->pendingException(), nullptr);
        EXPECT_EQ(setTarget(*scenario.made, fullTarget("CIE")), OM_OK);
        EXPECT_EQ(scenario.made->execute(), OM_OK);
      });
  EXPECT_EQ(struck, calls) << "calls into Java";
}

// Null from each call ends in one of these codes; the same calibrator then runs through.
template <class Scenario>
std::set<int> codesOfNullFromEachCall() {
  std::set<int> codes;
  const int struck = FaultSweep<Scenario>::everyCallGivesNothing(
      [&](const std::string& line, FakeJvm&, Scenario& scenario) {
        codes.insert(scenario.code);
        const bool memory = line.rfind("PushLocalFrame", 0) == 0;
        if (memory) {
          EXPECT_EQ(scenario.code, OM_ERR_JAVA);
        }
        EXPECT_EQ(scenario.made->execute(), OM_OK);
      });
  EXPECT_GT(struck, 0);
  return codes;
}

TEST(JavaExceptionFromEachCallOfTheCalibrator, Constructor) {
  const int struck = FaultSweep<Construct>::everyJavaCallThrows(
      kBroken, [](const std::string&, FakeJvm&, Construct& scenario) {
        EXPECT_EQ(scenario.outcome, "com.orva.Broken: torn cable");
      });
  EXPECT_EQ(struck, 2);
}

TEST(JavaExceptionFromEachCallOfTheCalibrator, SetCalibrationTarget) {
  expectJavaErrorFromEachCall<SetTarget>(16);
}
TEST(JavaExceptionFromEachCallOfTheCalibrator, SetCalibrationTargetWithACurve) {
  expectJavaErrorFromEachCall<SetCurve>(16);
}
// The calls of the finish callback among them, whose exceptions cross Java on their way.
TEST(JavaExceptionFromEachCallOfTheCalibrator, Execute) {
  expectJavaErrorFromEachCall<Execute>(13);
}
TEST(JavaExceptionFromEachCallOfTheCalibrator, Cancel) { expectJavaErrorFromEachCall<CancelIt>(3); }
TEST(JavaExceptionFromEachCallOfTheCalibrator, Restore) { expectJavaErrorFromEachCall<Restore>(5); }
TEST(JavaExceptionFromEachCallOfTheCalibrator, GetCalibrationData) {
  int partly = 0;
  const int struck = FaultSweep<Data>::everyJavaCallThrows(
      kBroken, [&](const std::string& line, FakeJvm&, Data& scenario) {
        EXPECT_EQ(scenario.made->getErrorMsg(), "torn cable") << "the code is discarded";
        const bool last = line.find("getBacklightSensorValue") != std::string::npos;
        EXPECT_EQ(scenario.data.type(), last ? Value::Object : Value::String);
        if (last) ++partly;
      });
  EXPECT_EQ(struck, 4);
  EXPECT_EQ(partly, 1);
}

TEST(NullFromEachCallOfTheCalibrator, Constructor) {
  std::set<std::string> outcomes;
  FaultSweep<Construct>::everyCallGivesNothing(
      [&](const std::string&, FakeJvm&, Construct& scenario) {
        outcomes.insert(scenario.outcome);
      });
  EXPECT_EQ(outcomes, (std::set<std::string>{"bad_alloc", "java.lang.OutOfMemoryError: ",
                                             "java.lang.OutOfMemoryError: Java heap space"}));
}
TEST(NullFromEachCallOfTheCalibrator, SetCalibrationTarget) {
  const std::set<int> codes = codesOfNullFromEachCall<SetTarget>();
  EXPECT_EQ(codes, (std::set<int>{OM_ERR_JAVA, OM_ERR_COMMUNICATION, OM_OK}));
}
TEST(NullFromEachCallOfTheCalibrator, SetCalibrationTargetWithACurve) {
  const std::set<int> codes = codesOfNullFromEachCall<SetCurve>();
  EXPECT_EQ(codes, (std::set<int>{OM_ERR_JAVA, OM_ERR_COMMUNICATION, OM_OK}));
}
TEST(NullFromEachCallOfTheCalibrator, Execute) {
  const std::set<int> codes = codesOfNullFromEachCall<Execute>();
  EXPECT_EQ(codes, (std::set<int>{OM_ERR_JAVA, OM_ERR_COMMUNICATION, OM_OK}));
}
TEST(NullFromEachCallOfTheCalibrator, Cancel) {
  const std::set<int> codes = codesOfNullFromEachCall<CancelIt>();
  EXPECT_EQ(codes, (std::set<int>{OM_ERR_JAVA, OM_ERR_COMMUNICATION}));
}
TEST(NullFromEachCallOfTheCalibrator, Restore) {
  const std::set<int> codes = codesOfNullFromEachCall<Restore>();
  EXPECT_EQ(codes, (std::set<int>{OM_ERR_JAVA, OM_ERR_COMMUNICATION}));
}
TEST(NullFromEachCallOfTheCalibrator, RegisterCallback) {
  const std::set<int> codes = codesOfNullFromEachCall<Register>();
  EXPECT_EQ(codes, std::set<int>{OM_ERR_JAVA});
}
TEST(NullFromEachCallOfTheCalibrator, GetCalibrationData) {
  int failed = 0;
  FaultSweep<Data>::everyCallGivesNothing([&](const std::string&, FakeJvm&, Data& scenario) {
    if (scenario.code == -1 || scenario.made->getErrorMsg() != "") ++failed;
  });
  EXPECT_GT(failed, 0);
}

}  // namespace
