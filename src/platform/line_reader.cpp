#include "platform/line_reader.h"

#include "platform/files.h"

namespace vanzet::platform {
namespace {

constexpr std::size_t kBufferBytes = 1 << 16;

std::string_view WithoutCarriageReturn(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

LineReader::LineReader(std::string_view path) : buffer_(kBufferBytes) {
  if (IsReadableFile(path)) file_.open(FileOf(path), std::ios::binary);
}

bool LineReader::Fill() {
  file_.read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  unread_ = {buffer_.data(), static_cast<std::size_t>(file_.gcount())};
  return !unread_.empty();
}

void LineReader::Keep(std::string_view piece) {
  kept_.append(piece.substr(0, kLongestLine - kept_.size()));
}

bool LineReader::Next(std::string_view& line) {
  kept_.clear();
  if (unread_.empty() && !Fill()) return false;
  std::size_t end;
  while ((end = unread_.find('\n')) == std::string_view::npos) {
    Keep(unread_);
    if (!Fill()) {
      line = WithoutCarriageReturn(kept_);
      return true;
    }
  }
  line = unread_.substr(0, end);
  unread_.remove_prefix(end + 1);
  if (!kept_.empty()) {
    Keep(line);
    line = kept_;
  }
  line = WithoutCarriageReturn(line);
  return true;
}

}  // namespace vanzet::platform
