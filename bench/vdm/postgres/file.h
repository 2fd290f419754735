#pragma once

#include <memory>
#include <optional>

#include "vdm/postgres/session.h"
#include "vdm/store_engine.h"

/// The text file that was committed last with a project on a server, by whatever folder. It goes with a copy
/// of the project to another folder: docs/formats/store.md.
namespace vanzet::vdm {

/// Makes the file of a commit that is in its place, in `$2`, the last one of the project `$1`.
inline constexpr std::string_view kMakeFileLast = R"(
  WITH finished AS (
    DELETE FROM vanzet.file WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) AND folder=$2
    RETURNING project, name, content)
  INSERT INTO vanzet.file(project, folder, name, former, content)
  SELECT project, 'last', name, NULL, content FROM finished
  ON CONFLICT(project, folder) DO UPDATE SET name=EXCLUDED.name, content=EXCLUDED.content)";

/// The last file; nothing where no commit had one.
Result<std::optional<TextFile>> LastFile(PostgresSession& session);

/// Makes a file the last one. Requires: the project exists.
Result<void> SetLastFile(PostgresSession& session, const TextFile& file);

}  // namespace vanzet::vdm
