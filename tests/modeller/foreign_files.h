#pragma once

#include <TopoDS_Shape.hxx>
#include <filesystem>
#include <string>
#include <vector>

#include "modeller/exchange.h"

namespace vanzet::test {

/// Files as other programs would write them, by Open CASCADE's plain writers. The unit is one of STEP's
/// names: "MM", "INCH", "M".
void WriteStep(const TopoDS_Shape& shape, const std::filesystem::path& file, const char* unit = "MM");
void WriteStep(const std::vector<TopoDS_Shape>& roots, const std::filesystem::path& file,
               const char* unit = "MM");
void WriteBrep(const TopoDS_Shape& shape, const std::filesystem::path& file);

/// STL by Open CASCADE, with facets within 0.05 mm; in text or in binary.
enum class StlForm { kText, kBinary };
void WriteStl(const TopoDS_Shape& shape, const std::filesystem::path& file, StlForm form);

/// The exchange program of this build with limits that tests like.
modeller::Exchange TestExchange();

/// The fault that a file's import must give; empty when there was none.
std::string ImportFault(const std::filesystem::path& file);

}  // namespace vanzet::test
