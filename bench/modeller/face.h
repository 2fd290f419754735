#pragma once

#include <TopoDS_Face.hxx>

#include "modeller/outline.h"

namespace vanzet::modeller {

/// The plane face that the outline bounds, its normal along z. Throws what the kernel throws.
TopoDS_Face FaceOf(const Outline& outline);

}  // namespace vanzet::modeller
