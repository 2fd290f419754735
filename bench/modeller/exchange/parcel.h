#pragma once

#include "modeller/parcel.h"

/// The file in memory that this program was started with.
namespace vanzet::modeller {

/// Under this name this process can open it.
inline constexpr const char* kParcel = "/proc/self/fd/3";

/// The bodies that are to be written. The places of shapes are worked into their geometry.
Result<std::vector<ParcelBody>> ReadParcel();

/// Leaves bodies for the one that started this program.
Result<void> WriteParcel(const std::vector<ParcelBody>& bodies);

/// Leaves a shape in Open CASCADE's binary form.
Result<void> WriteParcel(const TopoDS_Shape& shape);

}  // namespace vanzet::modeller
