// SPDX-License-Identifier: MIT
#ifndef L5KOV_EXPORT_H_
#define L5KOV_EXPORT_H_

// L5KOV_API marks what a host may link against. Everything else in the shared library is hidden.
// The build of the library itself defines L5KOV_BUILDING; a host defines nothing.
#if defined(_WIN32)
#if defined(L5KOV_BUILDING)
#define L5KOV_API __declspec(dllexport)
#else
#define L5KOV_API __declspec(dllimport)
#endif
#else
#define L5KOV_API __attribute__((visibility("default")))
#endif

#endif  // L5KOV_EXPORT_H_
