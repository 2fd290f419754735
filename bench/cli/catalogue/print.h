#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "catalogue/shop.h"
#include "cli/commands.h"
#include "cli/output.h"

/// Devices of a catalogue as text and as JSON.
namespace vanzet::cli {

/// {"name":"Chuck 160","kind":"chuck","letters":{"A":80},"maker":{"stroke":6}}, without "maker" where the
/// device has no figures. The kind of a device that is not known is null.
Json JsonOf(const catalogue::Shop& shop, const catalogue::Entry& entry);

/// {"devices":[...]}.
Json JsonOf(const catalogue::Shop& shop, const std::vector<const catalogue::Entry*>& entries);

/// A line a device, in columns with headings: name, kind, letters.
std::string TableOf(const std::vector<const catalogue::Entry*>& entries, const Context& context);

/// The letters of a device with their meaning, and its maker data.
std::string PageOf(const catalogue::Shop& shop, const catalogue::Entry& entry, const Context& context);

/// "Chuck 160: chuck  A 80  B 90".
std::string LineOf(const catalogue::Entry& entry);

}  // namespace vanzet::cli
