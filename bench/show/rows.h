#pragma once

#include <string>
#include <vector>

namespace vanzet::show {

/// Labels and values in two columns, with headings between them.
class Rows {
 public:
  /// A line of its own, after a blank line.
  void AddHeading(const std::string& text);

  /// Level 1 is below a heading, level 2 below a row. An empty value is left out with its blanks.
  void Add(int level, const std::string& label, const std::string& value);

  /// All lines; the values begin in one column.
  std::string Text() const;

 private:
  struct Row {
    std::string label;
    std::string value = {};
    bool isHeading = false;
  };
  std::vector<Row> rows_;
};

}  // namespace vanzet::show
