// SPDX-License-Identifier: MIT
// Class bindings: the registry's slots, the identifier records, and what they own.
#include <gtest/gtest.h>

#include <type_traits>

#include "java/java_classes.h"
#include "java/search_status.h"
#include "tests/fake_jvm/member.h"
#include "tests/java/golden.h"
#include "tests/java/threads.h"
#include "tests/support/kov_world.h"

namespace {

using kovtest::FakeJvm;
using kovtest::golden;
using kovtest::Lines;
namespace kov = lumora::kov::java;

static_assert(std::has_virtual_destructor_v<kov::JApiMonitorClass>);
static_assert(std::has_virtual_destructor_v<kov::JApiMonitor>);
static_assert(!std::is_copy_constructible_v<kov::JApiMonitor>);
static_assert(!std::is_copy_constructible_v<kov::JApiMonitorClass>);

// The seventeen slots in their declared order, each with the visitor.
template <class Classes, class Visitor>
void eachSlot(Classes& classes, Visitor visit) {
  visit(classes.arrayList);
  visit(classes.integer);
  visit(classes.doubleClass);
  visit(classes.langClass);
  visit(classes.list);
  visit(classes.longClass);
  visit(classes.system);
  visit(classes.throwable);
  visit(classes.calibrationResultValues);
  visit(classes.calibrationTargetValues);
  visit(classes.edidInformation);
  visit(classes.extractedCalibrationData);
  visit(classes.lookUpTable);
  visit(classes.measurementDeviceType);
  visit(classes.monitor);
  visit(classes.monitorLibrary);
  visit(classes.osd);
}

// Members are destroyed from the last to the first, so the order of the slots is also that of their
// end. What a slot is made of is left open.
static_assert(std::is_aggregate_v<kov::JavaClasses>);

TEST(Registry, SlotsStandInTheirDeclaredOrderAndNothingStandsBetween) {
  const kov::JavaClasses classes;
  const auto* const begin = reinterpret_cast<const char*>(&classes);
  const char* next = begin;
  int count = 0;
  eachSlot(classes, [&](const auto& slot) {
    EXPECT_EQ(reinterpret_cast<const char*>(&slot), next) << "slot " << ++count;
    next += sizeof slot;
  });
  EXPECT_EQ(static_cast<std::size_t>(next - begin), sizeof classes);
}

TEST(Registry, ReleasesNothingInJavaWhenItIsDestroyed) {
  FakeJvm jvm;
  kov::JavaEnv* const env = kov::Env();
  {
    kov::JavaClasses classes;
    classes.build(env);
    jvm.log.clear();
  }
  EXPECT_EQ(jvm.log, Lines{});
}

TEST(Registry, EveryBindingKeepsItsClassAsTheLocalReferenceThatWasFound) {
  FakeJvm jvm;
  const kov::JavaClasses& classes = kov::Env()->classes();
  Lines names;
  eachSlot(classes, [&](const auto& slot) {
    const fakejvm::ObjectRef found = jvm->resolve(slot->javaClass());
    names.push_back(found == nullptr ? "null" : found->name());
    EXPECT_EQ(slot->owner(), kov::Env());
    EXPECT_EQ(*slot->cell(), kov::Env()->env());
  });
  Lines expected;
  for (const std::string& line : golden("identifier_records.txt")) {
    if (line.rfind("  ", 0) != 0) expected.push_back(line);
  }
  EXPECT_EQ(names, expected);
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

// What a record's slot holds; the fake runtime's identifiers point to members.
std::string slotText(jmethodID id) {
  if (id == nullptr) return "  (empty)";
  const auto* member = reinterpret_cast<const fakejvm::Member*>(id);
  return "  " + member->name + member->signature;
}

TEST(IdentifierRecords, HoldEveryMemberInItsSlot) {
  FakeJvm jvm;
  const kov::JavaClasses& classes = kov::Env()->classes();
  Lines lines;
  eachSlot(classes, [&](const auto& slot) {
    lines.push_back(jvm->resolve(slot->javaClass())->name());
    for (const jmethodID id : slot->identifiers().ids) lines.push_back(slotText(id));
  });
  EXPECT_EQ(lines, golden("identifier_records.txt"));
}

TEST(IdentifierRecords, OfClassAndSystemKeepTheirEmptyFirstSlotNull) {
  FakeJvm jvm;
  const kov::JavaClasses& classes = kov::Env()->classes();
  ASSERT_EQ(classes.langClass->identifiers().ids.size(), 2u);
  EXPECT_EQ(classes.langClass->identifiers().ids[0], nullptr);
  EXPECT_NE(classes.langClass->identifiers().ids[1], nullptr);
  ASSERT_EQ(classes.system->identifiers().ids.size(), 2u);
  EXPECT_EQ(classes.system->identifiers().ids[0], nullptr);
  EXPECT_NE(classes.system->identifiers().ids[1], nullptr);
}

TEST(IdentifierRecords, GetInstanceIsLookedUpFirstAndStoredLast) {
  FakeJvm jvm;
  const auto& ids = kov::Env()->classes().monitorLibrary->identifiers().ids;
  ASSERT_EQ(ids.size(), 5u);
  EXPECT_EQ(slotText(ids[4]), "  getInstance()Lcom/orva/kov/library/api/MonitorLibrary;");
  EXPECT_EQ(slotText(ids[0]).substr(0, 13), "  getMonitor(");
}

TEST(IdentifierRecords, KeepBothOverloadsOfSetExecuteDate) {
  FakeJvm jvm;
  const auto& ids = kov::Env()->classes().extractedCalibrationData->identifiers().ids;
  ASSERT_EQ(ids.size(), 32u);
  EXPECT_EQ(slotText(ids[20]), "  setExecuteDate(Ljava/lang/String;)V");
  EXPECT_EQ(slotText(ids[21]), "  setExecuteDate(Ljava/util/Date;)V");
}

// ---- The search states, bound on demand ----

class SearchStatus : public testing::Test {
 protected:
  FakeJvm jvm;
  kovtest::KovWorld world{jvm};
  const std::string name = kovtest::kStatusClass;
  const std::string type = " L" + name + ";";
};

TEST_F(SearchStatus, AreLookedUpInTheirOrder) {
  kov::JavaEnv* const env = kov::Env();
  jvm.log.clear();
  const kov::JApiSearchStatus states(env);
  EXPECT_EQ(jvm.log, (Lines{"FindClass " + name,                              //
                            "GetStaticFieldID " + name + ".FINISHED" + type,  //
                            "GetStaticObjectField " + name + ".FINISHED",     //
                            "GetStaticFieldID " + name + ".NONE" + type,      //
                            "GetStaticObjectField " + name + ".NONE",         //
                            "GetStaticFieldID " + name + ".RUNNING" + type,   //
                            "GetStaticObjectField " + name + ".RUNNING"}));
  EXPECT_EQ(states.identifiers().empty, nullptr);
  EXPECT_EQ(jvm->resolve(states.identifiers().finished), world.statusFinished);
  EXPECT_EQ(jvm->resolve(states.identifiers().none), world.statusNone);
  EXPECT_EQ(jvm->resolve(states.identifiers().running), world.statusRunning);
}

TEST_F(SearchStatus, AreToldApartByIdentity) {
  const kov::JApiSearchStatus states(kov::Env());
  const jobject running = jvm->local(world.statusRunning);
  jvm.log.clear();
  EXPECT_TRUE(states.isRunning(running));
  EXPECT_FALSE(states.isFinished(running));
  EXPECT_FALSE(states.isNone(running));
  EXPECT_EQ(jvm.log, (Lines{"IsSameObject RUNNING RUNNING", "IsSameObject RUNNING FINISHED",
                            "IsSameObject RUNNING NONE"}));
}

TEST_F(SearchStatus, ThatWereNotFoundAreNoStateEvenForNull) {
  kov::Env();
  jvm->missingClass(name);
  const kov::JApiSearchStatus states(kov::Env());
  EXPECT_FALSE(states.isFinished(nullptr));
  EXPECT_FALSE(states.isNone(nullptr));
  EXPECT_FALSE(states.isRunning(nullptr));
  EXPECT_EQ(jvm.log.startingWith("GetStaticFieldID"), Lines{});
  EXPECT_NE(jvm->pendingException(), nullptr);
  kov::JArrayList::create(kov::Env());
  EXPECT_EQ(jvm->pendingException(), nullptr) << "discarded by the next guarded call";
}

TEST_F(SearchStatus, WithoutOneConstantStillTellTheOthers) {
  kov::Env();
  jvm->missingMember(name, "NONE", "L" + name + ";");
  const kov::JApiSearchStatus states(kov::Env());
  EXPECT_EQ(jvm.log.startingWith("GetStaticObjectField"),
            (Lines{"GetStaticObjectField " + name + ".FINISHED",
                   "GetStaticObjectField " + name + ".RUNNING"}));
  EXPECT_TRUE(states.isFinished(jvm->local(world.statusFinished)));
  EXPECT_FALSE(states.isNone(jvm->local(world.statusNone)));
  EXPECT_NE(jvm->pendingException(), nullptr);
  kov::JArrayList::create(kov::Env());
  EXPECT_EQ(jvm->pendingException(), nullptr) << "discarded by the next guarded call";
}

// ---- The catalogue and its wrappers at compile time ----

template <class Function, kov::Name kName>
concept IsInOsd = requires {
  typename std::integral_constant<std::size_t,
                                  kov::rowOf<Function>(kov::catalogue::kOsd, kName.view())>;
};
static_assert(IsInOsd<bool(), "isLocked">);
static_assert(IsInOsd<void(bool), "setLocked">);
static_assert(!IsInOsd<std::int32_t(), "isLocked">, "another result");
static_assert(!IsInOsd<void(std::int32_t), "setLocked">, "another parameter");
static_assert(!IsInOsd<void(), "setLocked">, "too few parameters");
static_assert(!IsInOsd<void(bool, bool), "setLocked">, "too many parameters");
static_assert(!IsInOsd<bool(), "isOpen">, "no such member");

static_assert(kov::kArgumentsFit<void(std::int64_t), jlong>);
static_assert(!kov::kArgumentsFit<void(std::int64_t), jint>, "would be read as garbage");
static_assert(!kov::kArgumentsFit<void(double), jint>);
static_assert(!kov::kArgumentsFit<void(bool, bool), jboolean>);

}  // namespace
