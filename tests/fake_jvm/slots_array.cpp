// SPDX-License-Identifier: MIT
// Arrays of doubles, the only ones that libl5kov touches.
#include <algorithm>

#include "tests/fake_jvm/describe.h"
#include "tests/fake_jvm/entry.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

constexpr const char* kOutOfBounds = "java/lang/ArrayIndexOutOfBoundsException";

ObjectRef arrayOf(Entry& call, jarray reference) {
  ObjectRef array = call.object(reference);
  if (reference == nullptr) {
    call.problem("null array");
  } else if (array && array->className != "[D") {
    call.problem(displayName(array) + " is no array of doubles");
    array = nullptr;
  }
  return array;
}

jdoubleArray JNICALL newDoubleArray(JNIEnv* env, jsize length) {
  Entry call(env, "NewDoubleArray");
  call.log(std::to_string(length));
  if (call.fails("java/lang/OutOfMemoryError", "Java heap space")) return nullptr;
  if (length < 0) {
    call.raise("java/lang/NegativeArraySizeException", std::to_string(length));
    return nullptr;
  }
  const auto zeros = std::vector<double>(static_cast<std::size_t>(length));
  return static_cast<jdoubleArray>(call.local(makeDoubles(zeros)));
}

jsize JNICALL getArrayLength(JNIEnv* env, jarray reference) {
  Entry call(env, "GetArrayLength");
  const ObjectRef array = arrayOf(call, reference);
  call.log(displayName(array));
  return array ? static_cast<jsize>(array->doubles().size()) : 0;
}

bool regionFits(Entry& call, const ObjectRef& array, jsize start, jsize count) {
  const auto length = static_cast<jlong>(array->doubles().size());
  if (start >= 0 && count >= 0 && static_cast<jlong>(start) + count <= length) return true;
  call.raise(kOutOfBounds, "Array region " + std::to_string(start) + ".." +
                               std::to_string(static_cast<jlong>(start) + count) +
                               " out of bounds for length " + std::to_string(length));
  return false;
}

void JNICALL setDoubleArrayRegion(JNIEnv* env, jdoubleArray reference, jsize start, jsize count,
                                  const jdouble* values) {
  Entry call(env, "SetDoubleArrayRegion");
  const ObjectRef array = arrayOf(call, reference);
  const auto shown = static_cast<std::size_t>(std::max<jsize>(count, 0));
  call.log(std::to_string(start) + " " + std::to_string(count) + " " + numbersText(values, shown));
  if (!array || call.fails(kOutOfBounds) || !regionFits(call, array, start, count)) return;
  std::vector<double> doubles = array->doubles();
  std::copy_n(values, count, doubles.begin() + start);
  array->setDoubles(std::move(doubles));
}

void JNICALL getDoubleArrayRegion(JNIEnv* env, jdoubleArray reference, jsize start, jsize count,
                                  jdouble* values) {
  Entry call(env, "GetDoubleArrayRegion");
  const ObjectRef array = arrayOf(call, reference);
  call.log(displayName(array) + " " + std::to_string(start) + " " + std::to_string(count));
  if (!array || call.fails(kOutOfBounds) || !regionFits(call, array, start, count)) return;
  const std::vector<double> doubles = array->doubles();
  std::copy_n(doubles.begin() + start, count, values);
}

}  // namespace

void addArraySlots(JNINativeInterface_& table) {
  table.NewDoubleArray = newDoubleArray;
  table.GetArrayLength = getArrayLength;
  table.SetDoubleArrayRegion = setDoubleArrayRegion;
  table.GetDoubleArrayRegion = getDoubleArrayRegion;
}

}  // namespace fakejvm
