// SPDX-License-Identifier: MIT
// Every allocation that the library makes in an operation fails in turn: the operation ends as it
// promises, nothing is left behind, and the same operation succeeds right after it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <thread>

#include "l5kov.h"
#include "tests/reliability/failing_allocation.h"
#include "tests/reliability/flow.h"
#include "tests/support/fake_vendor.h"

namespace {

using namespace kovtest;
using lumora::Monitor;
using lumora::kov::KovCalibrator;
using lumora::kov::KovMonitorManager;
using reliability::FailingAllocation;

// Longer than any string object holds in itself.
const std::string kLong(100, 'x');

std::string inWords(OmError error) {
  if (error == OM_OK) return "OM_OK";
  if (error == OM_ERR_JAVA) return "OM_ERR_JAVA";
  return error == OM_ERR_COMMUNICATION ? "OM_ERR_COMMUNICATION" : std::to_string(error);
}

class EveryAllocationFails : public testing::Test {
 protected:
  EveryAllocationFails() {
    lumora::kov::java::Env();
    EXPECT_EQ(KovCalibrator("", "", 0, nullptr, "", "", nullptr).registerCallback(), OM_OK);
    reliability::furnish(world, jvm);
  }

  // `operation` gives its result in words; "bad_alloc" stands for the exception. Each failing run
  // must end in one of `allowed`; each run without a failure in `clean`.
  void sweep(const std::string& clean, const std::set<std::string>& allowed,
             const std::function<std::string()>& operation) {
    std::map<std::string, int> seen;
    int number = 1;
    for (; number < 10000; ++number) {
      SCOPED_TRACE("allocation " + std::to_string(number));
      bool struck = false;
      const std::string outcome = failing(number, operation, struck);
      if (!struck) {
        EXPECT_EQ(outcome, clean);
        break;
      }
      ++seen[outcome];
      EXPECT_TRUE(allowed.count(outcome)) << outcome;
      EXPECT_EQ(jvm->outstandingUtf(), 0);
      EXPECT_EQ(jvm->localFrameDepth(), 0);
      EXPECT_EQ(jvm->pendingException(), nullptr);
      EXPECT_EQ(operation(), clean) << "the operation is of use again";
    }
    EXPECT_GT(number, 1) << "no allocation was made to fail";
    std::cout << number - 1 << " allocations failed in turn:";
    for (const auto& [outcome, count] : seen) std::cout << ' ' << outcome << " x" << count;
    std::cout << '\n';
  }

  static std::string failing(int number, const std::function<std::string()>& operation,
                             bool& struck) {
    const FailingAllocation fuse(number);
    std::string outcome;
    try {
      outcome = operation();
    } catch (const std::bad_alloc&) {
      outcome = "bad_alloc";
    }
    struck = fuse.struck();
    return outcome;
  }

  Monitor monitor() { return KovMonitorManager::get().getMonitorByName("L5-X240", "SN0001"); }
  std::unique_ptr<KovCalibrator> calibrator() {
    return std::make_unique<KovCalibrator>("L5-X240", "SN0001", 1, &delegate, kLong, kLong,
                                           &delegate);
  }

  FakeJvm jvm;
  KovWorld world{jvm};
  reliability::QuietDelegate delegate;
};

pocketjson::Value target() {
  pocketjson::Value made;
  made["ColorTemperatureType"] = "K" + std::string(40, ' ') + "6500";
  made["DisplayFunctionType"] = "USER_DEFINE";
  return made;
}

TEST_F(EveryAllocationFails, InTheSearchAndTheList) {
  sweep("2", {"bad_alloc"}, [] {
    KovMonitorManager::get().find();
    return std::to_string(KovMonitorManager::get().getMonitors().size());
  });
}

TEST_F(EveryAllocationFails, InAQuery) {
  const Monitor asked = monitor();
  jvm->find("monitor")->setField("model", kLong);
  sweep(kLong, {"bad_alloc"}, [&] { return asked.getModelName(); });
}

TEST_F(EveryAllocationFails, InTheHistory) {
  const Monitor asked = monitor();
  for (const char* field : {"performer", "computerName"}) {
    jvm->find("entry0")->setField(field, kLong);
  }
  sweep("2", {"bad_alloc"},
        [&] { return std::to_string(asked.getExtractCalibrationData().size()); });
}

TEST_F(EveryAllocationFails, InTheStoredTarget) {
  const Monitor asked = monitor();
  sweep("9", {"bad_alloc"},
        [&] { return std::to_string(asked.getCalibrationTargetData(1).size()); });
}

TEST_F(EveryAllocationFails, InTheTranslationOfAJavaException) {
  const Monitor broken = KovMonitorManager::get().getMonitorByName("L5-X240", "SN0002");
  jvm->script(jvm->find("broken"), "getColorType", fakejvm::throws("java/io/IOException", kLong));
  sweep("java.io.IOException: " + kLong, {"bad_alloc"}, [&]() -> std::string {
    try {
      return std::to_string(broken.getMonitorColorType());
    } catch (const lumora::kov::java::JavaException& e) {
      const std::string message = e.what();
      return e.getClassName() + ": " + message;
    }
  });
}

TEST_F(EveryAllocationFails, InTheNameTable) {
  const std::filesystem::path file =
      jvm.root() / "ORVA" / "Lumora5" / "Data" / "Profile" / "KovMonitorName.xml";
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << "<KovMonitorName><PackageInfo><PackageName>" << kLong
                      << "</PackageName><ModelInfo><ModelName>L5-X240</ModelName></ModelInfo>"
                      << "</PackageInfo></KovMonitorName>";
  const Monitor asked = monitor();
  // A table that there is no memory for counts as unreadable; a text that there is none for not.
  sweep(kLong, {"noPackage", "bad_alloc"}, [&] { return asked.getPackageName(); });
  std::filesystem::remove(file);
}

TEST_F(EveryAllocationFails, InTheConstructorOfACalibrator) {
  sweep("made", {"bad_alloc"}, [&] {
    calibrator();
    return std::string("made");
  });
}

TEST_F(EveryAllocationFails, InTheTranslationOfATarget) {
  const auto made = calibrator();
  pocketjson::Value curve;
  for (int i = 0; i < 20; ++i) curve.append(0.1 * i);
  const pocketjson::Value wanted = target();
  sweep("OM_OK", {"bad_alloc", "OM_ERR_COMMUNICATION"},
        [&] { return inWords(made->setCalibrationTarget(wanted, curve, {}, 0.1, false)); });
  EXPECT_EQ(made->getErrorMsg(), "");
}

TEST_F(EveryAllocationFails, InACalibration) {
  fakeMeter().serialNumber = kLong;
  const auto made = calibrator();
  sweep("OM_OK", {"OM_ERR_COMMUNICATION", "OM_ERR_JAVA"}, [&] { return inWords(made->execute()); });
  EXPECT_EQ(made->getErrorMsg(), "std::bad_alloc") << "of the callbacks, by way of Java";
}

TEST_F(EveryAllocationFails, InACalibrationThatJavaBreaksOff) {
  world.onCalibrate([](CalibrationRun&) {
    throw fakejvm::JavaThrow("java/io/IOException", "Error sending data" + kLong);
  });
  // A calibrator of its own for each run: one that has kept a message has room for the next.
  sweep("OM_ERR_COMMUNICATION Error sending data" + kLong, {"OM_ERR_COMMUNICATION ", "bad_alloc"},
        [&] {
          const auto made = calibrator();
          const OmError error = made->execute();
          return inWords(error) + " " + made->getErrorMsg();
        });
}

TEST_F(EveryAllocationFails, InTheResults) {
  const auto made = calibrator();
  ASSERT_EQ(made->execute(), OM_OK);
  sweep("2", {"bad_alloc"}, [&] { return std::to_string(made->getCalibrationData().size()); });
}

TEST_F(EveryAllocationFails, InCancelAndRestore) {
  const auto made = calibrator();
  sweep("OM_OK", {"OM_ERR_COMMUNICATION"}, [&] { return inWords(made->cancel()); });
  sweep("OM_OK", {"OM_ERR_COMMUNICATION"}, [&] { return inWords(made->restore()); });
}

// The fuse burns on the thread that it was made on, so this sweep is its own.
TEST_F(EveryAllocationFails, InTheFirstCallOfAThread) {
  const int attached = jvm->attachedThreads();
  bool struck = true;
  int number = 0;
  while (struck && number < 1000) {
    ++number;
    std::thread([&] {
      const auto first = [] {
        lumora::kov::java::Env();
        return std::string("ready");
      };
      const std::string outcome = failing(number, first, struck);
      EXPECT_EQ(outcome, struck ? "bad_alloc" : "ready");
      EXPECT_EQ(jvm->attachedThreads(), struck ? attached : attached + 1)
          << "no thread stays attached without bindings";
      EXPECT_EQ(first(), "ready") << "the next call tries again";
    }).join();
    EXPECT_EQ(jvm->attachedThreads(), attached);
  }
  EXPECT_GT(number, 3) << "the environment, its cell and the registry are allocations";
  std::cout << number - 1 << " allocations failed in turn\n";
}

}  // namespace
