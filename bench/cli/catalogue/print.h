#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "base/length_unit.h"
#include "catalogue/shop.h"
#include "cli/commands.h"
#include "cli/output.h"

/// Devices of a catalogue as text and as JSON.
namespace vanzet::cli {

/// {"name":"Chuck 160","kind":"chuck","letters":{"A":80},"maker":{"stroke":6}}, without "maker" where the
/// device has no figures. The kind of a device that is not known is null.
Json JsonOf(const catalogue::Shop& shop, const catalogue::Entry& entry);

/// {"devices":[...]}, with "unit":"inch" before it where that is the unit of the shop's lengths.
Json JsonOf(const catalogue::Shop& shop, const std::vector<const catalogue::Entry*>& entries,
            LengthUnit unit = LengthUnit::kMillimetre);

/// A JSON object with the unit alone; empty for millimetres.
Json UnitJson(LengthUnit unit);

/// A line a device, in columns with headings: name, kind, letters.
std::string TableOf(const std::vector<const catalogue::Entry*>& entries, const Context& context);

/// The letters of a device with their meaning, and its maker data.
std::string PageOf(const catalogue::Shop& shop, const catalogue::Entry& entry, LengthUnit unit,
                   const Context& context);

/// "Chuck 160: chuck  A 80  B 90".
std::string LineOf(const catalogue::Entry& entry);

}  // namespace vanzet::cli
