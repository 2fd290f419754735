#pragma once

#if defined(_WIN32)
#define VANZET_EXPORT __declspec(dllexport)
#else
#define VANZET_EXPORT __attribute__((visibility("default")))
#endif

/// The whole public surface of the module. The host calls both by name, on its user-interface thread.
extern "C" {

/// Runs the dialog "Equipment Definition" and returns when it is closed.
VANZET_EXPORT void mstart();

/// Brings the stored definition of every spindle spur up to the current version.
/// Faults are shown in message boxes; the caller gets no report.
VANZET_EXPORT void ReOrgVdm();
}
