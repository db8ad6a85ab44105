// SPDX-License-Identifier: MIT
// KovMonitorManager: what it asks of the Java library, call by call, and what it hands out.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>
#include <vector>

#include "tests/monitor/monitor_fixture.h"

namespace {

using namespace kovtest;
using fakejvm::returns;
using lumora::Monitor;
using lumora::kov::KovMonitorManager;

class MonitorManager : public MonitorTest {
 protected:
  KovMonitorManager& manager = KovMonitorManager::get();
};

const Lines kStatusLookUps = {
    std::string("FindClass ") + kStatusClass,
    std::string("GetStaticFieldID ") + kStatusClass + ".FINISHED L" + kStatusClass + ";",
    std::string("GetStaticObjectField ") + kStatusClass + ".FINISHED",
    std::string("GetStaticFieldID ") + kStatusClass + ".NONE L" + kStatusClass + ";",
    std::string("GetStaticObjectField ") + kStatusClass + ".NONE",
    std::string("GetStaticFieldID ") + kStatusClass + ".RUNNING L" + kStatusClass + ";",
    std::string("GetStaticObjectField ") + kStatusClass + ".RUNNING",
};

TEST(MonitorManagerSingleton, IsMadeOnFirstUseByAnyThreadAndTouchesNoJava) {
  FakeJvm jvm;
  std::vector<KovMonitorManager*> seen(8);
  std::vector<std::thread> threads;
  for (KovMonitorManager*& place : seen) {
    threads.emplace_back([&place] { place = &KovMonitorManager::get(); });
  }
  for (std::thread& thread : threads) thread.join();
  for (const KovMonitorManager* manager : seen) EXPECT_EQ(manager, &KovMonitorManager::get());
  EXPECT_FALSE(jvm->vmExists());
  EXPECT_TRUE(jvm->logOfAllThreads().empty());
}

TEST_F(MonitorManager, FindAsksInThisOrder) {
  manager.find();
  EXPECT_EQ(jvm.log, inFrame(takesLibrary() + kStatusLookUps +
                                 guarded("CallVoidMethodV library.startMonitorSearch()") +
                                 guarded("CallObjectMethodV library.getSearchStatus()") +
                                 Lines{"IsSameObject FINISHED FINISHED"} + released("library"),
                             1024));
}

TEST_F(MonitorManager, SearchFinishedBeforeTheFirstPollReturnsWithoutSleeping) {
  const auto begin = std::chrono::steady_clock::now();
  manager.find();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(900));
}

TEST_F(MonitorManager, FindWaitsOneRealSecondBetweenPolls) {
  world.setSearchStatuses({world.statusRunning, world.statusFinished});
  const auto begin = std::chrono::steady_clock::now();
  manager.find();
  const auto took = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(took, std::chrono::seconds(1));
  EXPECT_LT(took, std::chrono::seconds(10));
}

TEST_F(MonitorManager, UnexpectedStatusIsALogicError) {
  world.setSearchStatuses({jvm.object("CANCELED", kStatusClass)});
  EXPECT_EQ(logicErrorOf([&] { manager.find(); }), "Monitor search error: Unexpected status.");
}

TEST_F(MonitorManager, StatusIsComparedByIdentityAndNotByName) {
  world.setSearchStatuses({std::make_shared<fakejvm::Object>(kStatusClass, "FINISHED")});
  EXPECT_EQ(logicErrorOf([&] { manager.find(); }), "Monitor search error: Unexpected status.");
}

TEST_F(MonitorManager, NullStatusIsUnexpected) {
  world.setSearchStatuses({nullptr});
  EXPECT_EQ(logicErrorOf([&] { manager.find(); }), "Monitor search error: Unexpected status.");
}

TEST_F(MonitorManager, StatusIsComparedWithFinishedThenRunningThenNone) {
  world.setSearchStatuses({jvm.object("other", kStatusClass)});
  EXPECT_EQ(logicErrorOf([&] { manager.find(); }), "Monitor search error: Unexpected status.");
  EXPECT_EQ(jvm.log.startingWith("IsSameObject "),
            (Lines{"IsSameObject other FINISHED", "IsSameObject other RUNNING",
                   "IsSameObject other NONE"}));
}

// A constant that the jar lacks is no state; in particular it does not equal a null status.
TEST_F(MonitorManager, MissingStatusConstantsEndAsUnexpectedStatus) {
  for (const char* name : {"FINISHED", "NONE", "RUNNING"}) {
    jvm->missingMember(kStatusClass, name, std::string("L") + kStatusClass + ";");
  }
  world.setSearchStatuses({nullptr});
  EXPECT_EQ(logicErrorOf([&] { manager.find(); }), "Monitor search error: Unexpected status.");
}

TEST_F(MonitorManager, MissingStatusClassSkipsItsLookUpsAndEndsAsUnexpectedStatus) {
  jvm->missingClass(kStatusClass);
  EXPECT_EQ(logicErrorOf([&] { manager.find(); }), "Monitor search error: Unexpected status.");
  EXPECT_TRUE(jvm.log.startingWith("GetStaticFieldID").empty());
}

TEST_F(MonitorManager, JavaExceptionOfTheSearchPropagatesUnchanged) {
  jvm->script(kLibraryClass, "startMonitorSearch",
              fakejvm::throws("java/io/IOException", "no bus"));
  EXPECT_EQ(javaExceptionOf([&] { manager.find(); }), "java.io.IOException: no bus");
}

TEST_F(MonitorManager, GetMonitorsAsksInThisOrderAndKeepsTheListsOrder) {
  const MonitorObjects second = world.addMonitor("second");
  second.monitor->setField("model", "L5-M100");
  const std::vector<Monitor> monitors = manager.getMonitors();
  EXPECT_EQ(jvm.log, inFrame(takesLibrary() + guardedObject("library.getMonitors()", "monitors") +
                                 released("library") + guarded("CallIntMethodV monitors.size()") +
                                 guardedObject("monitors.get(0)", "monitor") +
                                 guardedObject("monitors.get(1)", "second") + released("monitors"),
                             1024));
  ASSERT_EQ(monitors.size(), 2U);
  EXPECT_EQ(monitors[0].getModelName(), "L5-X240");
  EXPECT_EQ(monitors[1].getModelName(), "L5-M100");
}

TEST_F(MonitorManager, GetMonitorsStartsNoSearch) {
  manager.getMonitors();
  EXPECT_FALSE(jvm.log.contains("CallVoidMethodV library.startMonitorSearch()"));
}

TEST_F(MonitorManager, EmptyJavaListGivesAnEmptyVector) {
  world.library->setField("monitors", fakejvm::makeList({}, "empty"));
  EXPECT_TRUE(manager.getMonitors().empty());
}

// The fixture's verdict fails on more local references than announced.
TEST_F(MonitorManager, TwoThousandMonitorsAreListedInFramesOfThousand) {
  const auto list = world.library->field("monitors").asObject();
  list->setElements(std::vector<fakejvm::Value>(2100, list->elements()[0]));
  EXPECT_EQ(manager.getMonitors().size(), 2100U);
  EXPECT_EQ(jvm.log.startingWith("PushLocalFrame 1024").size(), 3U);
  EXPECT_EQ(jvm.log.startingWith("PopLocalFrame").size(), 3U);
}

TEST_F(MonitorManager, ListSizeBelowOneGivesAnEmptyVector) {
  jvm->script(world.library->field("monitors").asObject(), "size", returns(-1));
  EXPECT_TRUE(manager.getMonitors().empty());
}

TEST_F(MonitorManager, NullListIsANullPointerException) {
  world.library->setField("monitors", nullptr);
  EXPECT_EQ(javaExceptionOf([&] { manager.getMonitors(); }),
            "java.lang.NullPointerException: java/util/List.size()I called on null");
}

TEST_F(MonitorManager, NullElementGivesAHandleWhoseOperationsThrow) {
  world.library->field("monitors").asObject()->addElement(nullptr);
  const std::vector<Monitor> monitors = manager.getMonitors();
  ASSERT_EQ(monitors.size(), 2U);
  EXPECT_EQ(javaExceptionOf([&] { monitors[1].getModelName(); }),
            "java.lang.NullPointerException: "
            "com/orva/kov/library/api/Monitor.getModel()Ljava/lang/String; called on null");
}

TEST_F(MonitorManager, GetMonitorsTwiceGivesDistinctControls) {
  const std::vector<Monitor> first = manager.getMonitors();
  const std::vector<Monitor> second = manager.getMonitors();
  // One global reference per control: the sets share nothing.
  EXPECT_EQ(jvm->liveGlobalRefs("monitor"), 2);
}

TEST_F(MonitorManager, PartlyBuiltListIsDestroyedWhenAnElementFails) {
  world.addMonitor("second");
  jvm->script(world.library->field("monitors").asObject(), "get", [](fakejvm::Call& call) {
    if (call.args[0].asInt() == 1) throw fakejvm::JavaThrow("java/lang/IllegalStateException", "1");
    return call.self->elements()[0];
  });
  EXPECT_EQ(javaExceptionOf([&] { manager.getMonitors(); }), "java.lang.IllegalStateException: 1");
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

TEST_F(MonitorManager, GetMonitorByNameAsksInThisOrder) {
  const Monitor monitor = manager.getMonitorByName("L5-X240", "SN0001");
  EXPECT_EQ(jvm.log, looksUp("monitor"));
}

TEST_F(MonitorManager, GetMonitorByNamePassesTheBytesOfBothTextsUnchanged) {
  jvm->script(kLibraryClass, "getMonitor", [this](fakejvm::Call& call) {
    EXPECT_EQ(call.args[0].asText(), "M\xC3\xB6nitor \xE6\x97\xA5");
    EXPECT_EQ(call.args[1].asText(), "");
    return objects.monitor;
  });
  manager.getMonitorByName("M\xC3\xB6nitor \xE6\x97\xA5", "");
}

TEST_F(MonitorManager, UnknownNameThrowsCanNotFindMonitor) {
  EXPECT_EQ(logicErrorOf([&] { manager.getMonitorByName("L5-X240", "SN9999"); }),
            "Can not find monitor");
  // The two texts are not interchangeable.
  EXPECT_EQ(logicErrorOf([&] { manager.getMonitorByName("SN0001", "L5-X240"); }),
            "Can not find monitor");
}

TEST_F(MonitorManager, JavaExceptionOfGetInstancePropagatesFromEveryOperation) {
  jvm->script(kLibraryClass, "getInstance", fakejvm::throws("java/lang/Error", "no library"));
  const std::string expected = "java.lang.Error: no library";
  EXPECT_EQ(javaExceptionOf([&] { manager.find(); }), expected);
  EXPECT_EQ(javaExceptionOf([&] { manager.getMonitors(); }), expected);
  EXPECT_EQ(javaExceptionOf([&] { manager.getMonitorByName("a", "b"); }), expected);
}

TEST_F(MonitorManager, NullLibraryIsANullPointerException) {
  jvm->script(kLibraryClass, "getInstance", returns(nullptr));
  EXPECT_EQ(javaExceptionOf([&] { manager.getMonitors(); }),
            "java.lang.NullPointerException: com/orva/kov/library/impl/KovMonitorLibrary."
            "getMonitors()Ljava/util/List; called on null");
}

TEST_F(MonitorManager, HandlesStayValidAfterTheManagersOtherCalls) {
  const Monitor monitor = manager.getMonitorByName("L5-X240", "SN0001");
  manager.find();
  manager.getMonitors();
  EXPECT_EQ(monitor.getSerialNumber(), "SN0001");
}

// The manager is its list of handles and nothing else.
const std::vector<Monitor>& listOf(const KovMonitorManager& manager) {
  static_assert(sizeof(KovMonitorManager) == sizeof(std::vector<Monitor>));
  return reinterpret_cast<const std::vector<Monitor>&>(manager);
}

TEST_F(MonitorManager, ListStaysEmptyWhateverIsCalled) {
  EXPECT_TRUE(listOf(manager).empty());
  manager.find();
  const std::vector<Monitor> monitors = manager.getMonitors();
  const Monitor monitor = manager.getMonitorByName("L5-X240", "SN0001");
  EXPECT_TRUE(listOf(manager).empty());
  EXPECT_EQ(listOf(manager).capacity(), 0U);
}

TEST_F(MonitorManager, MayBeConstructedCopiedAndAssignedToItself) {
  KovMonitorManager own;
  KovMonitorManager copy(own);
  copy = own;
  const KovMonitorManager& same = copy;
  copy = same;
  EXPECT_TRUE(listOf(copy).empty());
  EXPECT_EQ(copy.getMonitors().size(), 1U);
}

TEST_F(MonitorManager, CopiesShareTheControlsOfTheirList) {
  KovMonitorManager own;
  const_cast<std::vector<Monitor>&>(listOf(own)) = manager.getMonitors();
  {
    const KovMonitorManager copy(own);
    KovMonitorManager assigned;
    assigned = own;
    EXPECT_EQ(listOf(copy).size(), 1U);
    EXPECT_EQ(listOf(assigned).size(), 1U);
    EXPECT_EQ(jvm->liveGlobalRefs("monitor"), 1);
  }
  EXPECT_EQ(jvm->liveGlobalRefs("monitor"), 1);
}

TEST_F(MonitorManager, OperationsAfterDeleteJavaVmAreLogicErrors) {
  std::thread([&] {
    lumora::kov::java::Env();
    lumora::kov::java::DeleteJavaVM();
    const std::string expected =
        "Java is no longer available on this thread: DeleteJavaVM() was called";
    EXPECT_EQ(logicErrorOf([&] { manager.find(); }), expected);
    EXPECT_EQ(logicErrorOf([&] { manager.getMonitors(); }), expected);
    EXPECT_EQ(logicErrorOf([&] { manager.getMonitorByName("a", "b"); }), expected);
  }).join();
  EXPECT_EQ(manager.getMonitors().size(), 1U);
}

}  // namespace
