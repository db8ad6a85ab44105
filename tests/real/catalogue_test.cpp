// SPDX-License-Identifier: MIT
#include "java/catalogue.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/real/support.h"
#include "tests/real/system.h"

// The catalogue beside the jars, row by row.
namespace {

using lumora::kov::java::ClassTable;
using lumora::kov::java::Member;
using realtest::Workstation;
namespace catalogue = lumora::kov::java::catalogue;

struct Resolved {
  int rows = 0;
  std::vector<std::string> missing;
};

template <std::size_t kCount>
void resolve(JNIEnv* env, const ClassTable<kCount>& table, Resolved& result) {
  const jclass clazz = env->FindClass(table.name);
  if (clazz == nullptr) {
    env->ExceptionClear();
    result.missing.push_back(table.name);
    return;
  }
  for (const Member& member : table.members) {
    if (member.kind == Member::Kind::kEmpty) continue;
    ++result.rows;
    const jmethodID id = member.kind == Member::Kind::kStatic
                             ? env->GetStaticMethodID(clazz, member.name, member.signature)
                             : env->GetMethodID(clazz, member.name, member.signature);
    if (id != nullptr) continue;
    env->ExceptionClear();
    result.missing.push_back(std::string(table.name) + '.' + member.name + member.signature);
  }
}

Resolved resolveAll(JNIEnv* env) {
  Resolved result;
  env->PushLocalFrame(64);
  resolve(env, catalogue::kArrayList, result);
  resolve(env, catalogue::kInteger, result);
  resolve(env, catalogue::kDouble, result);
  resolve(env, catalogue::kLangClass, result);
  resolve(env, catalogue::kList, result);
  resolve(env, catalogue::kLong, result);
  resolve(env, catalogue::kSystem, result);
  resolve(env, catalogue::kThrowable, result);
  resolve(env, catalogue::kCalibrationResultValues, result);
  resolve(env, catalogue::kCalibrationTargetValues, result);
  resolve(env, catalogue::kEdidInformation, result);
  resolve(env, catalogue::kExtractedCalibrationData, result);
  resolve(env, catalogue::kMeasurementDeviceType, result);
  resolve(env, catalogue::kLookUpTable, result);
  resolve(env, catalogue::kMonitor, result);
  resolve(env, catalogue::kMonitorLibrary, result);
  resolve(env, catalogue::kOsd, result);
  env->PopLocalFrame(nullptr);
  return result;
}

TEST(Catalogue, EveryRowResolvesInTheJars) {
  const Workstation workstation;
  const Resolved resolved = resolveAll(lumora::kov::java::Env()->env());
  EXPECT_EQ(resolved.rows, 112);
  EXPECT_EQ(resolved.missing, std::vector<std::string>{});
}

TEST(Catalogue, TheSearchStatesAndTheCallbackClassAreThere) {
  const Workstation workstation;
  JNIEnv* env = lumora::kov::java::Env()->env();
  const jclass status = env->FindClass(catalogue::kSearchStatusClass);
  ASSERT_NE(status, nullptr);
  for (const char* name : catalogue::kSearchStatusFields) {
    EXPECT_NE(env->GetStaticFieldID(status, name, catalogue::kSearchStatusSignature), nullptr)
        << name;
  }
  EXPECT_NE(env->FindClass(catalogue::kCallbackClass), nullptr);
}

// The jar that lacks EdidInformation.getSerialNumber().
TEST(CrippledJar, TheMissingMemberIsNoticedByName) {
  const Workstation workstation;
  namespace fs = std::filesystem;
  const fs::path folder = realtest::system::makeFolder();
  const fs::path root = folder / "crippled";
  fs::copy(Workstation::root(), root,
           fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  fs::copy_file(std::getenv("L5KOV_TEST_CRIPPLED_JAR"),
                root / "ORVA/Lumora5/plugins/com.orva.lumora.common.monitorcom.kov/external" /
                    "KOVLibrary.jar",
                fs::copy_options::overwrite_existing);
  realtest::system::setVariable("L5KOV_COMMON_APPDATA", root.string());

  const std::string member =
      "com/orva/kov/library/api/EdidInformation.getSerialNumber()Ljava/lang/String;";
  EXPECT_EQ(resolveAll(lumora::kov::java::Env()->env()).missing, std::vector<std::string>{member});
  const lumora::Monitor monitor = Workstation::findColourMonitor();
  EXPECT_EQ(monitor.getEdidModelName(), "OR-C321");
  try {
    monitor.getEdidSerialNumber();
    ADD_FAILURE() << "nothing was thrown";
  } catch (const lumora::kov::java::JavaException& e) {
    EXPECT_EQ(e.getClassName(), "java.lang.NoSuchMethodError");
    EXPECT_EQ(e.what(), member);
  }
  std::error_code inUse;  // a loaded library stays on Windows
  fs::remove_all(folder, inUse);
}

}  // namespace
