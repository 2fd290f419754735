#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

/// Exchange files of ISO 10303-21 as plain instances, whatever their schema.
namespace vanzet::modeller {

/// A parameter; what is within lists and typed values comes in the same row.
struct Part21Value {
  enum class Kind { kText, kNumber, kReference, kOther };
  Kind kind = Kind::kOther;
  std::string text;             ///< of a text, in UTF-8; of a number as it is written
  std::uint64_t reference = 0;  ///< the number of another instance
};

/// "#12=NUMERICAL_VALUE('OAL',$,#7,90.);"
struct Part21Instance {
  std::string type;  ///< in capitals; of several types the first one
  std::vector<Part21Value> values;
};

/// By their numbers.
using Part21Instances = std::map<std::uint64_t, Part21Instance>;

/// Reads the instances of a text.
/// Errors   a fault with the line: another text, one without its end, a statement that is none, a number of
///          an instance that is used twice, lists within lists more than 100 levels deep
Result<Part21Instances> ReadPart21(std::string_view text);

}  // namespace vanzet::modeller
