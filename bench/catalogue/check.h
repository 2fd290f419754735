#pragma once

#include <string>
#include <vector>

#include "catalogue/shop.h"

namespace vanzet::catalogue {

/// Something in a catalogue or its maker data that does not fit there.
struct Finding {
  std::string file;
  int line = 0;  ///< 0: not known
  std::string device;
  std::string text;

  /// "clampdevice.cld:12: ...".
  std::string Message() const { return Fault{text, file, line}.Message(); }
};

/// The reason why the lines of an entry are not those of a device: no value line, or one that does not begin
/// with a type. It is about the entry's `ValuesLine`. Empty: none.
std::string FormFaultOf(const Entry& entry);

/// The findings of a catalogue, in the order of its lines, and then those of its maker data: names that occur
/// twice, missing value lines, unknown types, fields that are not numbers, values of letters that the kind
/// does not have, values that make no solid, maker data of a device that the catalogue does not have.
std::vector<Finding> FindingsOf(const Shop& shop);

}  // namespace vanzet::catalogue
