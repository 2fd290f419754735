#pragma once

#include <sstream>
#include <string>

namespace vanzet {

/// A text that is read as a stream. A plain stream takes a lack of memory for its end, and what follows would
/// be missing in silence; this one throws `std::bad_alloc`.
class TextStream : public std::istringstream {
 public:
  explicit TextStream(const std::string& text) : std::istringstream(text) { exceptions(std::ios::badbit); }
};

}  // namespace vanzet
