#pragma once

#include <cstdint>
#include <string>

#include "host/host_function.h"

namespace vanzet::host {

/// A handle of a window; the host's own.
using Window = void*;

/// An "ok" that the host writes: 0 is failure.
using Flag = std::int32_t;

/// The bytes that a place for the text of a string variable has to have: no length is passed.
inline constexpr std::size_t kStringVariableBytes = 4096;

/// Every function that a host has to export, by name and shape, with its slot.
///
/// Text   std::string here, NUL-terminated bytes on the other side; returned text is copied at once
/// Names  a '$' of the host's name, the mark of its string forms, is written Str here
/// Story  nothing has to be set up; a function is looked up when it is first called
struct HostFunctionCache {
  template <class Signature>
  using Function = HostFunction<Signature>;
  using Text = std::string;
  using Int = std::int32_t;
  using Word = std::uint32_t;

  // The macro language and its variables. Results of a command are in variables when it returns.
  Function<void(Text line)> OrvoCommand{"OrvoCommand"};
  Function<void(Text macro, Text arguments)> OrvoMacroExec{"OrvoMacroExec"};
  Function<Int(Text name, Flag* ok)> OrvoReadGlobalI{"OrvoReadGlobalI"};
  Function<double(Text name, Flag* ok)> OrvoReadGlobalW{"OrvoReadGlobalW"};
  Function<void(Text name, char* buffer, Flag* ok)> OrvoReadGlobalStr{"OrvoReadGlobal$"};
  Function<void(Text name, Text value, Flag* ok)> OrvoWriteGlobalStr{"OrvoWriteGlobal$"};
  Function<void(Text name, Int value, Flag* ok)> OrvoWriteGlobalI{"OrvoWriteGlobalI"};

  // Settings, texts, windows.
  Function<Text(Text key)> OrvoEnvironment{"OrvoEnvironment"};
  Function<Text(Int group, Int id, Text defaultText)> OrvoStrMessage{"OrvoStrMessage"};
  Function<Window(Int selector)> OrvoGetWnd{"OrvoGetWnd"};
  Function<void*(Text name)> OrvoGetStructPtr{"OrvoGetStructPtr"};

  // Picks and bodies. Extents are six doubles, minimum X, Y, Z, maximum X, Y, Z, in metres.
  Function<void()> OrvoClearSelection{"OrvoClearSelection"};
  Function<void(Int zero, Int filterMask, Text prompt, Int* object)> OrvoSelectOneObject{
      "OrvoSelectOneObject"};
  Function<Int(Int object)> OrvoGetObjectParasolidEntityNumber{"OrvoGetObjectParasolidEntityNumber"};
  Function<Text(Int body)> OrvoPsGetBodyNameFromNumber{"OrvoPsGetBodyNameFromNumber"};
  Function<Int(Text name)> OrvoPsGetBodyNumberFromName{"OrvoPsGetBodyNumberFromName"};
  Function<Int(Int body)> OrvoIsBodyAnSTLObject{"OrvoIsBodyAnSTLObject"};
  Function<void(Int body, double* extents)> OrvoPsGetExtents{"OrvoPsGetExtents"};
  Function<void(Int body)> OrvoPsDeleteBody{"OrvoPsDeleteBody"};

  // Layers.
  Function<Int()> OrvoGetCurrentLayer{"OrvoGetCurrentLayer"};
  Function<Text(Int layer)> OrvoGetLayerName{"OrvoGetLayerName"};

  // Contours of the host ("Kurve") and raw stores. A raw handle is negative on failure and never 0; a matrix
  // is read as 16 doubles and written as 144 bytes, of which the last 16 are zero.
  Function<Int(Int kurve)> OrvoFindNoOfSpansFromKurveNo{"OrvoFindNoOfSpansFromKurveNo"};
  Function<void(double* x, double* y, double* z, double* cx, double* cy, Int* direction, Int handle)>
      OrvoGetSpn{"OrvoGetSpn"};
  Function<Int(Int number, Int one, Int thirtyThree, Int two)> OrvoVdmExist{"OrvoVdmExist"};
  Function<Int(Int number, Int two, Int zero)> OrvoVdmMake{"OrvoVdmMake"};
  Function<Int(Int number, Int mode, Int two)> OrvoVdmOpen{"OrvoVdmOpen"};
  Function<Int(Int handle)> OrvoVdmClose{"OrvoVdmClose"};
  Function<Int(Int handle)> OrvoVdmEoi{"OrvoVdmEoi"};
  Function<Int(Int handle, void* buffer, Int bytes)> OrvoVdmRead{"OrvoVdmRead"};
  Function<Int(Int handle, void* matrix)> OrvoVdmReadTmx{"OrvoVdmReadTmx"};
  Function<Int(Int handle, const void* matrix)> OrvoVdmWriteTmx{"OrvoVdmWriteTmx"};

  // The stores of text items; what each call does to the position: store/macro_vdm.h.
  Function<Int(Word vdm)> OrvoMacroVdmExists{"OrvoMacroVdmExists"};
  Function<Word(Word vdm, Int zero)> OrvoMacroVdmCreate{"OrvoMacroVdmCreate"};
  Function<Word(Word vdm, Int one)> OrvoMacroVdmOpen{"OrvoMacroVdmOpen"};
  Function<Int(Word vdm)> OrvoMacroVdmCheckOpen{"OrvoMacroVdmCheckOpen"};
  Function<void(Word handle)> OrvoMacroVdmClose{"OrvoMacroVdmClose"};
  Function<void(Word vdm)> OrvoMacroVdmDelete{"OrvoMacroVdmDelete"};
  Function<Int(Word handle)> OrvoMacroVdmSize{"OrvoMacroVdmSize"};
  Function<void(Word handle, Int record, Int origin)> OrvoMacroVdmSeek{"OrvoMacroVdmSeek"};
  Function<void(Word handle, Text text, Int count)> OrvoMacroVdmInsertStr{"OrvoMacroVdmInsert$"};
  Function<void(Word handle, Int count)> OrvoMacroVdmRemove{"OrvoMacroVdmRemove"};
  Function<void(Word handle, Int count)> OrvoMacroVdmSingleSeek{"OrvoMacroVdmSingleSeek"};
  Function<void(Word handle, char* buffer, Int count)> OrvoMacroVdmSingleGetStr{"OrvoMacroVdmSingleGet$"};
  Function<void(Word handle, Text text, Int count)> OrvoMacroVdmSingleAddStr{"OrvoMacroVdmSingleAdd$"};
  Function<void(Word handle, Text text, Int count)> OrvoMacroVdmSingleReplaceStr{
      "OrvoMacroVdmSingleReplace$"};
  Function<void(Word handle, Int count)> OrvoMacroVdmSingleDelete{"OrvoMacroVdmSingleDelete"};
};

/// All that the binding keeps for the process, with the module handle and the finder.
/// One thread uses it, the host's user-interface thread.
inline HostFunctionCache hostFunctions;

}  // namespace vanzet::host
