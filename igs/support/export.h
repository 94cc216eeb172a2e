#pragma once

/// Marks what a host may link against. Every other symbol of the library is hidden.
/// IGS_API_TEMPLATE is the same promise for class templates, whose type records and virtual tables must be one and the
/// same object in the library and in the host; on Windows templates are never imported.
#if defined(_WIN32)
#if defined(IGS_STATIC)
#define IGS_API
#elif defined(igs_EXPORTS)
#define IGS_API __declspec(dllexport)
#else
#define IGS_API __declspec(dllimport)
#endif
#define IGS_API_TEMPLATE
#else
#define IGS_API __attribute__((visibility("default")))
#define IGS_API_TEMPLATE __attribute__((visibility("default")))
#endif
