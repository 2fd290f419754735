#pragma once

#include <string>
#include <vector>

#include "base/result.h"
#include "catalogue/catalogue.h"

/// Pictures of devices as SVG, in pixels.
namespace vanzet::catalogue {

/// A device that is drawn: one whose values make a solid.
inline constexpr int kPictureWidth = 640, kPictureHeight = 480;

/// Draws a device: what is spun is cut above its axis and seen from outside below it, a jaw is seen from the
/// side. Each letter of the outline is shown as a dimension with its value; all letters are listed below with
/// their values.
/// Fails for a device without an outline: one whose solid is kept in a VDM, or whose values make none.
Result<std::string> PictureOf(const Entry& entry);

/// Draws the devices in rows with their names, kinds and letters. A device that has no outline is an empty
/// frame with the reason.
/// Fails for more devices than a sheet may have.
Result<std::string> SheetOf(const std::vector<const Entry*>& entries);

/// The devices that a sheet may have.
inline constexpr std::size_t kLargestSheet = 1000;

}  // namespace vanzet::catalogue
