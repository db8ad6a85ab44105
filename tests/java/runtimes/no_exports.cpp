// SPDX-License-Identifier: MIT
// A library that can be loaded and is no Java runtime.

extern "C" int not_a_java_runtime() { return 0; }
