#pragma once

#include <cstdint>

/// The host functions that a module looks up by name in the running program. Their contract:
///
/// Text     NUL-terminated bytes; null is the empty text. A returned text belongs to the host and is valid
///          until the next call
/// Handles  any value: a handle that is not open is ignored
/// Numbers  any value: positions past the end, negative counts and numbers without a VDM do nothing or read
///          as nothing
/// Errors   reported on the message panel; nothing is thrown
///
/// Names with a '$', which an identifier cannot have, are given to the assembler.
extern "C" {

/// The result of a function that does not exist: zero, whether an integer, an address or a real is expected.
/// On x86-64 the two members are returned in the two registers that such a result uses; a port to another
/// machine must check this.
struct OrvoNothing {
  std::int64_t integer;
  double real;
};

/// Replaces every function that this host does not have, whatever its arguments; reports each call.
OrvoNothing OrvoMissingAPI();

// Settings, texts, windows.
const char* OrvoEnvironment(const char* key);
const char* OrvoStrMessage(std::int32_t group, std::int32_t id, const char* defaultText);
void* OrvoGetWnd(std::int32_t selector);
void* OrvoGetStructPtr(const char* name);

// The macro language and its variables. A text is given at most 4095 bytes; longer texts are cut.
void OrvoCommand(const char* line);
void OrvoMacroExec(const char* name, const char* arguments);
std::int32_t OrvoReadGlobalI(const char* name, std::int32_t* ok);
double OrvoReadGlobalW(const char* name, std::int32_t* ok);
void OrvoReadGlobalText(const char* name, char* buffer, std::int32_t* ok) __asm__("OrvoReadGlobal$");
void OrvoWriteGlobalI(const char* name, std::int32_t value, std::int32_t* ok);
void OrvoWriteGlobalText(const char* name, const char* value, std::int32_t* ok) __asm__("OrvoWriteGlobal$");

// The layers of the drawing, by numbers that are valid for the run. A number without a layer has the empty
// name.
std::int32_t OrvoGetCurrentLayer();
const char* OrvoGetLayerName(std::int32_t number);

// Contours of the drawing, and stores of bytes: a contour's matrix and vertices, 40 bytes each, and matrices.
// A handle is -1 on failure and never 0. Of a matrix 128 bytes are read and written.
std::int32_t OrvoFindNoOfSpansFromKurveNo(std::int32_t kurve);
void OrvoGetSpn(double* x, double* y, double* z, double* cx, double* cy, std::int32_t* direction,
                std::int32_t handle);
std::int32_t OrvoVdmExist(std::int32_t kurve, std::int32_t one, std::int32_t thirtyThree, std::int32_t two);
std::int32_t OrvoVdmMake(std::int32_t number, std::int32_t two, std::int32_t zero);
std::int32_t OrvoVdmOpen(std::int32_t number, std::int32_t mode, std::int32_t two);
std::int32_t OrvoVdmClose(std::int32_t handle);
std::int32_t OrvoVdmEoi(std::int32_t handle);
std::int32_t OrvoVdmRead(std::int32_t handle, void* buffer, std::int32_t bytes);
std::int32_t OrvoVdmReadTmx(std::int32_t handle, void* matrix);
std::int32_t OrvoVdmWriteTmx(std::int32_t handle, const void* matrix);

// Bodies, by number from 1; 0 stands for no body. The bodies of the project's folder are picked and found by
// name, and read at their first use. Extents are minimum X, Y, Z, maximum X, Y, Z, in metres.
void OrvoClearSelection();
void OrvoSelectOneObject(std::int32_t zero, std::int32_t filterMask, const char* prompt,
                         std::int32_t* object);
std::int32_t OrvoGetObjectParasolidEntityNumber(std::int32_t object);
const char* OrvoPsGetBodyNameFromNumber(std::int32_t body);
std::int32_t OrvoPsGetBodyNumberFromName(const char* name);
std::int32_t OrvoIsBodyAnSTLObject(std::int32_t body);
void OrvoPsGetExtents(std::int32_t body, double* extents);
void OrvoPsDeleteBody(std::int32_t body);

// The stores of text items; vdm/open_vdm.h describes the position and how calls move it.
std::int32_t OrvoMacroVdmExists(std::uint32_t vdm);
std::uint32_t OrvoMacroVdmCreate(std::uint32_t vdm, std::int32_t zero);
std::uint32_t OrvoMacroVdmOpen(std::uint32_t vdm, std::int32_t one);
std::int32_t OrvoMacroVdmCheckOpen(std::uint32_t vdm);
void OrvoMacroVdmClose(std::uint32_t handle);
void OrvoMacroVdmDelete(std::uint32_t vdm);
std::int32_t OrvoMacroVdmSize(std::uint32_t handle);
void OrvoMacroVdmSeek(std::uint32_t handle, std::int32_t record, std::int32_t origin);
void OrvoMacroVdmInsertText(std::uint32_t handle, const char* text,
                            std::int32_t count) __asm__("OrvoMacroVdmInsert$");
void OrvoMacroVdmRemove(std::uint32_t handle, std::int32_t count);
void OrvoMacroVdmSingleSeek(std::uint32_t handle, std::int32_t count);
void OrvoMacroVdmSingleGetText(std::uint32_t handle, char* buffer,
                               std::int32_t count) __asm__("OrvoMacroVdmSingleGet$");
void OrvoMacroVdmSingleAddText(std::uint32_t handle, const char* text,
                               std::int32_t count) __asm__("OrvoMacroVdmSingleAdd$");
void OrvoMacroVdmSingleReplaceText(std::uint32_t handle, const char* text,
                                   std::int32_t count) __asm__("OrvoMacroVdmSingleReplace$");
void OrvoMacroVdmSingleDelete(std::uint32_t handle, std::int32_t count);

// Extensions of this host, which are not part of the contract: our own module uses them where they exist.
// They are not in the trace.

/// Shows a failure of the module on the message panel. Numbers that are not known are 0; `kind` is a
/// `FaultKind`.
void VanzetReportFault(const char* text, const char* file, std::int32_t line, std::int32_t column,
                       const char* source, std::int32_t kind);

/// The module has handled an event of its dialog, with all that it posted. Returns 0 when the host cannot
/// keep what was changed, which it has shown; the dialog then stays open.
std::int32_t VanzetEventHandled();

/// Returns 1 when the message panel has shown a cause that every later call meets, too, in this run.
std::int32_t VanzetHasFailed();
}
