#pragma once

/// Marks what the shared library exports. Everything else is compiled with hidden visibility. Hosts
/// of the static library are compiled with FORME_STATIC, which the package tells them.
#if defined(FORME_STATIC)
#define FORME_EXPORT
#define FORME_IMPORT
#elif defined(_WIN32)
#define FORME_EXPORT __declspec(dllexport)
#define FORME_IMPORT __declspec(dllimport)
#else
#define FORME_EXPORT __attribute__((visibility("default")))
#define FORME_IMPORT __attribute__((visibility("default")))
#endif

#if defined(FORME_BUILDING)
#define FORME_API FORME_EXPORT
#else
#define FORME_API FORME_IMPORT
#endif
