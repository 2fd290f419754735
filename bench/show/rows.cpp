#include "show/rows.h"

#include <algorithm>

#include "base/one_line.h"
#include "base/utf8.h"

namespace vanzet::show {
namespace {

constexpr std::size_t kGap = 2, kIndent = 2;

/// The number of characters.
std::size_t WidthOf(std::string_view text) {
  std::size_t width = 0;
  for (; !text.empty(); ++width) text.remove_prefix(std::max<std::size_t>(1, Utf8Length(text)));
  return width;
}

std::string Indented(const Row& row) {
  return std::string(kIndent * static_cast<std::size_t>(row.level), ' ') + row.label;
}

}  // namespace

void Rows::AddHeading(const std::string& text) {
  BeginPart(Part::kNone);
  rows_.push_back({.level = 0, .label = OneLine(text)});
}

void Rows::Add(int level, const std::string& label, const std::string& value) {
  rows_.push_back({level, OneLine(label), OneLine(value), part_, spindle_});
}

std::string Rows::Text() const {
  std::size_t width = 0;
  for (const Row& row : rows_) width = std::max(width, row.value.empty() ? 0 : WidthOf(Indented(row)));
  std::string text;
  for (const Row& row : rows_) {
    if (row.level == 0 && !text.empty()) text += "\n";
    const std::string label = Indented(row);
    text += label;
    if (!row.value.empty()) text += std::string(width - WidthOf(label) + kGap, ' ') + row.value;
    text += "\n";
  }
  return text;
}

}  // namespace vanzet::show
