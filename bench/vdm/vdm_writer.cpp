#include "base/files/whole_file.h"
#include "vdm/vdm_file.h"

namespace vanzet::vdm {
namespace {

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
