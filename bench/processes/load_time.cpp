// SPDX-License-Identifier: MIT
// load_time LIBRARY...: loads them in turn and prints the nanoseconds that the last one took. With
// what it depends on named before it, that is the library's own time.
#include <dlfcn.h>

#include <chrono>
#include <cstdio>

int main(int argc, char** argv) {
  long long nanoseconds = 0;
  for (int i = 1; i < argc; ++i) {
    const auto start = std::chrono::steady_clock::now();
    if (::dlopen(argv[i], RTLD_NOW | RTLD_GLOBAL) == nullptr) {
      std::fprintf(stderr, "%s\n", ::dlerror());
      return 1;
    }
    nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(
                      std::chrono::steady_clock::now() - start).count();
  }
  std::printf("%lld\n", nanoseconds);
}
