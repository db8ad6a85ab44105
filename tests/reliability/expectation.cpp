// SPDX-License-Identifier: MIT
#include "tests/reliability/expectation.h"

#include <algorithm>
#include <set>

namespace reliability {

using fakejvm::Fault;

namespace {

const std::set<std::string> kCoded{"registerCallback", "setCalibrationTarget", "cancel", "execute",
                                   "restore"};

constexpr const char* kUnexpectedStatus = "logic_error: Monitor search error: Unexpected status.";
constexpr const char* kNoMonitor = "logic_error: Can not find monitor";
constexpr const char* kPhrase = "Error sending data";

bool startsWith(const std::string& text, const std::string& prefix) {
  return text.rfind(prefix, 0) == 0;
}

std::string dotted(std::string className) {
  std::replace(className.begin(), className.end(), '/', '.');
  return className;
}

// The step ends with this Java exception: thrown, or as a code and its message.
Expectation javaException(const CallSite& site, const std::string& className,
                          const std::string& message) {
  const std::string name = dotted(className);
  if (site.step == "getCalibrationData") return Expectation::containing("[" + message + "]");
  if (!kCoded.count(site.step)) return Expectation::exactly(name + ": " + message);
  const bool known =
      name == "java.io.IOException" || name == "com.orva.dt.commons.resourceman.ResourceException";
  const bool communication = known && message.find(kPhrase) != std::string::npos;
  return Expectation::exactly((communication ? "OM_ERR_COMMUNICATION " : "OM_ERR_JAVA ") + message);
}

// The error that goes with the fault: its own, or the one that Java leaves beside a null result.
Expectation theFault(const CallSite& site, const Fault& fault, const char* beside,
                     const char* besideMessage) {
  return fault.kind == Fault::Kind::kException
             ? javaException(site, fault.className, fault.message.value_or(""))
             : javaException(site, beside, besideMessage);
}

Expectation nullPointer(const CallSite& site) {
  if (site.step == "getCalibrationData" || kCoded.count(site.step)) {
    return Expectation::containing(" called on null");
  }
  return Expectation::containing("java.lang.NullPointerException: ");
}

Expectation clean(const CallSite& site) { return Expectation::exactly(site.cleanOutcome); }

Expectation noMonitor(const CallSite& site) {
  return kCoded.count(site.step) ? Expectation::exactly("OM_ERR_COMMUNICATION ")
                                 : Expectation::exactly(kNoMonitor);
}

// Memory of the Java runtime that ran out without a Java exception.
Expectation badAlloc(const CallSite& site) {
  if (site.inNative) return Expectation::exactly("OM_ERR_JAVA std::bad_alloc");
  return Expectation::exactly(kCoded.count(site.step) ? "OM_ERR_COMMUNICATION " : "bad_alloc");
}

// A call into Java that answers null or 0 although Java promised more.
Expectation nullAnswer(const CallSite& site) {
  static const std::set<std::string> kNeeded{
      "getInstance",     "getMonitors", "getEdidInformation",         "getActiveLut",
      "getLookUpTables", "getOsd",      "getCalibrationTargetValues", "getMeasurementDeviceType"};
  const std::string member = site.member();
  if (member == "getMonitor") return noMonitor(site);
  if (member == "getSearchStatus") return Expectation::exactly(kUnexpectedStatus);
  if (kNeeded.count(member)) return nullPointer(site);
  if (member == "extractCalibrationData") {
    const bool walks = site.step == "getGammaModelTag" || site.step == "setCalibrationTarget";
    return walks ? nullPointer(site) : Expectation::noFailure();
  }
  // An element is asked at once, but for handles and for results, which are only collected.
  const bool collected = site.step == "getMonitors" || site.inNative;
  if (member == "get" && !collected) return nullPointer(site);
  return Expectation::noFailure();
}

Expectation ofLookUp(const CallSite& site) {
  if (site.step == "registerCallback") return Expectation::exactly("OM_ERR_JAVA ");
  // The search's three states; it needs the one that Java answers with.
  const bool needed = site.slot() == "FindClass" || site.line.find("FINISHED") != std::string::npos;
  return needed ? Expectation::exactly(kUnexpectedStatus) : clean(site);
}

}  // namespace

std::string CallSite::member() const {
  const std::size_t end = line.find('(');
  if (!callsJava() || end == std::string::npos) return {};
  const std::size_t begin = line.rfind('.', end) + 1;
  return line.substr(begin, end - begin);
}

std::vector<CallSite> sitesOf(const std::vector<Step>& steps) {
  std::vector<CallSite> sites;
  const std::vector<std::string>& start = steps.front().calls;
  const bool joins = std::find(start.begin(), start.end(), "AttachCurrentThread") != start.end();
  for (const Step& step : steps) {
    int number = step.firstCall;
    int natives = 0;
    bool thrown = false;
    for (const std::string& line : step.calls) {
      if (startsWith(line, "enter ")) ++natives;
      if (startsWith(line, "leave ")) --natives;
      if (startsWith(line, "enter ") || startsWith(line, "leave ")) continue;
      const bool translates = thrown && step.name == "brokenQuery";
      sites.push_back({++number, line, step.name, step.outcome, natives > 0, translates, joins});
      if (startsWith(line, "Call")) thrown = true;
    }
  }
  return sites;
}

bool canFail(const CallSite& site, bool quietly) {
  static const std::set<std::string> kNever{
      "ExceptionClear", "ExceptionOccurred",     "ExceptionCheck", "DeleteGlobalRef",
      "PopLocalFrame",  "ReleaseStringUTFChars", "IsSameObject",   "Throw"};
  static const std::set<std::string> kWithoutResult{"CallVoidMethodV", "CallStaticVoidMethodV"};
  static const std::set<std::string> kWithoutException{
      "NewGlobalRef",        "JNI_GetCreatedJavaVMs", "JNI_CreateJavaVM",
      "AttachCurrentThread", "DetachCurrentThread",   "GetEnv",
      "GetStaticObjectField"};
  return !kNever.count(site.slot()) &&
         !(quietly ? kWithoutResult : kWithoutException).count(site.slot());
}

bool Expectation::holdsFor(const std::string& outcome) const {
  switch (kind) {
    case Kind::kExactly:
      return std::find(texts.begin(), texts.end(), outcome) != texts.end();
    case Kind::kContaining:
      return outcome.find(texts.front()) != std::string::npos;
    case Kind::kNoFailure:
      break;
  }
  for (const char* failure :
       {"java.", "com.", "bad_alloc", "logic_error", "runtime_error", "OM_ERR", ": ", "not run"}) {
    if (startsWith(outcome, failure)) return false;
  }
  return true;
}

std::string Expectation::inWords() const {
  if (kind == Kind::kNoFailure) return "no failure";
  std::string text = kind == Kind::kContaining ? "something containing" : "exactly";
  for (const std::string& one : texts) text += " \"" + one.substr(0, 200) + "\"";
  return text;
}

Expectation expected(const CallSite& site, const Fault& fault) {
  constexpr const char* kNoMemory = "java.lang.OutOfMemoryError";
  constexpr const char* kHeapSpace = "Java heap space";
  const bool exception = fault.kind == Fault::Kind::kException;
  const std::string slot = site.slot();

  if (site.inTranslation) {
    // What could not be had of the exception is empty; that there is one is never lost.
    return Expectation::oneOf({kBrokenOutcome, "java.io.IOException: ", ": torn cable", ": "});
  }
  // A virtual machine that is there and not seen is an obstacle to creating one.
  const bool unseen = slot == "JNI_GetCreatedJavaVMs" && site.joins && site.step == "start";
  if (slot == "JNI_CreateJavaVM" || slot == "AttachCurrentThread" || unseen) {
    return Expectation::exactly("runtime_error: Failed to create Java VM");
  }
  if (site.step == "start" || slot == "JNI_GetCreatedJavaVMs" || slot == "DetachCurrentThread") {
    return clean(site);
  }
  if (slot == "PushLocalFrame") return theFault(site, fault, kNoMemory, "");
  if (slot == "NewGlobalRef") return badAlloc(site);
  if (slot == "GetStringUTFChars" || slot == "NewDoubleArray" || slot == "NewObjectV") {
    return theFault(site, fault, kNoMemory, kHeapSpace);
  }
  if (slot == "NewStringUTF") {
    if (site.inNative) return theFault(site, fault, kNoMemory, kHeapSpace);
    // The call is made with null. The two texts that name a monitor then find none.
    const bool names =
        site.line == "NewStringUTF \"L5-X240\"" || startsWith(site.line, "NewStringUTF \"SN000");
    return names ? noMonitor(site) : clean(site);
  }
  if (slot == "SetDoubleArrayRegion") {
    // Outside a native method a plain call's exception is discarded by the next guarded one.
    return site.inNative ? theFault(site, fault, "java.lang.ArrayIndexOutOfBoundsException", "")
                         : clean(site);
  }
  if (site.callsJava()) {
    return exception ? javaException(site, fault.className, fault.message.value_or(""))
                     : nullAnswer(site);
  }
  return ofLookUp(site);
}

}  // namespace reliability
