#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "modeller/body_table.h"
#include "modeller/exchange.h"
#include "modeller/mesh.h"

/// Writing bodies to files. A file is written completely or not at all: after a fault, which names the file,
/// an old file is unchanged and no other file remains. Numbers have a decimal point in every locale.
namespace vanzet::modeller {

/// Red, green and blue as a screen shows them, each from 0 to 1.
struct Colour {
  double red = 0.6, green = 0.6, blue = 0.6;
};

struct NamedBody {
  std::string name;
  Body body;
  geometry::Matrix placement;  ///< moves and turns; millimetres
  Colour colour;
};

/// The contents and units of the formats: docs/formats/bodies.md.
enum class ExportFormat { kStep, kStl, kWrl, kGltf };

/// The format by its word on the command line, "step", "stl", "wrl" or "gltf", and the ending of its files.
std::optional<ExportFormat> FormatNamed(std::string_view word);
std::string_view EndingOf(ExportFormat format);

/// Writes the bodies to one file. Fails for no bodies.
Result<void> Export(const std::vector<NamedBody>& bodies, ExportFormat format,
                    const std::filesystem::path& file, const MeshTolerance& tolerance,
                    const Exchange& exchange);

/// Writes the facets of a body as VRML 2.0: one IndexedFaceSet, each point and each face on a line of its
/// own. The word "coordIndex" is alone on the line before the faces, and a line with "]" ends them.
Result<void> ExportVrml(const Body& body, const std::filesystem::path& file, const MeshTolerance& tolerance);

/// The same for a body of the table. Fails with `kMissing` for a number without a body; an old file stays.
Result<void> ExportVrml(const BodyTable& table, std::int32_t number, const std::filesystem::path& file,
                        const MeshTolerance& tolerance);

}  // namespace vanzet::modeller
