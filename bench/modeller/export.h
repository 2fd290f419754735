#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "modeller/body_table.h"
#include "modeller/exchange.h"
#include "modeller/mesh.h"
#include "modeller/named_place.h"

/// The content of files with bodies. Numbers have a decimal point in every locale.
namespace vanzet::modeller {

/// Red, green and blue as a screen shows them, each from 0 to 1.
struct Colour {
  double red = 0.6, green = 0.6, blue = 0.6;
};

/// The look of a body, in the formats that have one.
struct Appearance {
  Colour colour;
  bool isSteel = false;
  bool isSeenThrough = false;
};

/// How much of what is behind a body is seen that is seen through.
inline constexpr double kTransparency = 0.6;

struct NamedBody {
  std::string name;
  Body body;
  geometry::Matrix placement;  ///< moves and turns; millimetres
  Appearance appearance = {};
  std::vector<NamedPlace> places = {};  ///< where the body is placed; in the formats that have them
};

/// The making of files besides their bodies.
struct FileOptions {
  MeshTolerance fineness = {};
  std::string time = {};  ///< for the head of a STEP file, "2026-11-22T09:00:00Z"; empty: the present
};

/// The contents and units of the formats: docs/formats/bodies.md.
enum class ExportFormat { kStep, kStl, kWrl, kGltf, kObj, kIges, k3mf };

/// The formats by their words on the command line, "step" first, and the ending of their files.
const std::vector<std::string>& FormatWords();
std::optional<ExportFormat> FormatNamed(std::string_view word);
std::string_view EndingOf(ExportFormat format);

/// Whether files of the format have surfaces, and no facets where a body has surfaces.
constexpr bool HasSurfaces(ExportFormat format) {
  return format == ExportFormat::kStep || format == ExportFormat::kIges;
}

/// The figures of a body in a file.
struct BodyFacts {
  std::optional<double> volume;  ///< nothing for a body that does not enclose one
  geometry::Box3d box;
  std::size_t triangles = 0;
};

/// Measures a body as a file of the format has it: its surfaces in a STEP file, else its facets.
Result<BodyFacts> FactsOf(const NamedBody& body, ExportFormat format, const MeshTolerance& tolerance);

/// The bodies of a file, by their places in the list of all.
using FileBodies = std::vector<std::size_t>;

/// Receives the content of a file, by its place in the list of files.
using TakeContent = std::function<Result<void>(std::size_t file, const std::string& content)>;

/// Makes the contents of files, in their order. Fails for a file without bodies, and when `take` fails.
Result<void> MakeFiles(const std::vector<NamedBody>& bodies, const std::vector<FileBodies>& files,
                       ExportFormat format, const FileOptions& options, const Exchange& exchange,
                       const TakeContent& take);

/// The facets of a body as VRML 2.0: one IndexedFaceSet, each point and each face on a line of its own. The
/// word "coordIndex" is alone on the line before the faces, and a line with "]" ends them.
Result<std::string> VrmlOf(const Body& body, const MeshTolerance& tolerance);

/// How a file is written.
enum class Lasting : std::uint8_t {
  kYes,  ///< completely or not at all: after a fault an old file is unchanged
  kNo,   ///< nobody needs the file after this run
};

/// Writes what `VrmlOf` returns to a file, which faults name.
Result<void> ExportVrml(const Body& body, const std::filesystem::path& file, const MeshTolerance& tolerance,
                        Lasting lasting = Lasting::kYes);

/// The same for a body of the table. Fails with `kMissing` for a number without a body; an old file stays.
Result<void> ExportVrml(const BodyTable& table, std::int32_t number, const std::filesystem::path& file,
                        const MeshTolerance& tolerance, Lasting lasting = Lasting::kYes);

}  // namespace vanzet::modeller
