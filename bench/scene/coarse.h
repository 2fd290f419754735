#pragma once

#include "scene/model.h"

namespace vanzet::scene {

/// The surface with at most `most` facets, for a picture that is seen for a moment: points that are in
/// the same cell of a grid become one. A surface that has no more facets stays as it is.
Surface CoarseSurface(const Surface& surface, std::size_t most);

/// A whole model with at most `most` facets: the bodies with the most of them become coarse.
Model CoarseModel(const Model& whole, std::size_t most);

/// The number of facets of all bodies.
std::size_t CountFacets(const Model& model);

}  // namespace vanzet::scene
