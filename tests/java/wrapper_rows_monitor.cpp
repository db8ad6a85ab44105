// SPDX-License-Identifier: MIT
#include "tests/java/wrapper_rows.h"

namespace kovtest {
namespace {

using kov::JApiEdidInformation;
using kov::JApiLookUpTable;
using kov::JApiMonitor;
using kov::JApiMonitorLibrary;
using kov::JApiOsd;

constexpr const char* kList = "java/util/List";
constexpr const char* kLibrary = "com/orva/kov/library/impl/KovMonitorLibrary";
const std::string kApi = "com/orva/kov/library/api/";

// The one static member that a wrapper calls.
WrapperRow getInstanceRow() {
  const std::string member = "getInstance()Lcom/orva/kov/library/api/MonitorLibrary;";
  const auto run = [member](FakeJvm& jvm) {
    jvm->script(kLibrary, member,
                fakejvm::returns(std::make_shared<fakejvm::Object>(kLibrary, "answer")));
    kov::JavaEnv* const env = kov::Env();
    jvm.log.clear();
    Outcome outcome;
    outcome.result = shown(JApiMonitorLibrary::getInstance(env));
    outcome.lines = jvm.log.lines();
    return outcome;
  };
  return {std::string(kLibrary) + "." + member, run,
          guarded(std::string("CallStaticObjectMethodV ") + kLibrary + ".getInstance()") +
              Lines{"NewGlobalRef answer", "DeleteGlobalRef answer"},
          "answer"};
}

WrapperRow getMonitorRow() {
  const auto answer = std::make_shared<fakejvm::Object>(kApi + "Monitor", "answer");
  return row<JApiMonitorLibrary>(
      "getMonitor(Ljava/lang/String;Ljava/lang/String;)Lcom/orva/kov/library/api/Monitor;", answer,
      [](auto& w, auto&) { return shown(w.getMonitor("model", "serial")); },
      Lines{"NewStringUTF \"model\"", "NewStringUTF \"serial\""} +
          guarded("CallObjectMethodV KovMonitorLibrary.getMonitor(\"model\",\"serial\")") +
          Lines{"NewGlobalRef answer", "DeleteGlobalRef answer"},
      "answer");
}

WrapperRow getSearchStatusRow() {
  const auto answer =
      std::make_shared<fakejvm::Object>(kApi + "MonitorLibrary$SearchStatus", "answer");
  return row<JApiMonitorLibrary>(
      "getSearchStatus()Lcom/orva/kov/library/api/MonitorLibrary$SearchStatus;", answer,
      [](auto& w, auto&) { return shown(w.getSearchStatus()); },
      guarded("CallObjectMethodV KovMonitorLibrary.getSearchStatus()"), "answer");
}

WrapperRow performCalibrationRow() {
  return row<JApiMonitor>(
      "performCalibration(Ljava/util/List;ZIZLjava/lang/String;J)V", {},
      [](auto& w, const Arguments& a) {
        w.performCalibration(a.element, true, 52, false, "host", 0x123456789ABCDEF0);
        return "";
      },
      Lines{"NewStringUTF \"host\""} +
          guarded("CallVoidMethodV Monitor.performCalibration(element,1,52,0,\"host\","
                  "1311768467463790320)"),
      "");
}

std::vector<WrapperRow> smallRows() {
  return {
      textGetter<JApiEdidInformation>("getModelName",
                                      [](auto& w, auto&) { return w.getModelName(); }),
      textGetter<JApiEdidInformation>("getSerialNumber",
                                      [](auto& w, auto&) { return w.getSerialNumber(); }),
      intGetter<JApiEdidInformation>(
          "getYearOfManufacture", [](auto& w, auto&) { return shown(w.getYearOfManufacture()); }),

      action<JApiLookUpTable>("activate",
                              [](auto& w, auto&) {
                                w.activate();
                                return "";
                              }),
      intGetter<JApiLookUpTable>("getIndex", [](auto& w, auto&) { return shown(w.getIndex()); }),
      textGetter<JApiLookUpTable>("getName", [](auto& w, auto&) { return w.getName(); }),
      boolGetter<JApiLookUpTable>("isActive", [](auto& w, auto&) { return shown(w.isActive()); }),

      boolGetter<JApiOsd>("isLockSupported",
                          [](auto& w, auto&) { return shown(w.isLockSupported()); }),
      boolGetter<JApiOsd>("isLocked", [](auto& w, auto&) { return shown(w.isLocked()); }),
      setter<JApiOsd>("setLocked", "(Z)V", "1",
                      [](auto& w, auto&) {
                        w.setLocked(true);
                        return "";
                      }),

      getInstanceRow(),
      getMonitorRow(),
      wrapperGetter<JApiMonitorLibrary>("getMonitors", kList,
                                        [](auto& w, auto&) { return shown(w.getMonitors()); }),
      getSearchStatusRow(),
      action<JApiMonitorLibrary>("startMonitorSearch",
                                 [](auto& w, auto&) {
                                   w.startMonitorSearch();
                                   return "";
                                 }),
  };
}

std::vector<WrapperRow> rowsOfMonitor() {
  using W = JApiMonitor;
  return {
      action<W>("abortCalibration",
                [](auto& w, auto&) {
                  w.abortCalibration();
                  return "";
                }),
      wrapperGetter<W>("extractCalibrationData", kList,
                       [](auto& w, auto&) { return shown(w.extractCalibrationData()); }),
      wrapperGetter<W>("getActiveLut", kApi + "LookUpTable",
                       [](auto& w, auto&) { return shown(w.getActiveLut()); }),
      textGetter<W>("getColorType", [](auto& w, auto&) { return w.getColorType(); }),
      textGetter<W>("getConnectionType", [](auto& w, auto&) { return w.getConnectionType(); }),
      wrapperGetter<W>("getEdidInformation", kApi + "EdidInformation",
                       [](auto& w, auto&) { return shown(w.getEdidInformation()); }),
      wrapperGetter<W>("getLookUpTables", kList,
                       [](auto& w, auto&) { return shown(w.getLookUpTables()); }),
      textGetter<W>("getModel", [](auto& w, auto&) { return w.getModel(); }),
      wrapperGetter<W>("getOsd", kApi + "Osd", [](auto& w, auto&) { return shown(w.getOsd()); }),
      textGetter<W>("getSerialNumber", [](auto& w, auto&) { return w.getSerialNumber(); }),
      intGetter<W>("getWorkingHours", [](auto& w, auto&) { return shown(w.getWorkingHours()); }),
      performCalibrationRow(),
  };
}

}  // namespace

std::vector<WrapperRow> monitorRows() {
  std::vector<WrapperRow> rows = smallRows();
  const std::vector<WrapperRow> more = rowsOfMonitor();
  rows.insert(rows.end(), more.begin(), more.end());
  return rows;
}

}  // namespace kovtest
