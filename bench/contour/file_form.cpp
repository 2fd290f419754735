#include "contour/file_form.h"

#include <filesystem>

#include "base/letter_case.h"
#include "base/numbers.h"
#include "contour/dxf/groups.h"

namespace vanzet::contour {
namespace {

constexpr std::size_t kBlock = 65536;

std::string BlockOf(std::istream& source) {
  std::string bytes(kBlock, '\0');
  source.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(source.gcount()));
  return bytes;
}

std::string_view FirstLine(std::string_view head) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF", kBlanks = " \t\r\n";
  if (head.starts_with(kByteOrderMark)) head.remove_prefix(kByteOrderMark.size());
  head.remove_prefix(std::min(head.find_first_not_of(kBlanks), head.size()));
  const std::string_view line = head.substr(0, head.find_first_of("\r\n"));
  return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

}  // namespace

FileForm FormOf(std::string_view head, const std::string& name) {
  const std::string_view line = FirstLine(head);
  if (head.starts_with(kBinaryDxfMark) || WholeInteger(line)) return FileForm::kDrawing;
  if (line.starts_with('<')) return FileForm::kXml;
  if (line.starts_with('k') || line.starts_with("rem")) return FileForm::kText;
  const std::string ending = std::filesystem::path(name).extension().string();
  if (EqualWithoutCase(ending, ".dxf")) return FileForm::kDrawing;
  return EqualWithoutCase(ending, ".xml") ? FileForm::kXml : FileForm::kText;
}

HeadedStream::HeadedStream(std::istream& source) : std::istream(nullptr), buffer_(source) {
  buffer_.head = BlockOf(source);
  buffer_.Offer(buffer_.head);
  rdbuf(&buffer_);
}

HeadedStream::Buffer::int_type HeadedStream::Buffer::underflow() {
  block_ = BlockOf(source);
  if (block_.empty()) return traits_type::eof();
  Offer(block_);
  return traits_type::to_int_type(block_.front());
}

}  // namespace vanzet::contour
