// SPDX-License-Identifier: MIT
#include <fmt/format.h>
#include <jni.h>

#include <algorithm>

#include "doctor/catalogue.h"
#include "doctor/probe.h"
#include "doctor/probe_lines.h"
#include "monitors/found_monitors.h"
#include "monitors/java_start.h"

namespace kovctl {
namespace {

constexpr const char* kReinstall = "install plug-ins and library that belong together";

class IdleDelegate : public lumora::kov::KovCalibratorDelegate {
 public:
  void showColorPatch(lumora::kov::PatchRecord&) override {}
  void measure(void*, lumora::kov::PatchRecord*, lumora::kov::PatchRecord*) override {}
  void progress(double) override {}
  void notifyEvent(std::string) override {}
};

bool cleared(JNIEnv* env) {
  if (env->ExceptionCheck() == JNI_FALSE) return true;
  env->ExceptionClear();
  return false;
}

jclass findClass(JNIEnv* env, const char* name) {
  const jclass found = env->FindClass(name);
  return cleared(env) ? found : nullptr;
}

bool hasMember(JNIEnv* env, jclass owner, const CatalogueRow& row) {
  const jmethodID id = row.isStatic ? env->GetStaticMethodID(owner, row.name, row.signature)
                                    : env->GetMethodID(owner, row.name, row.signature);
  return cleared(env) && id != nullptr;
}

std::vector<std::string> missingMembers(JNIEnv* env) {
  // What the library did not find when it started has left an exception behind.
  env->ExceptionClear();
  std::vector<std::string> missing;
  std::string lastClass;
  jclass owner = nullptr;
  for (const CatalogueRow& row : catalogue()) {
    if (lastClass != row.className) {
      owner = findClass(env, row.className);
      lastClass = row.className;
      if (owner == nullptr) missing.push_back(std::string("class ") + row.className);
    }
    if (owner == nullptr || !hasMember(env, owner, row)) {
      missing.push_back(fmt::format("{}.{}{}", row.className, row.name, row.signature));
    }
  }
  return missing;
}

Check startCheck() {
  Check check{"java-start", "Java start", CheckState::kOk, "", ""};
  try {
    startJava();
    const jint version = lumora::kov::java::Env()->env()->GetVersion();
    check.found = fmt::format("JNI {}.{}", version >> 16, version & 0xffff);
  } catch (const std::exception& reason) {
    check.state = CheckState::kFail;
    check.found = reason.what();
    check.remedy = "see the checks of the runtime above";
  }
  return check;
}

Check catalogueCheck() {
  const std::vector<std::string> missing = missingMembers(lumora::kov::java::Env()->env());
  const auto all = catalogue().size();
  Check check{"catalogue", "Members of the plug-ins", CheckState::kOk,
              fmt::format("all {} are there", all), ""};
  if (missing.empty()) return check;
  check.state = CheckState::kFail;
  check.found = fmt::format("missing: {}", missing.front());
  for (std::size_t i = 1; i < missing.size(); ++i) check.found += ", " + missing[i];
  check.remedy = kReinstall;
  return check;
}

Check callbackCheck() {
  IdleDelegate delegate;
  lumora::kov::KovCalibrator calibrator("", "", 0, nullptr, "", "", &delegate);
  if (calibrator.registerCallback() == OM_OK) {
    return {"callbacks", "Native callbacks", CheckState::kOk, "registered", ""};
  }
  return {"callbacks", "Native callbacks", CheckState::kFail,
          "refused: " + calibrator.getErrorMsg(), kReinstall};
}

Check monitorCheck(Context& context) {
  const FoundMonitors found = findMonitors(context);
  Check check{"monitors", "Monitors", CheckState::kOk, fmt::format("{} found", found.names.size()),
              ""};
  const auto silent = std::count_if(found.names.begin(), found.names.end(),
                                    [](const Candidate& one) { return one.silence.has_value(); });
  if (silent > 0) check.found += fmt::format(", {} of them silent", silent);
  if (found.names.empty() || silent > 0) {
    check.state = CheckState::kWarn;
    check.remedy = "look at cables, power and the USB connection";
  }
  return check;
}

Check packageCheck() {
  std::string without;
  for (const auto& monitor : lumora::kov::KovMonitorManager::get().getMonitors()) {
    if (monitor.getPackageName() != "noPackage") continue;
    const std::string model = monitor.getModelName();
    if (without.find(model) == std::string::npos) without += (without.empty() ? "" : ", ") + model;
  }
  if (without.empty()) {
    return {"packages", "Models in the name table", CheckState::kOk, "all attached", ""};
  }
  return {"packages", "Models in the name table", CheckState::kWarn, "not there: " + without,
          "enter them into KovMonitorName.xml"};
}

template <typename Function>
bool probe(const std::string& id, const std::string& title, Function function) {
  printProbeBegin(id, title);
  Check check;
  try {
    check = function();
  } catch (const lumora::kov::java::JavaException& exception) {
    check = {id, title, CheckState::kFail, textOf(exception), kReinstall};
  } catch (const std::exception& reason) {
    check = {id, title, CheckState::kFail, reason.what(), kReinstall};
  }
  printProbeResult(check);
  return check.state != CheckState::kFail;
}

ExitCode roundTrip(Context& context) {
  const FoundMonitors found = findMonitors(context);
  for (std::size_t i = 0; i < found.monitors.size(); ++i) {
    if (found.names[i].silence) continue;
    monitorInfo(found.monitors[i], found.names[i].name, 0);
    found.monitors[i].getExtractCalibrationData();
    found.monitors[i].getCalModeValue();
  }
  IdleDelegate delegate;
  lumora::kov::KovCalibrator("", "", 0, nullptr, "", "", &delegate).registerCallback();
  return ExitCode::kOk;
}

}  // namespace

ExitCode runProbe(Context& context, const std::string& what) {
  if (what == "round-trip") return roundTrip(context);
  if (!probe("java-start", "Java start", startCheck)) return ExitCode::kRuntime;
  probe("catalogue", "Members of the plug-ins", catalogueCheck);
  probe("callbacks", "Native callbacks", callbackCheck);
  if (probe("monitors", "Monitors", [&] { return monitorCheck(context); })) {
    probe("packages", "Models in the name table", packageCheck);
  }
  return ExitCode::kOk;
}

}  // namespace kovctl
