#pragma once

/// The whole public surface of the module: exports.map and exports.def name it for the linker. The host calls
/// both by name, on its user-interface thread.
extern "C" {

/// Runs the dialog "Equipment Definition" and returns when it is closed.
void mstart();

/// Brings the stored definition of every spindle spur up to the current version.
/// Faults are shown in message boxes; the caller gets no report.
void ReOrgVdm();
}
