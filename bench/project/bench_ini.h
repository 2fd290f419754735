#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/letter_case.h"
#include "base/path_map.h"
#include "base/result.h"

namespace vanzet::project {

/// A value of an ini and the line where it stands, for whoever finds it wrong.
struct Setting {
  std::string value;
  int line;
};

/// The settings of a project; docs/formats/bench-ini.md tells their meaning.
struct BenchIni {
  /// Keys that differ in the case of their letters alone are the same.
  using Section = std::map<std::string, Setting, LessWithoutCase>;
  Section environment;
  std::map<std::string, Setting> variables;  ///< names of variables mind their case
  Section project;
  Section language;
  /// How finely bodies are exported as facets.
  struct Mesh {
    double chord = 0.05;  ///< how far a facet may be from the surface, in millimetres
    double angle = 10;    ///< how much neighbours may turn, in degrees
  };
  Mesh mesh;
  PathMap::Drives drives;
};

/// Reads the text of a bench.ini. The first of equal keys counts. A fault tells the line: of something that
/// is neither section nor entry, of an unknown section, of a drive that is no letter.
Result<BenchIni> ReadBenchIni(const std::string& text, const std::string& name);

}  // namespace vanzet::project
