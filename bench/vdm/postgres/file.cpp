#include "vdm/postgres/file.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kLastFile = R"(
  SELECT name, content FROM vanzet.file
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) AND folder='last')";
constexpr std::string_view kSetLastFile = R"(
  INSERT INTO vanzet.file(project, folder, name, former, content)
  SELECT id, 'last', $2, NULL, $3 FROM vanzet.project WHERE name=$1
  ON CONFLICT(project, folder) DO UPDATE SET name=EXCLUDED.name, content=EXCLUDED.content)";

}  // namespace

Result<std::optional<TextFile>> LastFile(PostgresSession& session) {
  VANZET_TRY(const auto rows, session.Read({kLastFile, {PostgresValue::Text(session.project())}}));
  if (!rows || rows->Size() == 0) return std::optional<TextFile>();
  return std::optional(TextFile{std::string(rows->Bytes(0, 0)), std::string(rows->Bytes(0, 1))});
}

Result<void> SetLastFile(PostgresSession& session, const TextFile& file) {
  VANZET_DO(session.Run({{kSetLastFile,
                          {PostgresValue::Text(session.project()), PostgresValue::Text(file.name),
                           PostgresValue::Bytes(file.content)}}}));
  return {};
}

}  // namespace vanzet::vdm
