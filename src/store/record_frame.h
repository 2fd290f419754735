#pragma once

#include <cstdint>
#include <string>

#include "host/host_functions.h"
#include "store/billet_vdm.h"

/// The frame of all operations on records.
///
/// Story    the definition of the spur is opened, the work is done on it, and it is closed; nothing outlives
///          the call. The outcome of the work is not part of the result unless a function says so
/// Errors   kRecordFailed. A writer shows the box of Open for a missing definition, a reader does not
namespace vanzet {

inline constexpr std::int32_t kRecordDone = 0;
inline constexpr std::int32_t kRecordFailed = -1;

/// Runs `work(definition)` on the open definition of that VDM; false from it is failure.
template <class Work>
std::int32_t InsideDefinition(std::uint32_t vdm, const Work& work) {
  BilletVdm definition(vdm);
  if (!definition.Open()) return kRecordFailed;
  const bool isDone = work(definition);
  definition.Close();
  return isDone ? kRecordDone : kRecordFailed;
}

/// The frame of a writer, whose work gives no result.
template <class Work>
std::int32_t WriteRecord(std::int32_t spur, const Work& work) {
  return InsideDefinition(BilletVdm::VdmNumber(spur), [&](BilletVdm& definition) {
    work(definition);
    return true;
  });
}

/// The frame of a reader, whose work returns whether it had something to read.
template <class Work>
std::int32_t ReadRecord(std::int32_t spur, const Work& work) {
  const std::uint32_t vdm = BilletVdm::VdmNumber(spur);
  if (host::hostFunctions.OrvoMacroVdmExists(vdm) == 0) return kRecordFailed;
  return InsideDefinition(vdm, work);
}

/// Reads the names of two figures from the position of an open VDM on. The item "0", as a definition has it
/// where no figure is given, reads as the empty name.
inline void ReadFigures(OrvoApi::MillTurnVdm& vdm, std::string& outside, std::string& inside) {
  for (std::string* const figure : {&outside, &inside}) {
    vdm.SingleGet(*figure);
    if (*figure == "0") figure->clear();
  }
}

}  // namespace vanzet
