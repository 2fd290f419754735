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

/// Bodies to files. Each file is written whole or not at all: a fault, with the file's name, leaves an old
/// file as it was and nothing else behind. Numbers have a point whatever the locale.
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

/// What a file holds of bodies, and in which unit: docs/formats/bodies.md.
enum class ExportFormat { kStep, kStl, kWrl, kGltf };

/// The format of a word of the command line, "step", "stl", "wrl" or "gltf", and the ending of its files.
std::optional<ExportFormat> FormatNamed(std::string_view word);
std::string_view EndingOf(ExportFormat format);

/// Writes the bodies to one file. Refused for no body at all.
Result<void> Export(const std::vector<NamedBody>& bodies, ExportFormat format,
                    const std::filesystem::path& file, const MeshTolerance& tolerance,
                    const Exchange& exchange);

/// Writes a body's facets alone as VRML 2.0: one IndexedFaceSet, a point and a face a line. The word
/// "coordIndex" stands on a line of its own before the faces, and a line with "]" ends them.
Result<void> ExportVrml(const Body& body, const std::filesystem::path& file, const MeshTolerance& tolerance);

/// The same for a body of the table. A number without a body writes nothing, and an old file stays.
Result<void> ExportVrml(const BodyTable& table, std::int32_t number, const std::filesystem::path& file,
                        const MeshTolerance& tolerance);

}  // namespace vanzet::modeller
