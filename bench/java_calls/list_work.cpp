// SPDX-License-Identifier: MIT
// What grows with the installation: monitors, and look-up tables of one.
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "bench/java_calls/raw_java.h"
#include "bench/support/measured.h"
#include "bench/support/workstation.h"

namespace {

using bench::checked;
using bench::measure;
using bench::raw;

void monitors(benchmark::State& state) {
  bench::colourMonitor();
  bench::workstation().settleWithMonitors(state.range(0));
  measure(state, [] { return lumora::kov::KovMonitorManager::get().getMonitors(); });
}

// Holds what a list of handles by hand holds: one global reference a monitor.
class RawMonitors {
 public:
  RawMonitors() = default;
  RawMonitors(RawMonitors&&) = default;
  RawMonitors& operator=(RawMonitors&&) = delete;
  ~RawMonitors() {
    for (const jobject monitor : references) raw().env->DeleteGlobalRef(monitor);
  }
  std::vector<jobject> references;
};

// The ownership that a handle promises, by hand: the reference is shared, a control that is called
// through virtual functions shares it, and copies of the handle share the control. Library and list
// are held by references, too, while they are asked.
struct RawReference {
  explicit RawReference(jobject reference) : reference(reference) {}
  RawReference(const RawReference&) = delete;
  RawReference& operator=(const RawReference&) = delete;
  ~RawReference() { raw().env->DeleteGlobalRef(reference); }
  jobject reference;
};
struct RawControl {
  explicit RawControl(std::shared_ptr<RawReference> shared) : shared(std::move(shared)) {}
  virtual ~RawControl() = default;
  std::shared_ptr<RawReference> shared;
};
struct RawHandles {
  std::vector<std::shared_ptr<RawControl>> controls;
};

void makeRoom(RawMonitors& result, jint size) {
  result.references.reserve(static_cast<std::size_t>(size));
}
void makeRoom(RawHandles& result, jint size) {
  result.controls.reserve(static_cast<std::size_t>(size));
}
void hold(RawMonitors& result, jobject reference) { result.references.push_back(reference); }
void hold(RawHandles& result, jobject reference) {
  result.controls.push_back(
      std::make_shared<RawControl>(std::make_shared<RawReference>(reference)));
}

template <bool kChecked, class Result>
void monitorsByHand(benchmark::State& state) {
  const bench::RawJava& r = raw();
  bench::workstation().settleWithMonitors(state.range(0));
  const auto call = [&r](auto work) {
    if constexpr (kChecked) return checked(r.env, work);
    return work();
  };
  constexpr bool kHandles = std::is_same_v<Result, RawHandles>;
  const auto kept = [&r](jobject local) { return kHandles ? r.env->NewGlobalRef(local) : local; };
  measure(state, [&] {
    Result result;
    r.env->PushLocalFrame(1024);
    const jobject library = kept(
        call([&] { return r.env->CallStaticObjectMethod(r.monitorLibraryClass, r.getInstance); }));
    const jobject list =
        kept(call([&] { return r.env->CallObjectMethod(library, r.getMonitors); }));
    const jint size = call([&] { return r.env->CallIntMethod(list, r.listSize); });
    makeRoom(result, size);
    for (jint i = 0; i < size; ++i) {
      const jobject monitor = call([&] { return r.env->CallObjectMethod(list, r.listGet, i); });
      hold(result, r.env->NewGlobalRef(monitor));
    }
    if constexpr (kHandles) {
      r.env->DeleteGlobalRef(list);
      r.env->DeleteGlobalRef(library);
    }
    r.env->PopLocalFrame(nullptr);
    return result;
  });
}

// Fills the colour monitor's own list up, or cuts it.
void settleTables(jint count) {
  const bench::RawJava& r = raw();
  r.env->PushLocalFrame(64);
  const jclass simulated = r.env->GetObjectClass(r.monitor);
  const jobject tables = r.env->GetObjectField(
      r.monitor, r.env->GetFieldID(simulated, "lookUpTables", "Ljava/util/List;"));
  const jmethodID add = r.env->GetMethodID(r.listClass, "add", "(Ljava/lang/Object;)Z");
  const jmethodID remove = r.env->GetMethodID(r.listClass, "remove", "(I)Ljava/lang/Object;");
  const jobject first = r.env->CallObjectMethod(tables, r.listGet, 0);
  while (r.env->CallIntMethod(tables, r.listSize) < count) {
    r.env->CallBooleanMethod(tables, add, first);
  }
  for (jint size = r.env->CallIntMethod(tables, r.listSize); size > count; --size) {
    r.env->DeleteLocalRef(r.env->CallObjectMethod(tables, remove, size - 1));
  }
  r.env->PopLocalFrame(nullptr);
}

void activateLast(benchmark::State& state) {
  bench::colourMonitor();
  bench::workstation().settle("");
  settleTables(static_cast<jint>(state.range(0)));
  const auto last = static_cast<unsigned>(state.range(0) - 1);
  measure(state, [&] {
    bench::colourMonitor().setCalModeValue(last);
    return 0;
  });
  settleTables(5);
}

void activateLastByHand(benchmark::State& state) {
  const bench::RawJava& r = raw();
  bench::workstation().settle("");
  settleTables(static_cast<jint>(state.range(0)));
  const auto last = static_cast<jint>(state.range(0) - 1);
  measure(state, [&] {
    r.env->PushLocalFrame(32);
    const jobject list = r.env->NewGlobalRef(
        checked(r.env, [&] { return r.env->CallObjectMethod(r.monitor, r.getLookUpTables); }));
    const jobject table = r.env->NewGlobalRef(
        checked(r.env, [&] { return r.env->CallObjectMethod(list, r.listGet, last); }));
    checked(r.env, [&] { r.env->CallVoidMethod(table, r.activate); return 0; });
    r.env->DeleteGlobalRef(table);
    r.env->DeleteGlobalRef(list);
    r.env->PopLocalFrame(nullptr);
    return 0;
  });
  settleTables(5);
}

}  // namespace

BENCHMARK(monitors)->Name("monitors/library")->Arg(1)->Arg(10)->Arg(100)->Arg(10000);
BENCHMARK(monitorsByHand<false, RawMonitors>)
    ->Name("monitors/raw")->Arg(1)->Arg(10)->Arg(100)->Arg(10000);
BENCHMARK(monitorsByHand<true, RawMonitors>)
    ->Name("monitors/raw_checked")->Arg(1)->Arg(10)->Arg(100)->Arg(10000);
BENCHMARK(monitorsByHand<true, RawHandles>)
    ->Name("monitors/raw_handles")->Arg(1)->Arg(10)->Arg(100)->Arg(10000);
BENCHMARK(activateLast)->Name("look_up_tables/library")->Arg(5)->Arg(100)->Arg(1000)->Arg(10000);
BENCHMARK(activateLastByHand)->Name("look_up_tables/raw")->Arg(5)->Arg(100)->Arg(1000)->Arg(10000);
