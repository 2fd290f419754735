#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// All that the making of a body depends on. Two recipes are equal when their numbers are, bit by bit.
class Recipe {
 public:
  explicit Recipe(char kind) : bytes_(1, kind) {}
  void Add(std::initializer_list<double> numbers);
  friend bool operator<(const Recipe& a, const Recipe& b) { return a.bytes_ < b.bytes_; }

 private:
  std::string bytes_;
};

/// The bodies of a process, by number and optionally by name.
///
/// Shape   numbers from 1; a number is never used again, even after its body was deleted. 0 stands for no
///         body. A name belongs to one body at most; names that differ only in case are the same
/// Owns    the bodies
/// Errors  a fault without a place, `kMissing` for a number without a body; the table stays unchanged
class BodyTable {
 public:
  /// Adds a body and returns its number. Fails when another body has the name. An empty name means no name.
  Result<std::int32_t> Add(Body body, std::string name = {});

  /// Returns the body that was made by an equal recipe before, else what `make` returns: the devices of many
  /// spurs are alike. It is not in the table yet.
  Result<Body> MakeOnce(const Recipe& recipe, const std::function<Result<Body>()>& make);

  /// These fail when no body has the number.
  Result<Body> Get(std::int32_t number) const;
  Result<void> Move(std::int32_t number, const geometry::Vector3d& by);
  Result<void> Turn(std::int32_t number, const Axis& axis, double degrees);
  Result<void> Delete(std::int32_t number);

  /// Empty for a body without a name and for a number without a body.
  std::string NameOf(std::int32_t number) const;

  /// 0 when no body has that name.
  std::int32_t NumberOf(std::string_view name) const;

  /// In the order in which the bodies were added.
  std::vector<std::int32_t> Numbers() const;

 private:
  struct Entry {
    Body body;
    std::string name;
  };

  Result<void> Change(std::int32_t number, Result<Body> changed);

  std::map<std::int32_t, Entry> entries_;
  std::map<Recipe, Body> made_;
  std::int32_t last_ = 0;
};

}  // namespace vanzet::modeller
