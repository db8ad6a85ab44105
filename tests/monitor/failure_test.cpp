// SPDX-License-Identifier: MIT
// Every operation of handle and manager with each of its JNI calls failing in turn: the exception
// that leaves, and nothing left behind.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>

#include "tests/monitor/fault_sweep.h"
#include "tests/monitor/monitor_fixture.h"

namespace {

using namespace kovtest;
using lumora::Monitor;
using lumora::kov::KovMonitorManager;

// What an operation threw: "class: message" of a Java exception, "bad_alloc", "logic_error: text",
// "nothing".
std::string outcomeOf(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const lumora::kov::java::JavaException& e) {
    return e.getClassName() + ": " + e.what();
  } catch (const std::bad_alloc&) {
    return "bad_alloc";
  } catch (const std::logic_error& e) {
    return std::string("logic_error: ") + e.what();
  }
  return "nothing";
}

Monitor lookUp() { return KovMonitorManager::get().getMonitorByName("L5-X240", "SN0001"); }

void fill(KovWorld& world) {
  const MonitorObjects objects = world.addMonitor();
  world.addHistory(objects, 0)
      .target->setField("colorCalibration", true)
      .setField("gammaModelType", "Gamma Function")
      .setField("gammaValue", 2.2);
}

// An operation of the handle.
template <void (*kOperation)(const Monitor&)>
struct OfHandle {
  OfHandle(FakeJvm&, KovWorld& world) : monitor((fill(world), lookUp())) {}
  void run() {
    outcome = outcomeOf([this] { kOperation(monitor); });
  }
  const Monitor monitor;
  std::string outcome;
};

// An operation of the manager.
template <void (*kOperation)()>
struct OfManager {
  OfManager(FakeJvm&, KovWorld& world) { fill(world); }
  void run() { outcome = outcomeOf(kOperation); }
  std::string outcome;
};

template <class Scenario>
void expectEveryJavaExceptionToLeave(int calls) {
  const int struck = FaultSweep<Scenario>::everyJavaCallThrows(
      fakejvm::Fault::exception("com/orva/kov/library/api/Broken", "torn cable"),
      [](const std::string&, FakeJvm&, Scenario& scenario) {
        EXPECT_EQ(scenario.outcome, "com.orva.kov.library.api.Broken: torn cable");
      });
  EXPECT_EQ(struck, calls) << "calls into Java";
}

// Null from any call ends in an exception that says so, or in a default; the sweep itself checks
// that nothing is left and nothing is misused.
template <class Scenario>
void expectEveryNullToBeSurvived() {
  int failures = 0;
  const int struck = FaultSweep<Scenario>::everyCallGivesNothing(
      [&](const std::string& line, FakeJvm&, Scenario& scenario) {
        const std::string& outcome = scenario.outcome;
        const bool javaException = outcome.rfind("java.lang.", 0) == 0;
        const bool search = outcome == "logic_error: Monitor search error: Unexpected status." ||
                            outcome == "logic_error: Can not find monitor";
        EXPECT_TRUE(javaException || search || outcome == "bad_alloc" || outcome == "nothing")
            << outcome;
        if (outcome != "nothing") ++failures;
        if (line.rfind("PushLocalFrame", 0) == 0) {
          EXPECT_EQ(outcome, "java.lang.OutOfMemoryError: ");
        }
        if (line.rfind("NewGlobalRef", 0) == 0) {
          EXPECT_EQ(outcome, "bad_alloc");
        }
        if (line.rfind("GetStringUTFChars", 0) == 0) {
          EXPECT_EQ(outcome, "java.lang.OutOfMemoryError: Java heap space");
        }
      });
  EXPECT_GT(struck, 0);
  EXPECT_GT(failures, 0);
}

void getModelName(const Monitor& m) { m.getModelName(); }
void getSerialNumber(const Monitor& m) { m.getSerialNumber(); }
void getPackageName(const Monitor& m) { m.getPackageName(); }
void getEdidModelName(const Monitor& m) { m.getEdidModelName(); }
void getEdidSerialNumber(const Monitor& m) { m.getEdidSerialNumber(); }
void getEdidProductYear(const Monitor& m) { m.getEdidProductYear(); }
void getConnectionType(const Monitor& m) { m.getConnectionType(); }
void getCalibrationTargetData(const Monitor& m) { m.getCalibrationTargetData(0); }
void getUsageTime(const Monitor& m) { m.getUsageTime(); }
void getCalModeValue(const Monitor& m) { m.getCalModeValue(); }
void setCalModeValue(const Monitor& m) { m.setCalModeValue(1); }
void getExtractCalibrationData(const Monitor& m) { m.getExtractCalibrationData(); }
void getMonitorColorType(const Monitor& m) { m.getMonitorColorType(); }
void isKeyLockSupported(const Monitor& m) { m.isKeyLockSupported(); }
void getKeyLockState(const Monitor& m) { m.getKeyLockState(); }
void setKeyLockState(const Monitor& m) { m.setKeyLockState(OmCtrlKeyLockLocked); }
void getGammaModelTag(const Monitor& m) { m.getGammaModelTag(0); }
void abortCalibration(const Monitor& m) { m.abortCalibration(); }

void find() { KovMonitorManager::get().find(); }
void getMonitors() { KovMonitorManager::get().getMonitors(); }
void getMonitorByName() { lookUp(); }

TEST(JavaExceptionFromEachCall, GetModelName) {
  expectEveryJavaExceptionToLeave<OfHandle<getModelName>>(1);
}
TEST(JavaExceptionFromEachCall, GetSerialNumber) {
  expectEveryJavaExceptionToLeave<OfHandle<getSerialNumber>>(1);
}
TEST(JavaExceptionFromEachCall, GetPackageName) {
  expectEveryJavaExceptionToLeave<OfHandle<getPackageName>>(1);
}
TEST(JavaExceptionFromEachCall, GetEdidModelName) {
  expectEveryJavaExceptionToLeave<OfHandle<getEdidModelName>>(2);
}
TEST(JavaExceptionFromEachCall, GetEdidSerialNumber) {
  expectEveryJavaExceptionToLeave<OfHandle<getEdidSerialNumber>>(2);
}
TEST(JavaExceptionFromEachCall, GetEdidProductYear) {
  expectEveryJavaExceptionToLeave<OfHandle<getEdidProductYear>>(2);
}
TEST(JavaExceptionFromEachCall, GetConnectionType) {
  expectEveryJavaExceptionToLeave<OfHandle<getConnectionType>>(1);
}
TEST(JavaExceptionFromEachCall, GetCalibrationTargetData) {
  expectEveryJavaExceptionToLeave<OfHandle<getCalibrationTargetData>>(15);
}
TEST(JavaExceptionFromEachCall, GetUsageTime) {
  expectEveryJavaExceptionToLeave<OfHandle<getUsageTime>>(1);
}
TEST(JavaExceptionFromEachCall, GetCalModeValue) {
  expectEveryJavaExceptionToLeave<OfHandle<getCalModeValue>>(2);
}
TEST(JavaExceptionFromEachCall, SetCalModeValue) {
  expectEveryJavaExceptionToLeave<OfHandle<setCalModeValue>>(3);
}
TEST(JavaExceptionFromEachCall, GetExtractCalibrationData) {
  expectEveryJavaExceptionToLeave<OfHandle<getExtractCalibrationData>>(36);
}
TEST(JavaExceptionFromEachCall, GetMonitorColorType) {
  expectEveryJavaExceptionToLeave<OfHandle<getMonitorColorType>>(1);
}
TEST(JavaExceptionFromEachCall, IsKeyLockSupported) {
  expectEveryJavaExceptionToLeave<OfHandle<isKeyLockSupported>>(2);
}
TEST(JavaExceptionFromEachCall, GetKeyLockState) {
  expectEveryJavaExceptionToLeave<OfHandle<getKeyLockState>>(2);
}
TEST(JavaExceptionFromEachCall, SetKeyLockState) {
  expectEveryJavaExceptionToLeave<OfHandle<setKeyLockState>>(2);
}
TEST(JavaExceptionFromEachCall, GetGammaModelTag) {
  expectEveryJavaExceptionToLeave<OfHandle<getGammaModelTag>>(4);
}
TEST(JavaExceptionFromEachCall, AbortCalibration) {
  expectEveryJavaExceptionToLeave<OfHandle<abortCalibration>>(1);
}
TEST(JavaExceptionFromEachCall, PerformCalibration) {
  struct Scenario {
    Scenario(FakeJvm& jvm, KovWorld& world) : monitor((fill(world), lookUp())) {
      jvm->script(kMonitorClass, "performCalibration", fakejvm::nothing());
    }
    void run() {
      outcome = outcomeOf([this] { monitor.performCalibration(nullptr, true, 1, true, "t", 1); });
    }
    const Monitor monitor;
    std::string outcome;
  };
  expectEveryJavaExceptionToLeave<Scenario>(1);
}
TEST(JavaExceptionFromEachCall, Find) { expectEveryJavaExceptionToLeave<OfManager<find>>(3); }
TEST(JavaExceptionFromEachCall, GetMonitors) {
  expectEveryJavaExceptionToLeave<OfManager<getMonitors>>(4);
}
TEST(JavaExceptionFromEachCall, GetMonitorByName) {
  expectEveryJavaExceptionToLeave<OfManager<getMonitorByName>>(2);
}

TEST(NullFromEachCall, OfEdidAndTexts) {
  expectEveryNullToBeSurvived<OfHandle<getModelName>>();
  expectEveryNullToBeSurvived<OfHandle<getEdidSerialNumber>>();
  expectEveryNullToBeSurvived<OfHandle<getPackageName>>();
}
TEST(NullFromEachCall, OfLookUpTables) {
  expectEveryNullToBeSurvived<OfHandle<getCalModeValue>>();
  expectEveryNullToBeSurvived<OfHandle<setCalModeValue>>();
}
TEST(NullFromEachCall, OfKeyLock) {
  expectEveryNullToBeSurvived<OfHandle<getKeyLockState>>();
  expectEveryNullToBeSurvived<OfHandle<setKeyLockState>>();
}
TEST(NullFromEachCall, OfHistory) {
  expectEveryNullToBeSurvived<OfHandle<getExtractCalibrationData>>();
  expectEveryNullToBeSurvived<OfHandle<getCalibrationTargetData>>();
  expectEveryNullToBeSurvived<OfHandle<getGammaModelTag>>();
}
TEST(NullFromEachCall, OfTheManager) {
  expectEveryNullToBeSurvived<OfManager<find>>();
  expectEveryNullToBeSurvived<OfManager<getMonitors>>();
  expectEveryNullToBeSurvived<OfManager<getMonitorByName>>();
}

}  // namespace
