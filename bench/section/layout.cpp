#include "section/layout.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string_view>

#include "base/utf8.h"

namespace vanzet::section {
namespace {

using geometry::Box;
using geometry::Point;

// In heights of the letters.
constexpr double kLetter = 0.62;    // the width of a letter
constexpr double kFirstLane = 2.2;  // from the axis to the first lane
constexpr double kLane = 1.9;       // from lane to lane
constexpr double kArrow = 0.9;      // how long an arrow is
constexpr double kPast = 0.5;       // how far a line runs past an arrow
constexpr double kLift = 0.3;       // between a line and the letters above it
constexpr double kBetween = 0.8;    // between two labels
constexpr double kMargin = 1.5;     // around everything
constexpr double kSquare = 1.0;     // the side of a square of the legend

struct Interval {
  double from, to;

  bool Overlaps(const Interval& other) const { return from < other.to && other.from < to; }
  bool Has(double x) const { return from < x && x < to; }
};

/// Puts lengths into lanes below the axis.
class Lanes {
 public:
  Lanes(const Section& section, const SectionTexts& texts, double height)
      : section_(section), texts_(texts), height_(height) {}

  void AddTo(Layout& layout) {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < section_.dimensions.size(); ++i) {
      if (section_.dimensions[i].direction == Direction::kAlong) order.push_back(i);
    }
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return section_.dimensions[i].Value(); });
    for (const std::size_t i : order) layout.dimensions.push_back(Place(section_.dimensions[i]));
  }

  double Lowest() const { return lanes_.empty() ? 0 : LaneAt(lanes_.size() - 1) - kBetween * height_; }

 private:
  double LaneAt(std::size_t lane) const {
    return -height_ * (kFirstLane + kLane * static_cast<double>(lane));
  }

  /// The interval of a label that is not crossed by the ends of other dimensions: within the arrows, else
  /// beside them.
  Interval LabelOf(const Dimension& dimension, const Interval& span, double width) const {
    const double middle = (span.from + span.to) / 2, away = height_ * (kArrow + kBetween);
    const Interval inside = {middle - width / 2, middle + width / 2};
    const Interval right = {span.to + away, span.to + away + width};
    const Interval left = {span.from - away - width, span.from - away};
    const double room = span.to - span.from - width;
    std::vector<Interval> candidates;
    if (room > 0) {
      for (const double part : {0.5, 0.25, 0.75, 0.05, 0.95}) {
        const double from = span.from + room * part;
        candidates.push_back({from, from + width});
      }
    }
    candidates.insert(candidates.end(), {right, left});
    const auto free = std::ranges::find_if(
        candidates, [&](const Interval& candidate) { return !IsCrossed(candidate, dimension); });
    if (free != candidates.end()) return *free;
    return room > 0 ? inside : right;
  }

  bool IsCrossed(const Interval& label, const Dimension& own) const {
    return std::ranges::any_of(section_.dimensions, [&](const Dimension& other) {
      return &other != &own && other.direction == Direction::kAlong &&
             (label.Has(other.from.x) || label.Has(other.to.x));
    });
  }

  std::size_t LaneFor(const Interval& taken) {
    for (std::size_t lane = 0; lane < lanes_.size(); ++lane) {
      const bool isFree =
          std::ranges::none_of(lanes_[lane], [&](const Interval& other) { return other.Overlaps(taken); });
      if (isFree) return lane;
    }
    lanes_.emplace_back();
    return lanes_.size() - 1;
  }

  DimensionLines Place(const Dimension& dimension) {
    const auto [low, high] = std::minmax(dimension.from.x, dimension.to.x);
    const Interval span = {low, high};
    const std::string text = texts_.dimension(dimension);
    const Interval label = LabelOf(dimension, span, WidthOf(text, height_));
    const double pad = height_ * kBetween / 2;
    const Interval taken = {std::min(span.from, label.from) - pad, std::max(span.to, label.to) + pad};
    const std::size_t lane = LaneFor(taken);
    lanes_[lane].push_back(taken);
    return LinesOf(span, label, text, LaneAt(lane));
  }

  DimensionLines LinesOf(const Interval& span, const Interval& label, const std::string& text,
                         double y) const {
    DimensionLines lines;
    const double past = height_ * kPast;
    for (const double x : {span.from, span.to}) lines.thin.push_back({{x, 0}, {x, y - past}});
    const bool isTight = span.to - span.from < 2.5 * kArrow * height_;
    const double beyond = isTight ? 2 * kArrow * height_ : 0;
    lines.thin.push_back(
        {{std::min(span.from - beyond, label.from), y}, {std::max(span.to + beyond, label.to), y}});
    const double sense = isTight ? 1 : -1;
    lines.arrows.push_back({{span.from, y}, {sense, 0}});
    lines.arrows.push_back({{span.to, y}, {-sense, 0}});
    lines.label = {text, {(label.from + label.to) / 2, y + kLift * height_}, Anchor::kMiddle};
    return lines;
  }

  const Section& section_;
  const SectionTexts& texts_;
  double height_;
  std::vector<std::vector<Interval>> lanes_;
};

/// Puts the labels of diameters into a row above the section, in the order of their places.
class Row {
 public:
  Row(const Section& section, const SectionTexts& texts, double height, const Box& box)
      : section_(section), texts_(texts), height_(height), top_(box.max.y + kFirstLane * height) {}

  void AddTo(Layout& layout) {
    for (const Dimension& dimension : section_.dimensions) {
      if (dimension.direction == Direction::kDiameter) entries_.push_back({&dimension, 0, 0});
    }
    std::ranges::stable_sort(entries_, {}, [](const Entry& entry) { return entry.dimension->to.x; });
    Spread();
    for (const Entry& entry : entries_) layout.dimensions.push_back(LinesOf(entry));
  }

 private:
  struct Entry {
    const Dimension* dimension;
    double middle, width;
  };

  /// Puts each label as near to its place as its neighbours allow: a group of labels that touch is centred on
  /// the places of its members.
  void Spread() {
    struct Group {
      std::size_t first, count;
      double width, wanted;  ///< of the whole group; the wanted place of its left end
    };
    std::vector<Group> groups;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      Entry& entry = entries_[i];
      entry.width = WidthOf(texts_.dimension(*entry.dimension), height_) + kBetween * height_;
      groups.push_back({i, 1, entry.width, entry.dimension->to.x - entry.width / 2});
      while (groups.size() > 1) {
        const Group last = groups.back();
        Group& before = groups[groups.size() - 2];
        if (before.wanted + before.width <= last.wanted) break;
        const auto a = static_cast<double>(before.count), b = static_cast<double>(last.count);
        before.wanted = (before.wanted * a + (last.wanted - before.width) * b) / (a + b);
        before.width += last.width;
        before.count += last.count;
        groups.pop_back();
      }
    }
    for (const Group& group : groups) {
      double at = group.wanted;
      for (std::size_t i = group.first; i < group.first + group.count; ++i) {
        entries_[i].middle = at + entries_[i].width / 2;
        at += entries_[i].width;
      }
    }
  }

  DimensionLines LinesOf(const Entry& entry) const {
    const Point axis = entry.dimension->from, rim = entry.dimension->to;
    const double bend = top_ - kFirstLane * height_ / 2;
    DimensionLines lines;
    lines.thin = {{{axis.x, -kPast * height_}, {rim.x, bend}}, {{rim.x, bend}, {entry.middle, top_}}};
    lines.arrows = {{rim, {0, 1}}};
    lines.label = {
        texts_.dimension(*entry.dimension), {entry.middle, top_ + kLift * height_}, Anchor::kMiddle};
    return lines;
  }

  const Section& section_;
  const SectionTexts& texts_;
  double height_, top_;
  std::vector<Entry> entries_;
};

/// The bodies' names with their colours, in lines as wide as the section.
void AddLegend(const Section& section, const SectionTexts& texts, double lowest, Layout& layout) {
  const double height = layout.textHeight, left = layout.box.min.x;
  const double width = std::max(layout.box.Width(), 40 * height);
  double x = left, y = lowest - kLane * height;
  for (std::size_t i = 0; i < section.bodies.size(); ++i) {
    const std::string text = texts.body(section.bodies[i]);
    const double room = (kSquare + kBetween) * height + WidthOf(text, height) + 2 * kBetween * height;
    if (x > left && x + room > left + width) {
      x = left;
      y -= kLane * height;
    }
    layout.legend.push_back({i,
                             {text, {x + (kSquare + kBetween / 2) * height, y}, Anchor::kStart},
                             Box({x, y - 0.1 * height}, {x + kSquare * height, y + 0.9 * height})});
    x += room;
  }
  if (!section.bodies.empty()) y -= kLane * height;
  layout.note = {texts.note, {left, y}, Anchor::kStart};
}

void InsertLabel(const Label& label, double height, Box& box) {
  const double width = WidthOf(label.text, height);
  const double left = label.anchor == Anchor::kMiddle ? label.at.x - width / 2 : label.at.x;
  box.Insert({left, label.at.y - 0.25 * height});
  box.Insert({left + width, label.at.y + height});
}

void Enclose(Layout& layout) {
  for (const DimensionLines& lines : layout.dimensions) {
    for (const Line& line : lines.thin) {
      layout.box.Insert(line.from);
      layout.box.Insert(line.to);
    }
    InsertLabel(lines.label, layout.textHeight, layout.box);
  }
  for (const LegendEntry& entry : layout.legend) {
    layout.box.Insert(entry.square);
    InsertLabel(entry.label, layout.textHeight, layout.box);
  }
  InsertLabel(layout.note, layout.textHeight, layout.box);
}

/// Breaks a text between words, so that no line but one of a single word is wider.
std::vector<std::string> LinesOf(const std::string& text, double width, double height) {
  std::vector<std::string> lines;
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    if (lines.empty() || WidthOf(lines.back() + " " + word, height) > width) {
      lines.push_back(word);
    } else {
      lines.back() += " " + word;
    }
  }
  return lines;
}

void AddCaption(const std::string& text, Layout& layout) {
  const double height = layout.textHeight;
  std::vector<std::string> lines = LinesOf(text, layout.box.Width(), height);
  std::ranges::reverse(lines);
  for (std::string& line : lines) {
    const Point at(layout.box.min.x, layout.box.max.y + kBetween * height);
    layout.caption.push_back({std::move(line), at, Anchor::kStart});
    InsertLabel(layout.caption.back(), height, layout.box);
  }
}

}  // namespace

double WidthOf(const std::string& text, double height) {
  int characters = 0;
  for (std::size_t at = 0; at < text.size(); ++characters) {
    at += std::max<std::size_t>(1, Utf8Length(std::string_view(text).substr(at)));
  }
  return characters * kLetter * height;
}

Layout LayOut(const Section& section, const SectionTexts& texts, double textHeight) {
  Layout layout;
  layout.textHeight = textHeight;
  layout.box = BoxOf(section);
  if (layout.box.min.x > layout.box.max.x) layout.box = Box({0, 0}, {0, 0});
  layout.box.Insert({layout.box.min.x, 0});
  Lanes lanes(section, texts, textHeight);
  lanes.AddTo(layout);
  Row(section, texts, textHeight, layout.box).AddTo(layout);
  AddLegend(section, texts, lanes.Lowest(), layout);
  Enclose(layout);
  AddCaption(texts.caption, layout);
  layout.box.Grow(kMargin * textHeight);
  return layout;
}

}  // namespace vanzet::section
