#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace vanzet::platform {

/// Reads a file of any size line by line, in memory that does not grow with it.
///
/// Shape    lines end with LF or CR LF, which is not part of them; the last one may lack it. Of a line longer
///          than `kLongestLine` bytes only these are given
class LineReader {
 public:
  static constexpr std::size_t kLongestLine = 1 << 20;

  /// `path` is a text as the host gives it (platform/files.h).
  explicit LineReader(std::string_view path);

  bool IsOpen() const { return file_.is_open(); }

  /// The next line; false at the end. The view lives until the next call.
  bool Next(std::string_view& line);

 private:
  bool Fill();
  void Keep(std::string_view piece);

  std::ifstream file_;
  std::vector<char> buffer_;
  std::string_view unread_;  ///< of the buffer
  std::string kept_;         ///< of a line that goes on beyond the buffer
};

}  // namespace vanzet::platform
