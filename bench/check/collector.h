#pragma once

#include <utility>
#include <vector>

#include "check/setup.h"

namespace vanzet::check {

/// Collects the findings of a spur. A rule that the project has turned off finds nothing.
class Collector {
 public:
  explicit Collector(const Setup& setup) : setup_(setup) {}

  /// `details` has the place, the sentence and what else the finding has; rule, severity and spur come from
  /// here. Requires: `rule` is the number of a rule.
  struct Details {
    Where where;
    Sentence sentence;
    std::vector<Value> values = {};
    std::optional<geometry::Point> at = {};
    std::vector<std::string> bodies = {};
    std::optional<Change> change = {};
    std::optional<Area> area = {};
    show::Part part = show::Part::kNone;
  };
  void Add(std::string_view rule, Details details);

  /// The findings, by rule.
  std::vector<Finding> Take();

 private:
  const Setup& setup_;
  std::vector<Finding> findings_;
};

}  // namespace vanzet::check
