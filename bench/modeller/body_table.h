#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// The bodies of a process, by number and perhaps by name.
///
/// Shape   numbers from 1; one that was given is never given again, also when its body is gone. 0 is no body.
///         A name belongs to one body at most; names that differ in the case of their letters are the same
/// Owns    the bodies
/// Errors  a fault without a place; the table then is as it was
class BodyTable {
 public:
  /// Takes a body in and gives its number. Refused when another body has the name; the empty name is none.
  Result<std::int32_t> Add(Body body, std::string name = {});

  /// Refused, here and below, when no body has the number.
  Result<Body> Get(std::int32_t number) const;
  Result<void> Move(std::int32_t number, const geometry::Vector3d& by);
  Result<void> Turn(std::int32_t number, const Axis& axis, double degrees);
  Result<void> Delete(std::int32_t number);

  /// Empty for a body without a name and for a number without a body.
  std::string NameOf(std::int32_t number) const;

  /// 0 when no body has that name.
  std::int32_t NumberOf(std::string_view name) const;

  /// In the order of their making.
  std::vector<std::int32_t> Numbers() const;

 private:
  struct Entry {
    Body body;
    std::string name;
  };

  Result<void> Change(std::int32_t number, Result<Body> changed);

  std::map<std::int32_t, Entry> entries_;
  std::int32_t last_ = 0;
};

}  // namespace vanzet::modeller
