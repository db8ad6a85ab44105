// SPDX-License-Identifier: MIT
#include "tests/fake_jvm/references.h"

#include "tests/fake_jvm/describe.h"

namespace fakejvm {
namespace {

// So many dead references are remembered by name; older ones become "unknown" in messages.
constexpr std::size_t kMaxGraves = 200'000;

}  // namespace

jobject References::add(Entry entry) {
  // Looks like an aligned address far from null, and never repeats.
  const auto reference = reinterpret_cast<jobject>(0x10000 + 16 * ++serial);
  live.emplace(reference, std::move(entry));
  return reference;
}

jobject References::addLocal(const ObjectRef& object, int thread, Frame& frame) {
  if (!object) return nullptr;
  const jobject reference = add({object, thread});
  frame.locals.push_back(reference);
  return reference;
}

jobject References::addGlobal(const ObjectRef& object) {
  return object ? add({object, 0}) : nullptr;
}

const References::Entry* References::find(jobject reference) const {
  const auto found = live.find(reference);
  return found == live.end() ? nullptr : &found->second;
}

void References::remove(jobject reference, const std::string& why) {
  const auto found = live.find(reference);
  if (found == live.end()) return;
  if (dead.size() >= kMaxGraves) dead.clear();
  dead[reference] = {displayName(found->second.object), why};
  live.erase(found);
}

void References::removeAll(Frame& frame, const std::string& why) {
  for (const jobject reference : frame.locals) remove(reference, why);
  frame.locals.clear();
}

void References::removeGlobals() {
  std::vector<jobject> globals;
  for (const auto& [reference, entry] : live) {
    if (entry.thread == 0) globals.push_back(reference);
  }
  for (const jobject reference : globals) remove(reference, "its virtual machine is gone");
}

std::string References::deadName(jobject reference) const {
  const auto found = dead.find(reference);
  return found == dead.end() ? "unknown reference" : found->second.name;
}

std::string References::epitaph(jobject reference) const {
  const auto found = dead.find(reference);
  if (found == dead.end()) return "unknown reference";
  return found->second.name + " (" + found->second.why + ")";
}

std::vector<std::string> References::globalNames() const {
  std::vector<std::string> names;
  for (const auto& [reference, entry] : live) {
    if (entry.thread == 0) names.push_back(displayName(entry.object));
  }
  return names;
}

int References::localsOf(int thread) const {
  int count = 0;
  for (const auto& [reference, entry] : live) count += entry.thread == thread ? 1 : 0;
  return count;
}

}  // namespace fakejvm
