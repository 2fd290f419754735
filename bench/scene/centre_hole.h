#pragma once

#include "modeller/body.h"
#include "scene/device_text.h"

/// How a center sits in the centre hole of a billet.
namespace vanzet::scene {

/// The radius of the bore about the x axis in the foremost plane of a billet; 0 without a bore.
double CentreHoleRadius(const modeller::Body& billet);

/// The distance by which the tip of a center is within a bore when its cone touches the edge; 0 without a
/// bore, and for a bore that is wider than the center.
double SeatDepth(const DeviceText& center, double bore);

}  // namespace vanzet::scene
