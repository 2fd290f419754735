#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "show/part.h"

namespace vanzet::show {

struct Row {
  int level;  ///< 0: a heading
  std::string label;
  std::string value = {};
  Part part = Part::kNone;  ///< that the row is about
  std::size_t spindle = 0;
};

/// Labels and values in two columns, with headings between them.
class Rows {
 public:
  /// The rows that are added from now on, until the next heading, are about this part.
  void BeginPart(Part part, std::size_t spindle = 0) { part_ = part, spindle_ = spindle; }

  /// A line of its own, after a blank line.
  void AddHeading(const std::string& text);

  /// Level 1 is below a heading, level 2 below a row. An empty value is left out with its blanks.
  void Add(int level, const std::string& label, const std::string& value);

  const std::vector<Row>& all() const { return rows_; }

  /// All lines; the values begin in one column.
  std::string Text() const;

 private:
  std::vector<Row> rows_;
  Part part_ = Part::kNone;
  std::size_t spindle_ = 0;
};

}  // namespace vanzet::show
