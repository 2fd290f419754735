#include "cli/catalogue/family.h"

namespace vanzet::cli {

void AddCatalogue(Command& vanzet, Context& context) {
  Command& catalogue =
      vanzet.AddCommand("catalogue", "Lists, searches, changes, checks and merges the devices of a shop.");
  catalogue.examples = {"vanzet catalogue list lathe"};
  AddCatalogueList(catalogue, context);
  AddCatalogueSearch(catalogue, context);
  AddCatalogueShow(catalogue, context);
  AddCatalogueAdd(catalogue, context);
  AddCatalogueSet(catalogue, context);
  AddCatalogueRemove(catalogue, context);
  AddCatalogueCheck(catalogue, context);
  AddCatalogueDiff(catalogue, context);
  AddCatalogueMerge(catalogue, context);
  AddCatalogueHistory(catalogue, context);
  AddCataloguePackage(catalogue, context);
  AddCatalogueImport(catalogue, context);
}

}  // namespace vanzet::cli
