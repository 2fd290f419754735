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

/// The lines of a text, with no more than one of them in memory.
class Lines {
 public:
  explicit Lines(std::istream& text) : bytes_(*text.rdbuf()) {}

  /// Reads the next line; returns false at the end of the text. A line that is too long is a fault.
  Result<bool> Next() {
    line_.clear();
    isClosed_ = false;
    ++number_;
    for (int c = bytes_.sbumpc(); c != kEnd; c = bytes_.sbumpc()) {
      isClosed_ = c == '\n';
      if (isClosed_) break;
      line_.push_back(static_cast<char>(c));
      if (line_.size() > kLongestLine) {
        line_.clear();
        return Fault{"the line is longer than any item"};
      }
    }
    if (!isClosed_ && line_.empty()) return false;
    if (line_.ends_with('\r')) line_.pop_back();
    const std::size_t stray = line_.find('\r');
    if (stray == std::string::npos) return true;
    return Fault{.text = "a carriage return is written as \\r", .column = static_cast<int>(stray) + 1};
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

/// The item of a line, which begins with a point.
Result<std::string> ItemOfLine(std::string_view line) {
  std::string item;
  item.reserve(line.size());
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] != '\\') {
      item.push_back(line[i]);
      continue;
    }
    switch (++i < line.size() ? line[i] : ' ') {
      case '\\': item.push_back('\\'); break;
      case 'n': item.push_back('\n'); break;
      case 'r': item.push_back('\r'); break;
      default:
        return Fault{.text = "unknown escape: expected \\\\, \\n or \\r", .column = static_cast<int>(i)};
    }
  }
  VANZET_DO(CheckItem(item));
  return item;
}

Fault Damage(std::string text) {
  return {.text = std::move(text), .kind = FaultKind::kDamaged};
}

/// Reads one file, line by line.
class Reader {
 public:
  explicit Reader(std::istream& text) : lines_(text) {}

  /// The faults have no file and no line.
  Result<Vdm> Read() {
    VANZET_DO(ReadFirstLine());
    while (!isEnded_) {
      VANZET_DO(NextLine());
      VANZET_DO(ReadLine(lines_.Line()));
    }
    const auto more = lines_.Next();
    if (!more || *more) return Fault{"unexpected text after \"end\""};
    return std::move(vdm_);
  }

  /// The fault with the place of the line that was read last.
  Fault AtLine(Fault fault, std::string_view name) const {
    fault.file = name;
    fault.line = lines_.Number();
    fault.source = lines_.Line();
    return fault;
  }

 private:
  Result<void> ReadFirstLine() {
    VANZET_DO(NextLine());
    std::string_view first = lines_.Line();
    if (first.starts_with(kByteOrderMark)) first.remove_prefix(kByteOrderMark.size());
    if (first == "vdm 1") return {};
    if (first.starts_with("vdm ")) return Fault{"another version of the format: expected \"vdm 1\""};
    return Fault{"not a VDM file: expected \"vdm 1\""};
  }

  Result<void> NextLine() {
    VANZET_TRY(const auto next, lines_.Next());
    if (!next || !lines_.IsClosed()) return Damage("is cut short");
    return {};
  }

  Result<void> ReadLine(std::string_view line) {
    if (line.starts_with('.')) return AddItem(line);
    if (line.starts_with("end ")) return CheckEnd(line.substr(4));
    if (line != "record") return Fault{"expected an item, \"record\" or \"end\""};
    vdm_.Insert(vdm_.Size(), Record());
    return {};
  }

  Result<void> AddItem(std::string_view line) {
    if (vdm_.Size() == 0) return Fault{"expected \"record\" before the first item"};
    VANZET_TRY(auto item, ItemOfLine(line));
    VANZET_TRY(const auto record, vdm_.Edit(vdm_.Size() - 1));
    record->Insert(record->Size(), std::move(item));
    return {};
  }

  Result<void> CheckEnd(std::string_view count) {
    const std::string read = std::to_string(vdm_.Size());
    if (count != read)
      return Damage("expected \"end " + read + "\" after " + read + (read == "1" ? " record" : " records"));
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

Result<void> WriteRecord(const TextSink& write, const Record& record) {
  VANZET_DO(write("record\n"));
  for (std::size_t i = 0; i < record.Size(); ++i) {
    VANZET_DO(write(LineOf(record[i])));
  }
  return {};
}

}  // namespace

Result<Vdm> ReadVdm(std::istream& text, std::string_view name) {
  Reader reader(text);
  try {
    auto read = reader.Read();
    if (!read) return reader.AtLine(read.fault(), name);
    return read;
  } catch (const std::ios_base::failure&) {  // the library's file streams report a failing disk so
    return reader.AtLine({.text = "cannot be read", .kind = FaultKind::kSystem}, name);
  }
}

Result<Vdm> ReadVdmFile(const std::filesystem::path& file) {
  std::error_code unknown;
  const bool exists = std::filesystem::exists(file, unknown);
  // A pipe or a device could block.
  if (exists && !std::filesystem::is_regular_file(file, unknown)) {
    return Fault{"is not a regular file", file.string()};
  }
  std::ifstream text(file, std::ios::binary);
  if (!text) {
    return Fault{.text = "cannot be read",
                 .file = file.string(),
                 .kind = exists ? FaultKind::kSystem : FaultKind::kMissing};
  }
  return ReadVdm(text, file.string());
}

Result<void> WriteVdm(const Vdm& content, const TextSink& write) {
  VANZET_DO(write("vdm 1\n"));
  for (std::size_t i = 0; i < content.Size(); ++i) {
    VANZET_TRY(const auto record, content.Read(i));
    VANZET_DO(WriteRecord(write, *record));
  }
  return write("end " + std::to_string(content.Size()) + "\n");
}

Result<void> WriteVdmFile(const std::filesystem::path& file, const Vdm& content) {
  VANZET_TRY(auto replacement, files::FileReplacement::Begin(file));
  VANZET_DO(WriteVdm(content, [&](const std::string& text) { return replacement.Write(text); }));
  return replacement.Commit();
}

}  // namespace vanzet::vdm
