#pragma once

#include <vector>

#include "check/finding.h"
#include "scene/equipment.h"

namespace vanzet::check {

/// A device of the equipment, and the part of the set-up that it belongs to.
struct PlacedDevice {
  const scene::Device* device;
  Where where;
  show::Part part;
};

/// The devices that are there. Valid as long as the equipment.
std::vector<PlacedDevice> DevicesOf(const scene::Equipment& equipment);

/// The name as a sentence has it, in quotes.
std::string NameOf(const scene::Device& device);

inline Where WhereOf(std::size_t spindle) {
  return spindle == 0 ? Where::kMain : Where::kSub;
}

}  // namespace vanzet::check
