// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <stdlib.h>

#include "doctor/catalogue.h"
#include "doctor/java_options.h"
#include "doctor/java_release.h"
#include "doctor/probe_lines.h"
#include "doctor/zip_file.h"
#include "run/history_times.h"
#include "run/measurements.h"

namespace kovctl {
namespace {

TEST(Catalogue, HasAllMembers) { EXPECT_EQ(catalogue().size(), 112U); }

TEST(JavaRelease, IsReadFromItsFile) {
  const JavaRelease release = JavaRelease::parse(
      "IMPLEMENTOR=\"Debian\"\nJAVA_VERSION=\"17.0.21\"\nJAVA_VERSION_DATE=\"2026\"\nOS_ARCH=\"x86_"
      "64\"");
  EXPECT_EQ(release.version, "17.0.21");
  EXPECT_EQ(release.vendor, "Debian");
  EXPECT_EQ(release.machine, "x86_64");
  EXPECT_EQ(JavaRelease::parse("").version, "");
}

TEST(JavaOptions, AreSplitWhereJavaDoes) {
  using Options = std::vector<std::string>;
  EXPECT_EQ(splitJavaOptions(" -Da=b\t-Xrs\n"), (Options{"-Da=b", "-Xrs"}));
  EXPECT_EQ(splitJavaOptions("-Da='b c' \"-D d\"='\"' ''"), (Options{"-Da=b c", "-D d=\"", ""}));
  EXPECT_EQ(splitJavaOptions("-Da='b -Xrs"), Options{"-Da=b -Xrs"});
  EXPECT_TRUE(splitJavaOptions(" ").empty());
}

TEST(JavaOptions, AreHarmlessOnlyWhereJavaLoadsAndTakesNothingForThem) {
  for (const char* option : {"-Da", "-Djavax", "-Dfile=x", "-Djava.io.tmpdir=/x", "-Duser.timezone",
                             "-Xlog:gc", "-Xlog:help=x", "-verbose", "-ea:a.B", "-da",
                             "-Xcheck:jni", "-Xrs", "-XX:NativeMemoryTracking=detail"}) {
    EXPECT_TRUE(isHarmlessJavaOption(option)) << option;
  }
  for (const char* option :
       {"", "-Xcheck:nope", "-XX:NativeMemoryTracking=nope", "-XX:+UseSerialGC",
        "-Xbootclasspath/a:x", "-agentpath:x", "--add-modules=x", "-Djava.security.manager",
        "-Djdk.module.path=x", "-Djava.io.tmpdir2=x", "-Dcom.sun.management.config.file=x",
        "-Dfile.separator=", "-Dfile.encoding=", "-Djava.lang.Integer.IntegerCache.high=2147483000",
        "-Xlog:help", "-D", "-D=x", "D"}) {
    EXPECT_FALSE(isHarmlessJavaOption(option)) << option;
  }
}

// One empty entry "a", as zip writes it.
std::string smallZip() {
  using namespace std::literals;
  const std::string local = "PK\x03\x04\x14\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x01\0\0\0a"s;
  const std::string entry =
      "PK\x01\x02\x14\0\x14\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x01\0\0\0\0\0\0\0\0\0\0\0\0\0"
      "\0\0\0\0a"s;
  std::string end = "PK\x05\x06\0\0\0\0\x01\0\x01\0"s;
  end += static_cast<char>(entry.size());
  end += "\0\0\0"s;
  end += static_cast<char>(local.size());
  end += "\0\0\0\0\0"s;
  return local + entry + end;
}

TEST(ZipFile, CountsItsEntries) { EXPECT_EQ(zipEntries(smallZip()), 1); }

TEST(ZipFile, NoticesDamage) {
  const std::string whole = smallZip();
  EXPECT_EQ(zipEntries(""), std::nullopt);
  EXPECT_EQ(zipEntries("PK"), std::nullopt);
  EXPECT_EQ(zipEntries(whole.substr(0, whole.size() - 10)), std::nullopt);
  std::string hurt = whole;
  hurt[31] = 'X';
  EXPECT_EQ(zipEntries(hurt), std::nullopt);
}

TEST(Probe, KnowsWhatWasBegunAndNotEnded) {
  const ProbeOutput output = parseProbe(
      "Picked up JAVA_TOOL_OPTIONS: -X\n"
      "kovctl-probe {\"begin\":\"java-start\",\"title\":\"Java start\"}\n"
      "kovctl-probe {\"id\":\"java-start\",\"title\":\"Java "
      "start\",\"state\":\"ok\",\"found\":\"f\","
      "\"remedy\":\"\"}\n"
      "kovctl-probe {\"begin\":\"catalogue\",\"title\":\"Members\"}\n"
      "Error: out of memory");
  ASSERT_EQ(output.checks.size(), 1U);
  EXPECT_EQ(output.checks[0].state, CheckState::kOk);
  EXPECT_EQ(output.openId, "catalogue");
  EXPECT_EQ(output.openTitle, "Members");
  EXPECT_EQ(output.otherLines,
            (std::vector<std::string>{"Picked up JAVA_TOOL_OPTIONS: -X", "Error: out of memory"}));
}

TEST(Probe, FindsWhatTheRuntimeComplainsOf) {
  EXPECT_EQ(jniComplaints({"Picked up", "WARNING in native method: JNI call", "fine",
                           "WARNING: JNI local refs: 40, exceeds capacity: 32",
                           "FATAL ERROR in native method: x"})
                .size(),
            3U);
}

// Java 24 and later say so of every jar that loads a native library.
TEST(Probe, TakesNoAdviceOnNativeAccessForAComplaint) {
  EXPECT_EQ(jniComplaints({"WARNING: A restricted method in java.lang.System has been called",
                           "WARNING: java.lang.System::load has been called by com.orva.Panel",
                           "WARNING: Use --enable-native-access=ALL-UNNAMED to avoid a warning"})
                .size(),
            0U);
}

void setTimeZone(const char* zone) {
#ifdef _WIN32
  ::_putenv_s("TZ", zone);
#else
  ::setenv("TZ", zone, 1);
#endif
}

TEST(HistoryTimes, KeepWhatIsNoDate) {
  EXPECT_EQ(utcOf("yesterday"), "yesterday");
  EXPECT_EQ(utcOf("2026-01-31 12:00:00 CET"), "2026-01-31 12:00:00 CET");
  setTimeZone("UTC0");
  EXPECT_EQ(utcOf("2026-01-31 12:00:00"), "2026-01-31T12:00:00Z");
}

TEST(EvenLevels, AreTheOnesThatDecide) {
  const std::vector<int> eighteen = evenLevels(18);
  ASSERT_EQ(eighteen.size(), 18U);
  for (std::size_t i = 0; i < eighteen.size(); ++i)
    EXPECT_EQ(eighteen[i], static_cast<int>(15 * i));
  const std::vector<int> all = evenLevels(52);
  EXPECT_EQ(all.front(), 0);
  EXPECT_EQ(all[1], 5);
  EXPECT_EQ(all.back(), 255);
  EXPECT_TRUE(evenLevels(0).empty());
  EXPECT_EQ(evenLevels(3), (std::vector<int>{0, 128, 255}));
  EXPECT_EQ(evenLevels(5), (std::vector<int>{0, 64, 128, 191, 255}));
}

}  // namespace
}  // namespace kovctl
