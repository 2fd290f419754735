#include <cstring>

#include "support/fake_call.h"

// The contours of the host in memory, vertex by vertex and as raw records.

using namespace vanzet::test;
using namespace vanzet::test::fake;

namespace {

/// A handle on a contour, 0 when there is none.
Int OpenKurve(Int kurve) {
  if (!Host().kurves.contains(kurve)) return 0;
  const Int handle = static_cast<Int>(Host().nextHandle++);
  Host().kurveReadings[handle] = {kurve};
  return handle;
}

/// The next vertex, or null at the end or behind a handle that is not open.
const FakeHost::Vertex* VertexAt(Int handle) {
  const auto reading = Host().kurveReadings.find(handle);
  if (reading == Host().kurveReadings.end()) return nullptr;
  const auto& vertices = Host().kurves[reading->second.kurve];
  return reading->second.read < vertices.size() ? &vertices[reading->second.read] : nullptr;
}

}  // namespace

extern "C" {

Int OrvoFindNoOfSpansFromKurveNo(Int kurve) {
  Note("OrvoFindNoOfSpansFromKurveNo", kurve);
  if (Host().spanCount) return *Host().spanCount;
  return Host().kurves.contains(kurve) ? static_cast<Int>(Host().kurves[kurve].size()) - 1 : 0;
}
Int OrvoVdmExist(Int kurve, Int one, Int thirtyThree, Int two) {
  Note("OrvoVdmExist", kurve, one, thirtyThree, two);
  return OpenKurve(kurve);
}
Int OrvoVdmOpen(Int kurve, Int mode, Int two) {
  Note("OrvoVdmOpen", kurve, mode, two);
  return OpenKurve(kurve);
}
Int OrvoVdmClose(Int handle) {
  Note("OrvoVdmClose", handle);
  return static_cast<Int>(Host().kurveReadings.erase(handle));
}
void OrvoGetSpn(double* x, double* y, double* z, double* cx, double* cy, Int* direction, Int handle) {
  Note("OrvoGetSpn", handle);
  const FakeHost::Vertex* const vertex = VertexAt(handle);
  if (vertex == nullptr) return;
  *x = vertex->x, *y = vertex->y, *z = 0;
  *cx = vertex->centreX, *cy = vertex->centreY, *direction = vertex->direction;
  ++Host().kurveReadings[handle].read;
}
Int OrvoVdmReadTmx(Int handle, void* matrix) {
  Note("OrvoVdmReadTmx", handle);
  if (!Host().kurveReadings.contains(handle)) return 0;
  std::memset(matrix, 0, 16 * sizeof(double));
  Host().kurveReadings[handle].read = 0;
  return 1;
}
Int OrvoVdmEoi(Int handle) {
  Note("OrvoVdmEoi", handle);
  return VertexAt(handle) == nullptr ? 1 : 0;
}
Int OrvoVdmRead(Int handle, void* buffer, Int bytes) {
  Note("OrvoVdmRead", handle, bytes);
  const FakeHost::Vertex* const vertex = VertexAt(handle);
  if (vertex == nullptr) return 0;
  if (bytes == 8) {
    const Int words[] = {0, vertex->direction};
    std::memcpy(buffer, words, sizeof words);
  } else {
    const double reals[] = {vertex->x, vertex->y, vertex->centreX, vertex->centreY};
    std::memcpy(buffer, reals, sizeof reals);
    ++Host().kurveReadings[handle].read;
  }
  return bytes;
}
void OrvoPsDeleteBody(Int body) {
  Note("OrvoPsDeleteBody", body);
}

}  // extern "C"
