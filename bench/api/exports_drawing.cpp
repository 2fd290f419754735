#include <cstring>

#include "api/call.h"
#include "api/exports.h"

using namespace vanzet;
using namespace vanzet::api;

namespace {

/// The result of a call that cannot return a handle.
constexpr std::int32_t kNoHandle = -1;

/// The mode of opening that selects matrices.
constexpr std::int32_t kMatrixMode = 2;

/// The contour of that number in the drawing, or null.
const geometry::Kurve* FindContour(Host& host, std::int32_t number) {
  ReportFault(host, host.board.Load());
  return host.board.FindContour(number);
}

std::int32_t HandleOrNone(Host& host, const Result<std::int32_t>& handle) {
  return Succeeded(host, handle) ? *handle : kNoHandle;
}

std::int32_t OpenContour(Host& host, std::int32_t number) {
  return host.rawStores.OpenContour(FindContour(host, number)).value_or(kNoHandle);
}

}  // namespace

extern "C" {

std::int32_t OrvoGetCurrentLayer() {
  return Answer("OrvoGetCurrentLayer", {}, [](Host& host, Json&) {
    ReportFault(host, host.board.Load());
    return host.board.LayerNumber(host.board.layer());
  });
}

const char* OrvoGetLayerName(std::int32_t number) {
  const char* text = Answer("OrvoGetLayerName", {number}, [&](Host& host, Json&) {
    return ReturnText(host, host.board.LayerName(number).value_or(""));
  });
  return text == nullptr ? "" : text;
}

std::int32_t OrvoFindNoOfSpansFromKurveNo(std::int32_t kurve) {
  return Answer("OrvoFindNoOfSpansFromKurveNo", {kurve}, [&](Host& host, Json&) {
    const geometry::Kurve* const contour = FindContour(host, kurve);
    return contour == nullptr ? 0 : contour->SpanCount();
  });
}

std::int32_t OrvoVdmExist(std::int32_t kurve, std::int32_t one, std::int32_t thirtyThree, std::int32_t two) {
  return Answer("OrvoVdmExist", {kurve, one, thirtyThree, two},
                [&](Host& host, Json&) { return OpenContour(host, kurve); });
}

std::int32_t OrvoVdmMake(std::int32_t number, std::int32_t two, std::int32_t zero) {
  return Answer("OrvoVdmMake", {number, two, zero},
                [&](Host& host, Json&) { return HandleOrNone(host, host.rawStores.MakeMatrix(number)); });
}

std::int32_t OrvoVdmOpen(std::int32_t number, std::int32_t mode, std::int32_t two) {
  return Answer("OrvoVdmOpen", {number, mode, two}, [&](Host& host, Json&) {
    if (mode != kMatrixMode) return OpenContour(host, number);
    return HandleOrNone(host, host.rawStores.OpenMatrix(number));
  });
}

std::int32_t OrvoVdmClose(std::int32_t handle) {
  return Answer("OrvoVdmClose", {handle}, [&](Host& host, Json&) {
    return Succeeded(host, host.rawStores.Close(handle)) ? 0 : kNoHandle;
  });
}

std::int32_t OrvoVdmEoi(std::int32_t handle) {
  return Answer("OrvoVdmEoi", {handle},
                [&](Host& host, Json&) { return host.rawStores.IsAtEnd(handle) ? 1 : 0; });
}

std::int32_t OrvoVdmRead(std::int32_t handle, void* buffer, std::int32_t bytes) {
  return Answer("OrvoVdmRead", {handle, bytes}, [&](Host& host, Json&) {
    const auto read = host.rawStores.Read(handle, bytes);
    if (!Succeeded(host, read) || buffer == nullptr) return 0;
    std::memcpy(buffer, read->data(), read->size());
    return bytes;
  });
}

std::int32_t OrvoVdmReadTmx(std::int32_t handle, void* matrix) {
  return Answer("OrvoVdmReadTmx", {handle}, [&](Host& host, Json& out) {
    const auto read = host.rawStores.ReadMatrix(handle);
    if (!Succeeded(host, read) || matrix == nullptr) return kNoHandle;
    std::memcpy(matrix, read->data(), sizeof *read);
    out = *read;
    return 0;
  });
}

std::int32_t OrvoVdmWriteTmx(std::int32_t handle, const void* matrix) {
  RawMatrix elements = {};
  if (matrix != nullptr) std::memcpy(elements.data(), matrix, sizeof elements);
  return Answer("OrvoVdmWriteTmx", {handle, elements}, [&](Host& host, Json&) {
    return matrix != nullptr && Succeeded(host, host.rawStores.WriteMatrix(handle, elements)) ? 0 : kNoHandle;
  });
}

void OrvoGetSpn(double* x, double* y, double* z, double* cx, double* cy, std::int32_t* direction,
                std::int32_t handle) {
  Answer("OrvoGetSpn", {handle}, [&](Host& host, Json& out) {
    const auto vertex = host.rawStores.NextVertex(handle);
    if (!Succeeded(host, vertex)) return;
    Put(x, vertex->x), Put(y, vertex->y), Put(z, 0.0);
    Put(cx, vertex->centreX), Put(cy, vertex->centreY);
    Put(direction, vertex->direction);
    out = {vertex->x, vertex->y, 0.0, vertex->centreX, vertex->centreY, vertex->direction};
  });
}
}
