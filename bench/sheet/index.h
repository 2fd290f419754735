#pragma once

#include <string>
#include <vector>

#include "sheet/html.h"
#include "sheet/project_sheet.h"
#include "sheet/words.h"

namespace vanzet::sheet {

/// A project of an index.
struct IndexEntry {
  std::string name;      ///< of its folder
  std::string file;      ///< its sheet, as seen from the index; empty: it has none
  std::string fault;     ///< why not
  Summary summary = {};  ///< of the sheet
};

struct Index {
  std::string language;  ///< its code: "de"
  std::string folder;    ///< the name of the folder of the projects
  std::vector<IndexEntry> entries;
};

/// The index of a folder of sheets as one HTML file that loads nothing: a row for each project, with its
/// picture and the counts of its findings, and a field that searches by the name.
std::string IndexHtmlOf(const Index& index, const Assets& assets, const Words& words);

}  // namespace vanzet::sheet
