// SPDX-License-Identifier: MIT
// A measuring library that fails in ways that none should, loaded in place of the simulation's:
// L5KOV_FAULTY_METER is the number of the measurement that throws, or 0 for a computer that gives
// the first thread that is asked for once the instrument is open to nobody. L5KOV_FAULTY_COLOUR is
// the x that it measures in the dark, L5KOV_FAULTY_BLACK the luminance.
#include <dlfcn.h>
#include <errno.h>
#include <pthread.h>

#include <atomic>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>

namespace {

const int faultyMeasurement = std::atoi(std::getenv("L5KOV_FAULTY_METER"));
std::atomic<bool> isOpen{false};
pthread_t opener;
int measurements = 0;
double shown = 0.0;

double numberOf(const char* variable, double otherwise) {
  const char* const text = std::getenv(variable);
  return text == nullptr ? otherwise : std::atof(text);
}

}  // namespace

extern "C" {

std::uint32_t MDGetDeviceID(void*) { return 163; }
const char* MDGetSerialNumber(void*) { return "FAULTY"; }

void* MDSimOpen(std::uint32_t, const char*, const char*) {
  opener = pthread_self();
  isOpen = true;
  return &shown;
}
void MDSimClose(void*) {}

int MDSimShowPatch(void*, double, double green, double) {
  shown = green;
  return 0;
}

int MDSimMeasure(void*, double* luminance, double* x, double* y) {
  if (++measurements == faultyMeasurement) throw std::runtime_error("its driver has crashed");
  *luminance = 0.3 + 300.0 * std::pow(shown, 2.2);
  *x = 0.3127;
  *y = 0.3290;
  if (shown == 0.0) {
    *luminance = numberOf("L5KOV_FAULTY_BLACK", *luminance);
    *x = numberOf("L5KOV_FAULTY_COLOUR", *x);
  }
  return 0;
}

const char* MDSimErrorText(int) { return ""; }

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*),
                   void* argument) {
  if (faultyMeasurement == 0 && isOpen && pthread_equal(pthread_self(), opener) != 0) {
    isOpen = false;
    return EAGAIN;
  }
  using Create = decltype(&pthread_create);
  static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
  return create(thread, attributes, start, argument);
}

}  // extern "C"
