// SPDX-License-Identifier: MIT
// The maker's world and the vendor stand-ins do what tests build on.
#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "platform/vendor.h"
#include "tests/support/fake_vendor.h"
#include "tests/support/kov_world.h"

namespace kovtest {
namespace {

class FakeWorld : public testing::Test {
 protected:
  FakeJvm jvm;
  KovWorld world{jvm};
  JNIEnv* env = jvm.env();

  jmethodID id(const char* className, const char* name, const char* signature) {
    return env->GetMethodID(env->FindClass(className), name, signature);
  }
  jobject callObject(const std::string& on, const char* className, const char* name,
                     const char* signature) {
    const jobject result = env->CallObjectMethod(jvm.local(on), id(className, name, signature));
    env->ExceptionCheck();
    return result;
  }
  std::string text(const std::string& on, const char* className, const char* name) {
    return jvm->resolve(callObject(on, className, name, "()Ljava/lang/String;"))->text();
  }
};

TEST_F(FakeWorld, BeansReadAndWriteTheirFields) {
  const MonitorObjects monitor = world.addMonitor();
  EXPECT_EQ(text("monitor", kMonitorClass, "getModel"), "L5-X240");
  EXPECT_EQ(text("monitorEdid", kEdidClass, "getSerialNumber"), "1234");
  monitor.edid->setField("serialNumber", "99");
  EXPECT_EQ(text("monitorEdid", kEdidClass, "getSerialNumber"), "99");
  env->CallVoidMethod(jvm.local("monitorOsd"), id(kOsdClass, "setLocked", "(Z)V"), JNI_TRUE);
  env->ExceptionCheck();
  EXPECT_TRUE(monitor.osd->field("locked").asBool());
}

TEST_F(FakeWorld, FieldsSetToNullAnswerNull) {
  world.addMonitor().monitor->setField("model", nullptr);
  EXPECT_EQ(callObject("monitor", kMonitorClass, "getModel", "()Ljava/lang/String;"), nullptr);
}

TEST_F(FakeWorld, ActivatingATableMakesItTheActiveOne) {
  const MonitorObjects monitor = world.addMonitor();
  env->CallVoidMethod(jvm.local("monitorLut1"), id(kLutClass, "activate", "()V"));
  env->ExceptionCheck();
  EXPECT_EQ(monitor.monitor->field("activeLut").asObject(), monitor.luts[1]);
  EXPECT_FALSE(monitor.luts[0]->field("active").asBool());
}

TEST_F(FakeWorld, StatusesComeInTheirOrderAndTheLastOneStays) {
  world.setSearchStatuses({world.statusNone, world.statusRunning, world.statusFinished});
  const std::string signature = std::string("()L") + kStatusClass + ";";
  Lines seen;
  for (int i = 0; i < 4; ++i) {
    const jobject status =
        callObject("library", kLibraryClass, "getSearchStatus", signature.c_str());
    seen.push_back(jvm->resolve(status)->name());
  }
  EXPECT_EQ(seen, (Lines{"NONE", "RUNNING", "FINISHED", "FINISHED"}));
}

TEST_F(FakeWorld, MonitorsAreFoundByModelAndSerialNumber) {
  world.addMonitor("first").monitor->setField("serialNumber", "other");
  const MonitorObjects second = world.addMonitor("second");
  const jmethodID getMonitor =
      id(kLibraryClass, "getMonitor",
         "(Ljava/lang/String;Ljava/lang/String;)Lcom/orva/kov/library/api/Monitor;");
  const auto find = [&](const char* model, const char* serial) {
    const jobject found = env->CallObjectMethod(
        jvm.local("library"), getMonitor, env->NewStringUTF(model), env->NewStringUTF(serial));
    env->ExceptionCheck();
    return jvm->resolve(found);
  };
  EXPECT_EQ(find("L5-X240", "SN0001"), second.monitor);
  EXPECT_EQ(find("L5-X240", "none"), nullptr);
}

TEST_F(FakeWorld, HistoryEntriesBoxTheirNumbers) {
  world.addHistory(world.addMonitor(), 0);
  const jobject hours =
      callObject("entry", kHistoryClass, "getWorkingHours", "()Ljava/lang/Integer;");
  EXPECT_EQ(jvm->resolve(hours)->className, "java/lang/Integer");
  EXPECT_EQ(jvm->resolve(hours)->field("value").asInt(), 1234);
}

TEST_F(FakeWorld, TargetsAndResultsAreMadeByTheirConstructors) {
  const jobject target =
      env->NewObject(env->FindClass(kTargetClass), id(kTargetClass, "<init>", "()V"));
  env->ExceptionCheck();
  EXPECT_EQ(jvm->resolve(target)->field("maxLuminance").asDouble(), 0.0);
  const jobject result = env->NewObject(env->FindClass(kResultClass),
                                        id(kResultClass, "<init>", "(DDI)V"), 250.0, 0.5, 812);
  env->ExceptionCheck();
  EXPECT_EQ(jvm->resolve(result)->field("minLuminance").asDouble(), 0.5);
  EXPECT_EQ(jvm->resolve(result)->field("backlightSensorValue").asInt(), 812);
}

// What the natives below were called with.
Lines nativeCalls;

void JNICALL progress(JNIEnv*, jobject, jint percent, jlong) {
  nativeCalls.push_back("progress " + std::to_string(percent));
}
void JNICALL draw(JNIEnv*, jobject, jint red, jint, jint, jlong handle) {
  nativeCalls.push_back("draw " + std::to_string(red) + " for " + std::to_string(handle));
}
jdoubleArray JNICALL measure(JNIEnv* env, jobject, jlong) {
  const double values[] = {120.5, 0.31, 0.33};
  const jdoubleArray array = env->NewDoubleArray(3);
  env->SetDoubleArrayRegion(array, 0, 3, values);
  return array;
}
jboolean JNICALL finish(JNIEnv* env, jobject, jobject list, jlong) {
  const jmethodID size = env->GetMethodID(env->FindClass("java/util/List"), "size", "()I");
  const jint count = env->CallIntMethod(list, size);
  env->ExceptionCheck();
  nativeCalls.push_back("finish " + std::to_string(count));
  return JNI_TRUE;
}
jstring JNICALL serial(JNIEnv* env, jobject, jlong) { return env->NewStringUTF("METER"); }
jint JNICALL type(JNIEnv*, jobject, jlong) { return 7; }

void registerNatives(JNIEnv* env) {
  std::vector<std::array<std::string, 2>> names{
      {"jniSendProgress", "(IJ)V"},
      {"jniDrawTestpattern", "(IIIJ)V"},
      {"jniMeasureLuminance", "(J)[D"},
      {"jniFinishCalibration", "(Ljava/util/List;J)Z"},
      {"jniGetMeasurementSerialNumber", "(J)Ljava/lang/String;"},
      {"jniGetMeasurementType", "(J)I"}};
  void* const entries[] = {reinterpret_cast<void*>(progress), reinterpret_cast<void*>(draw),
                           reinterpret_cast<void*>(measure),  reinterpret_cast<void*>(finish),
                           reinterpret_cast<void*>(serial),   reinterpret_cast<void*>(type)};
  std::vector<JNINativeMethod> methods;
  for (std::size_t i = 0; i < names.size(); ++i) {
    methods.push_back({names[i][0].data(), names[i][1].data(), entries[i]});
  }
  env->RegisterNatives(env->FindClass(kCallbackClass), methods.data(), 6);
}

TEST_F(FakeWorld, ACalibrationCallsTheNatives) {
  nativeCalls.clear();
  world.addMonitor();
  registerNatives(env);
  const jobject targets = jvm->local(fakejvm::makeList({nullptr, world.target("target")}));
  env->CallVoidMethod(
      jvm.local("monitor"),
      id(kMonitorClass, "performCalibration", "(Ljava/util/List;ZIZLjava/lang/String;J)V"), targets,
      JNI_FALSE, 52, JNI_TRUE, env->NewStringUTF("text"), jlong{77});
  env->ExceptionCheck();
  EXPECT_EQ(nativeCalls, (Lines{"progress 0", "draw 0 for 77", "progress 50", "draw 255 for 77",
                                "progress 100", "finish 2"}));
}

TEST_F(FakeWorld, ATestsOwnCalibration) {
  world.addMonitor();
  registerNatives(env);
  Lines seen;
  world.onCalibrate([&](CalibrationRun& run) {
    seen.push_back(run.text + " " + std::to_string(run.graylevelCount));
    seen.push_back(*run.serialNumber() + " " + std::to_string(run.deviceType()));
    EXPECT_EQ(run.measure(), (std::vector<double>{120.5, 0.31, 0.33}));
    throw fakejvm::JavaThrow("java/io/IOException", "lost");
  });
  env->CallVoidMethod(
      jvm.local("monitor"),
      id(kMonitorClass, "performCalibration", "(Ljava/util/List;ZIZLjava/lang/String;J)V"),
      jvm->local(fakejvm::makeList({})), JNI_FALSE, 18, JNI_TRUE, env->NewStringUTF("text"),
      jlong{77});
  EXPECT_EQ(seen, (Lines{"text 18", "METER 7"}));
  ASSERT_TRUE(jvm->pendingException());
  EXPECT_EQ(jvm->pendingException()->className, "java/io/IOException");
  env->ExceptionClear();
}

TEST(FakeVendor, TheMeterAnswersAndRecords) {
  resetFakeVendors();
  int device = 0;
  EXPECT_EQ(MDGetDeviceID(&device), 163u);
  EXPECT_STREQ(MDGetSerialNumber(&device), "METER-01");
  fakeMeter().serialNumber.reset();
  EXPECT_EQ(MDGetSerialNumber(nullptr), nullptr);
  EXPECT_EQ(fakeMeter().calls, (Lines{"MDGetDeviceID", "MDGetSerialNumber", "MDGetSerialNumber"}));
  EXPECT_EQ(fakeMeter().handles, (std::vector<void*>{&device, &device, nullptr}));
}

TEST(FakeVendor, TheColourLibraryAnswersAndRecords) {
  resetFakeVendors();
  FakeChroma::Input in{};
  const int32_t temperature = 6500;
  std::memcpy(in.data() + 96, &temperature, sizeof temperature);
  std::array<unsigned char, 96> out{};
  EXPECT_EQ(Colour_tmp2xy(out.data(), in.data()), 0);
  double x = 0, y = 0;
  std::memcpy(&x, out.data() + 80, sizeof x);
  std::memcpy(&y, out.data() + 88, sizeof y);
  EXPECT_EQ(x, fakeChroma().x);
  EXPECT_EQ(y, fakeChroma().y);
  ASSERT_EQ(fakeChroma().inputs.size(), 1u);
  EXPECT_EQ(FakeChroma::temperatureOf(fakeChroma().inputs[0]), 6500);
  in[143] = 1;
  EXPECT_EQ(FakeChroma::temperatureOf(in), std::nullopt);
}

}  // namespace
}  // namespace kovtest
