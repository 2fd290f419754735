#pragma once

#include <cstdint>
#include <string>

#include "base/device_vrml.h"
#include "platform/line_reader.h"
#include "store/billet_vdm.h"

/// The VRML text of a device for the machine simulation: docs/formats/device-vrml.md.
///
/// Shape    a head, the point and index lists of the device's facets as the host exported them, a tail with
///          the marker bodies PLG_0 and SCK_0, by which the simulation places the device
/// Items    one line each, its line end included
namespace vanzet {

/// Stores the solid of a device, which the host has exported to the file `path`, in an open definition: its
/// VRML text and its placement. Where the file does not exist, the text is empty and the placement is
/// written.
///
///   offset   how far behind its working face the device is clamped; 0 for a jaw
///
/// False when the type has no operation or the operation cannot be used; then nothing changes.
bool StoreDeviceVrml(BilletVdm& definition, bool isSub, bool subSpindleAvailable, std::int32_t type,
                     const std::string& path, double offset);

namespace simulation {

void GiveVrmlHead(const LineSink& sink);

/// Copies the point list and the index list of the first face set in `file`: the line with "coord
/// Coordinate" and what follows up to "coordIndex", then up to "]" on a later line. A file that ends early
/// ends the lists. The white space at the start of a line becomes twelve blanks.
void GiveFacets(platform::LineReader& file, const LineSink& sink);

/// `offset` is how far behind the origin the marker PLG_0 begins.
void GiveVrmlTail(double offset, const LineSink& sink);

}  // namespace simulation
}  // namespace vanzet
