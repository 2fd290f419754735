#pragma once

#include "check/collector.h"
#include "check/half_sections.h"

/// The rules, by what they compare. Each function adds what it finds.
namespace vanzet::check {

/// Devices for themselves: 101, 102, 103, 105.
void CheckDevices(const Setup& setup, Collector& findings);

/// The figures of the makers: 305, 401, 402.
void CheckMakerData(const Setup& setup, const HalfSections& sections, Collector& findings);

/// Bodies that are missing or not sound: 104.
void CheckBodies(const Setup& setup, const HalfSections& sections, Collector& findings);

/// Bodies with each other: 201 to 206, 301.
void CheckClashes(const Setup& setup, const HalfSections& sections, Collector& findings);

/// Lengths: 302, 303, 304.
void CheckReach(const Setup& setup, const HalfSections& sections, Collector& findings);

}  // namespace vanzet::check
