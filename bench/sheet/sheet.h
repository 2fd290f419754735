#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "sheet/paper.h"

/// A set-up sheet as data, in the order in which people read it. docs/sheet.md.
///
/// Shape    blocks one after the other; texts are in the language of the sheet, lengths in its unit. Texts
///          have no control characters, and are not escaped for any format
/// Units    sizes of pictures are millimetres of paper
namespace vanzet::sheet {

struct Heading {
  int level = 2;  ///< 2 or 3; the title of the sheet is the only one of level 1
  std::string text;
};

struct Paragraph {
  std::string text;
};

struct Cell {
  std::string text;
  std::string link = {};  ///< the address that the text leads to; empty: none

  // NOLINTNEXTLINE(google-explicit-constructor): most cells are a text
  Cell(std::string content, std::string address = {}) : text(std::move(content)), link(std::move(address)) {}
};

/// The first cell of a row is the heading of the row.
struct Table {
  std::string caption;
  std::vector<std::string> headings;  ///< one for each column
  std::vector<std::vector<Cell>> rows;
};

struct Picture {
  enum class Format { kSvg, kPng };

  Format format = Format::kSvg;
  std::string bytes = {};
  std::string alternative = {};  ///< the text for people who do not see it
  double width = 0, height = 0;
};

/// A picture with tables at its side.
struct Beside {
  std::optional<Picture> picture;
  std::vector<Table> tables;
};

/// The equipment in 3D.
struct Space {
  Picture still;      ///< where nothing can be turned
  std::string model;  ///< the bodies as JSON, as share/sheet/space.js reads them
};

using Block = std::variant<Heading, Paragraph, Table, Picture, Beside, Space>;

struct Sheet {
  std::string language;  ///< its code: "de"
  Paper paper = Paper::kA4;
  std::string title;
  std::string footer;  ///< of each page
  std::string time;    ///< of the generation, as it is stored; empty: none
  std::vector<Block> blocks;
};

}  // namespace vanzet::sheet
