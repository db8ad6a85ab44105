// SPDX-License-Identifier: MIT
// Text through the exported surface: modified UTF-8, unchanged, in both directions.
#include <gtest/gtest.h>

#include <string>

#include "l5kov.h"
#include "tests/support/kov_world.h"

namespace {

using kovtest::FakeJvm;
using kovtest::KovWorld;
using kovtest::Lines;
using lumora::Monitor;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::JavaException;

// Latin, Greek, Han, and the last character of the basic multilingual plane: 2 and 3 bytes each.
constexpr const char* kPlane = "\xC3\xA9 \xCE\xA9 \xE6\xBC\xA2 \xEF\xBF\xBD \xEF\xBF\xBF";

class JavaText : public testing::Test {
 protected:
  FakeJvm jvm;
  KovWorld world{jvm};
  kovtest::MonitorObjects objects = world.addMonitor();
  Monitor monitor = KovMonitorManager::get().getMonitors().at(0);
};

TEST_F(JavaText, OfTheBasicMultilingualPlaneComesOutUnchanged) {
  objects.monitor->setField("model", kPlane);
  EXPECT_EQ(monitor.getModelName(), kPlane);
}

TEST_F(JavaText, OfTheBasicMultilingualPlaneGoesInUnchanged) {
  objects.monitor->setField("model", kPlane).setField("serialNumber", "\xC3\x9F");
  jvm.log.clear();
  EXPECT_EQ(KovMonitorManager::get().getMonitorByName(kPlane, "\xC3\x9F").getModelName(), kPlane);
  EXPECT_EQ(jvm.log.startingWith("NewStringUTF"),
            (Lines{std::string("NewStringUTF \"") + kPlane + "\"", "NewStringUTF \"\xC3\x9F\""}));
}

// Kept: no conversion to plain UTF-8.
TEST_F(JavaText, NulInsideAJavaTextArrivesAsTwoBytes) {
  objects.monitor->setField("model", "a\xC0\x80z");
  const std::string model = monitor.getModelName();
  EXPECT_EQ(model, "a\xC0\x80z");
  EXPECT_EQ(model.size(), 4u);
}

// Kept: a character beyond the plane is two surrogates of three bytes each.
TEST_F(JavaText, BeyondTheBasicMultilingualPlaneArrivesAsSurrogates) {
  objects.monitor->setField("model", "\xED\xA0\xBD\xED\xB8\x80");
  EXPECT_EQ(monitor.getModelName(), "\xED\xA0\xBD\xED\xB8\x80");
}

TEST_F(JavaText, EmptyTextIsEmptyAndItsCharactersAreReleased) {
  objects.monitor->setField("model", "");
  jvm.log.clear();
  EXPECT_EQ(monitor.getModelName(), "");
  EXPECT_TRUE(jvm.log.contains("GetStringUTFChars \"\""));
  EXPECT_TRUE(jvm.log.contains("ReleaseStringUTFChars \"\""));
}

TEST_F(JavaText, NullTextReadsAsTheEmptyOne) {
  objects.monitor->setField("model", nullptr);
  jvm.log.clear();
  EXPECT_EQ(monitor.getModelName(), "");
  EXPECT_EQ(jvm.log.startingWith("GetStringUTFChars"), Lines{});
}

TEST_F(JavaText, CharactersAreReleasedAfterTheyAreCopied) {
  jvm.log.clear();
  monitor.getModelName();
  EXPECT_LT(jvm.log.indexOf("GetStringUTFChars \"L5-X240\""),
            jvm.log.indexOf("ReleaseStringUTFChars \"L5-X240\""));
  EXPECT_EQ(jvm->outstandingUtf(), 0);
}

TEST_F(JavaText, WhoseCharactersCannotBeHadIsTheJavaRuntimesOutOfMemoryError) {
  jvm.log.clear();
  monitor.getModelName();
  const int at = jvm.log.indexOf("GetStringUTFChars \"L5-X240\"");
  ASSERT_GE(at, 0);
  jvm->failCall(jvm->callCount() + at + 1, fakejvm::Fault::nullResult());
  try {
    monitor.getModelName();
    FAIL() << "no exception";
  } catch (const JavaException& e) {
    EXPECT_EQ(e.getClassName(), "java.lang.OutOfMemoryError");
    EXPECT_STREQ(e.what(), "Java heap space");
  }
  EXPECT_EQ(jvm->faultsApplied(), 1);
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

TEST_F(JavaText, LongTextsCrossWhole) {
  const std::string megabyte(1 << 20, 'x');
  objects.monitor->setField("model", megabyte);
  EXPECT_EQ(monitor.getModelName(), megabyte);
}

}  // namespace
