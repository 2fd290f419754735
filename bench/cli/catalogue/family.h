#pragma once

#include "cli/commands.h"

/// The commands of `vanzet catalogue`.
namespace vanzet::cli {

void AddCatalogueList(Command& catalogue, Context& context);
void AddCatalogueSearch(Command& catalogue, Context& context);
void AddCatalogueShow(Command& catalogue, Context& context);
void AddCatalogueAdd(Command& catalogue, Context& context);
void AddCatalogueSet(Command& catalogue, Context& context);
void AddCatalogueRemove(Command& catalogue, Context& context);
void AddCatalogueCheck(Command& catalogue, Context& context);
void AddCatalogueDiff(Command& catalogue, Context& context);
void AddCatalogueMerge(Command& catalogue, Context& context);
void AddCatalogueHistory(Command& catalogue, Context& context);
void AddCataloguePackage(Command& catalogue, Context& context);
void AddCatalogueImport(Command& catalogue, Context& context);

/// The help of the operand that `SplitCatalogue` splits off.
inline constexpr const char* kCatalogueHelp =
    "the project whose catalogue it is, or a catalogue file; default: the current folder";

}  // namespace vanzet::cli
