#include "vdm/vdm_file.h"

#include <fstream>
#include <istream>
#include <string>

#include "base/files/whole_file.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Bytes of the longest line: an item with every byte escaped, its point and a carriage return.
constexpr std::size_t kLongestLine = 2 * kLongestItem + 2;

/// The lines of a text, never more than one of them in memory.
class Lines {
 public:
  explicit Lines(std::istream& text) : bytes_(*text.rdbuf()) {}

  /// False when nothing follows. A line that is too long is a fault.
  Result<bool> Next() {
    line_.clear();
    isClosed_ = false;
    ++number_;
    for (int c = bytes_.sbumpc(); c != kEnd; c = bytes_.sbumpc()) {
      isClosed_ = c == '\n';
      if (isClosed_) break;
      line_.push_back(static_cast<char>(c));
      if (line_.size() > kLongestLine) return Fault{"the line is longer than any item"};
    }
    if (!isClosed_ && line_.empty()) return false;
    if (line_.ends_with('\r')) line_.pop_back();
    if (line_.find('\r') != std::string::npos) return Fault{"a carriage return is written as \\r"};
    return true;
  }

  std::string_view Line() const { return line_; }
  bool IsClosed() const { return isClosed_; }  ///< with a line feed
  int Number() const { return number_; }

 private:
  static constexpr int kEnd = std::streambuf::traits_type::eof();
  std::streambuf& bytes_;
  std::string line_;
  bool isClosed_ = false;
  int number_ = 0;
};

/// The item that the text behind the point stands for.
Result<std::string> Unescaped(std::string_view text) {
  std::string item;
  item.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      item.push_back(text[i]);
      continue;
    }
    switch (++i < text.size() ? text[i] : ' ') {
      case '\\': item.push_back('\\'); break;
      case 'n': item.push_back('\n'); break;
      case 'r': item.push_back('\r'); break;
      default: return Fault{"a backslash stands before neither \\, n nor r"};
    }
  }
  VANZET_DO(CheckItem(item));
  return item;
}

/// Reads one file, line by line.
class Reader {
 public:
  explicit Reader(std::istream& text) : lines_(text) {}

  /// The faults lack the file and the line.
  Result<Vdm> Read() {
    VANZET_DO(Begin());
    while (!isEnded_) {
      VANZET_DO(NextLine());
      VANZET_DO(TakeLine(lines_.Line()));
    }
    const auto more = lines_.Next();
    if (!more || *more) return Fault{"text stands behind the end"};
    return std::move(vdm_);
  }

  int Line() const { return lines_.Number(); }

 private:
  Result<void> Begin() {
    VANZET_DO(NextLine());
    std::string_view first = lines_.Line();
    if (first.starts_with(kByteOrderMark)) first.remove_prefix(kByteOrderMark.size());
    if (first == "vdm 1") return {};
    if (first.starts_with("vdm ")) return Fault{"belongs to another version: \"vdm 1\" is expected"};
    return Fault{"is no VDM: \"vdm 1\" is expected"};
  }

  Result<void> NextLine() {
    VANZET_TRY(const auto next, lines_.Next());
    if (!next || !lines_.IsClosed()) return Fault{"is cut short"};
    return {};
  }

  Result<void> TakeLine(std::string_view line) {
    if (line.starts_with('.')) return TakeItem(line.substr(1));
    if (line.starts_with("end ")) return TakeEnd(line.substr(4));
    if (line != "record") return Fault{"an item, \"record\" or \"end\" is expected"};
    vdm_.Insert(vdm_.Size(), Record());
    return {};
  }

  Result<void> TakeItem(std::string_view text) {
    if (vdm_.Size() == 0) return Fault{"an item stands before the first record"};
    VANZET_TRY(auto item, Unescaped(text));
    VANZET_TRY(const auto record, vdm_.Edit(vdm_.Size() - 1));
    record->Insert(record->Size(), std::move(item));
    return {};
  }

  Result<void> TakeEnd(std::string_view count) {
    const std::string read = std::to_string(vdm_.Size());
    if (count != read) return Fault{"\"end " + read + "\" is expected: so many records were read"};
    isEnded_ = true;
    return {};
  }

  Lines lines_;
  Vdm vdm_;
  bool isEnded_ = false;
};

/// The line of an item.
std::string LineOf(std::string_view item) {
  std::string line = ".";
  for (const char c : item) {
    switch (c) {
      case '\\': line += "\\\\"; break;
      case '\n': line += "\\n"; break;
      case '\r': line += "\\r"; break;
      default: line += c;
    }
  }
  line += '\n';
  return line;
}

Result<void> WriteRecord(files::FileReplacement& file, const Record& record) {
  VANZET_DO(file.Write("record\n"));
  for (std::size_t i = 0; i < record.Size(); ++i) {
    VANZET_DO(file.Write(LineOf(record[i])));
  }
  return {};
}

}  // namespace

Result<Vdm> ReadVdm(std::istream& text, std::string_view name) {
  Reader reader(text);
  try {
    auto read = reader.Read();
    if (!read) return Fault{read.fault().text, std::string(name), reader.Line()};
    return read;
  } catch (const std::ios_base::failure&) {  // how the library's file streams tell of a disk that fails
    return Fault{"cannot be read", std::string(name), reader.Line()};
  }
}

Result<Vdm> ReadVdmFile(const std::filesystem::path& file) {
  std::error_code unknown;
  // A pipe or a device would keep us waiting.
  if (std::filesystem::exists(file, unknown) && !std::filesystem::is_regular_file(file, unknown)) {
    return Fault{"is not a regular file", file.string()};
  }
  std::ifstream text(file, std::ios::binary);
  if (!text) return Fault{"cannot be read", file.string()};
  return ReadVdm(text, file.string());
}

Result<void> WriteVdmFile(const std::filesystem::path& file, const Vdm& content) {
  VANZET_TRY(auto replacement, files::FileReplacement::Begin(file));
  VANZET_DO(replacement.Write("vdm 1\n"));
  for (std::size_t i = 0; i < content.Size(); ++i) {
    VANZET_TRY(const auto record, content.Read(i));
    VANZET_DO(WriteRecord(replacement, *record));
  }
  const std::string end = "end " + std::to_string(content.Size()) + "\n";
  VANZET_DO(replacement.Write(end));
  return replacement.Commit();
}

}  // namespace vanzet::vdm
