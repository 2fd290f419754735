#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace vanzet::platform {

/// Reads a file of any size line by line, in memory that does not grow with it.
///
/// Shape    lines end with LF or CR LF, which is not part of them; the last one may lack it. A line longer
///          than `kLongestLine` bytes is cut to that length
class LineReader {
 public:
  static constexpr std::size_t kLongestLine = 1 << 20;

  /// `path` is a path text of the host (platform/files.h).
  explicit LineReader(std::string_view path);

  bool IsOpen() const { return file_.is_open(); }

  /// True when the end was not that of the file: the system could not read on.
  bool HasFailed() const { return file_.bad(); }

  /// Reads the next line; returns false at the end. The view is valid until the next call.
  bool Next(std::string_view& line);

 private:
  bool Fill();
  void Keep(std::string_view piece);

  std::ifstream file_;
  std::vector<char> buffer_;
  std::string_view unread_;  ///< of the buffer
  std::string kept_;         ///< the part of a line that was read before the buffer
};

}  // namespace vanzet::platform
