#include "api/raw_stores.h"

#include <cmath>
#include <cstring>

#include "base/number_text.h"
#include "base/numbers.h"

namespace vanzet::api {
namespace {

constexpr std::string_view kMatrixMark = "matrix";

constexpr RawMatrix Identity() {
  RawMatrix matrix = {};
  for (std::size_t i = 0; i < 4; ++i) matrix[5 * i] = 1;
  return matrix;
}

vdm::Record RecordOf(const RawMatrix& matrix) {
  vdm::Record record;
  record.Insert(0, std::string(kMatrixMark));
  for (const double element : matrix) record.Insert(record.Size(), ExactText(element));
  return record;
}

Result<RawMatrix> MatrixFrom(const vdm::Vdm& content, std::int32_t number) {
  const Fault noMatrix{"VDM " + std::to_string(number) + " does not hold a matrix"};
  if (content.Size() != 1) return noMatrix;
  VANZET_TRY(const auto record, content.Read(0));
  RawMatrix matrix;
  if (record->Size() != 1 + matrix.size() || (*record)[0] != kMatrixMark) return noMatrix;
  for (std::size_t i = 0; i < matrix.size(); ++i) {
    const auto element = WholeReal((*record)[1 + i]);
    if (!element) return noMatrix;
    matrix[i] = *element;
  }
  return matrix;
}

/// The records of a contour, one after the other.
std::vector<char> BytesOf(const geometry::Kurve& contour) {
  std::vector<char> bytes(static_cast<std::size_t>(contour.nVertices) * sizeof(RawVertex));
  for (int i = 0; i < contour.nVertices; ++i) {
    geometry::Point end, centre;
    RawVertex vertex;
    vertex.direction = contour.Get(i, end, centre);
    vertex.x = end.x, vertex.y = end.y;
    if (vertex.direction != 0) vertex.centreX = centre.x, vertex.centreY = centre.y;
    std::memcpy(bytes.data() + static_cast<std::size_t>(i) * sizeof vertex, &vertex, sizeof vertex);
  }
  return bytes;
}

Fault NotOpen(std::int32_t handle) {
  return {"the handle " + std::to_string(handle) + " is not open"};
}

}  // namespace

template <class Kind>
Result<Kind*> RawStores::Find(std::int32_t handle) {
  const auto found = opened_.find(handle);
  if (found == opened_.end()) return NotOpen(handle);
  Kind* const kind = std::get_if<Kind>(&found->second);
  if (kind == nullptr) return Fault{"the handle " + std::to_string(handle) + " is of another kind"};
  return kind;
}

std::int32_t RawStores::Enter(Opened opened) {
  opened_.emplace(++lastHandle_, std::move(opened));
  return lastHandle_;
}

std::optional<std::int32_t> RawStores::OpenContour(const geometry::Kurve* contour) {
  if (contour == nullptr) return std::nullopt;
  return Enter(Reading{BytesOf(*contour)});
}

Result<std::int32_t> RawStores::MakeMatrix(std::int32_t number) {
  VANZET_TRY(const auto exists, store_.Exists(number));
  if (exists) {
    // Only a matrix may be replaced.
    VANZET_TRY(const auto content, store_.Snapshot(number));
    VANZET_DO(MatrixFrom(content, number));
  }
  VANZET_DO(Keep(number, Identity()));
  return Enter(OpenedMatrix{number, Identity()});
}

Result<std::int32_t> RawStores::OpenMatrix(std::int32_t number) {
  VANZET_TRY(const auto content, store_.Snapshot(number));
  VANZET_TRY(const auto matrix, MatrixFrom(content, number));
  return Enter(OpenedMatrix{number, matrix});
}

Result<void> RawStores::Keep(std::int32_t number, const RawMatrix& matrix) {
  vdm::Vdm content;
  content.Insert(0, RecordOf(matrix));
  return store_.Replace(number, content);
}

bool RawStores::IsAtEnd(std::int32_t handle) const {
  const auto found = opened_.find(handle);
  const Reading* const reading = found == opened_.end() ? nullptr : std::get_if<Reading>(&found->second);
  return reading == nullptr || reading->at == reading->bytes.size();
}

Result<RawVertex> RawStores::NextVertex(std::int32_t handle) {
  VANZET_TRY(const auto bytes, Read(handle, sizeof(RawVertex)));
  RawVertex vertex;
  std::memcpy(&vertex, bytes.data(), sizeof vertex);
  return vertex;
}

Result<std::vector<char>> RawStores::Read(std::int32_t handle, std::int32_t bytes) {
  VANZET_TRY(const auto reading, Find<Reading>(handle));
  Reading& from = *reading;
  if (bytes < 0 || static_cast<std::size_t>(bytes) > from.bytes.size() - from.at) {
    return Fault{"reading " + std::to_string(bytes) + " bytes goes beyond the last vertex"};
  }
  const auto first = from.bytes.begin() + static_cast<std::ptrdiff_t>(from.at);
  from.at += static_cast<std::size_t>(bytes);
  return std::vector<char>(first, first + bytes);
}

Result<RawMatrix> RawStores::ReadMatrix(std::int32_t handle) {
  if (const auto reading = Find<Reading>(handle); reading) {
    (*reading)->at = 0;
    return Identity();
  }
  VANZET_TRY(const auto matrix, Find<OpenedMatrix>(handle));
  return matrix->matrix;
}

Result<void> RawStores::WriteMatrix(std::int32_t handle, const RawMatrix& matrix) {
  VANZET_TRY(const auto opened, Find<OpenedMatrix>(handle));
  for (const double element : matrix) {
    if (!std::isfinite(element)) return Fault{"a matrix element is not a finite number"};
  }
  VANZET_DO(Keep(opened->number, matrix));
  opened->matrix = matrix;
  return {};
}

Result<void> RawStores::Close(std::int32_t handle) {
  if (opened_.erase(handle) == 0) return NotOpen(handle);
  return {};
}

}  // namespace vanzet::api
