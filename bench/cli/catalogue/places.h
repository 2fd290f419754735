#pragma once

#include <optional>
#include <string>
#include <vector>

#include "catalogue/shop_place.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/length_unit.h"

/// The catalogues that words of the command line name: the folder of a project, or a catalogue file.
namespace vanzet::cli {

/// Splits words of which one may be a project or a catalogue file, as `SplitOperands` does for projects.
SplitWords SplitCatalogue(const std::vector<std::string>& words, std::size_t count);

/// True for a word that names a project or a catalogue file, or "-".
bool IsCatalogue(const std::string& word);

/// The place of a catalogue, which need not exist. Fails for standard input, which cannot be changed.
Result<catalogue::ShopPlace> ShopPlaceOf(const std::string& word, const Context& context);

/// Reads a catalogue with its maker data; "-" is standard input.
Result<catalogue::Shop> LoadShop(const std::string& word, const Context& context);

/// The unit that the command line gives, else that of the project; millimetres for a catalogue without one.
Result<LengthUnit> UnitOf(std::optional<LengthUnit> given, const std::string& word, const Context& context);

/// The first device of that name; the fault has near names.
Result<const catalogue::Entry*> FindDevice(const catalogue::Shop& shop, const std::string& name);

}  // namespace vanzet::cli
