#pragma once

/// Marks what the shared library exports. Everything else is compiled with hidden visibility.
#if defined(_WIN32)
#if defined(FORME_BUILDING)
#define FORME_API __declspec(dllexport)
#else
#define FORME_API __declspec(dllimport)
#endif
#else
#define FORME_API __attribute__((visibility("default")))
#endif
