#pragma once

#include "base/device_vrml.h"
#include "platform/line_reader.h"

/// The VRML text of a device for the machine simulation: docs/formats/device-vrml.md.
///
/// Shape    a head, the point and index lists of the device's facets as the host exported them, a tail with
/// the
///          marker bodies PLG_0 and SCK_0, by which the simulation places the device
/// Items    one line each, its line end included
namespace vanzet::simulation {

void GiveVrmlHead(const LineSink& sink);

/// Hands on the point and the index list of the first face set in `file`: the line with "coord Coordinate"
/// and what follows up to "coordIndex", then up to "]" on a later line. A file that ends early ends the lists
/// with it. The white space that a line begins with becomes twelve blanks.
void GiveFacets(platform::LineReader& file, const LineSink& sink);

/// `offset` is how far behind the origin the marker PLG_0 begins.
void GiveVrmlTail(double offset, const LineSink& sink);

}  // namespace vanzet::simulation
