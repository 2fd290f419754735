#pragma once

#include "base/result.h"

/// Functions of the host that are not part of its contract with modules. The workbench has them; a host that
/// lacks one hears nothing, and the module works as the contract says.
namespace vanzet::platform {

/// How the functions are looked up: a null module is the running program. Tests put their own here.
using ExtensionFinder = void* (*)(void* module, const char* name);
extern ExtensionFinder extensionFinder;

/// Reports a failure that the dialog does not show, or shows without its reason: the host lists it, and what
/// the host was doing has failed. Function: `VanzetReportFault`.
void ReportFault(const Fault& fault);

/// Reports that an event of the dialog was handled, with all that it posted, and has the host keep what it
/// changed. False when the host could not: it has shown why, and the dialog must stay open, since its user
/// still has the work that is not kept. Function: `VanzetEventHandled`.
bool KeepWorkOfEvent();

/// True when the host has reported a failure that every later call meets, too, such as a full disk. A
/// box about what the module then finds missing would say it twice. Function: `VanzetHasFailed`.
bool HasHostFailed();

}  // namespace vanzet::platform
