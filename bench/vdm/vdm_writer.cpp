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
  if (const auto done = file.Write("record\n"); !done) return done.fault();
  for (std::size_t i = 0; i < record.Size(); ++i) {
    if (const auto done = file.Write(LineOf(record[i])); !done) return done.fault();
  }
  return {};
}

}  // namespace

Result<void> WriteVdmFile(const std::filesystem::path& file, const Vdm& content) {
  auto replacement = files::FileReplacement::Begin(file);
  if (!replacement) return replacement.fault();
  if (const auto done = replacement->Write("vdm 1\n"); !done) return done.fault();
  for (std::size_t i = 0; i < content.Size(); ++i) {
    const auto record = content.Read(i);
    if (!record) return record.fault();
    if (const auto done = WriteRecord(*replacement, **record); !done) return done.fault();
  }
  const std::string end = "end " + std::to_string(content.Size()) + "\n";
  if (const auto done = replacement->Write(end); !done) return done.fault();
  return replacement->Commit();
}

}  // namespace vanzet::vdm
