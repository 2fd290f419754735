#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/letter_case.h"
#include "base/path_map.h"
#include "base/result.h"
#include "project/store_place.h"

namespace vanzet::project {

/// A value of a settings file and its place in the file, for callers that refuse the value.
struct Setting {
  std::string value;
  Fault place;  ///< without a text

  /// A fault at the value.
  Fault At(std::string text) const;
};

/// The settings of a project, described in docs/formats/bench-ini.md.
struct BenchIni {
  /// Keys that differ only in the case of their letters are equal.
  using Section = std::map<std::string, Setting, LessWithoutCase>;
  Section environment;
  std::map<std::string, Setting> variables;  ///< by name, with regard to case
  Section project;
  Section language;
  /// The fineness of bodies that are exported as facets.
  struct Mesh {
    double chord = 0.05;  ///< largest distance of a facet from the surface, in millimetres
    double angle = 10;    ///< largest angle between neighbours, in degrees
  };
  Mesh mesh;
  /// The figures of the job; those that are not given are not compared with the makers'.
  struct Job {
    std::optional<double> speed;  ///< 1/min
    std::optional<double> force;  ///< kN of a set of jaws
    double density = 7.85;        ///< kg/dm3 of the billet
  };
  Job job;
  /// The severities of the rules of 'vanzet check', by their numbers: "off", "note", "warning", "error".
  Section check;
  StorePlace store;
  PathMap::Drives drives;
};

/// Reads the text of a bench.ini. The first of equal keys counts.
/// Errors   a fault with line, column and source: a line that is neither a section nor an entry, an unknown
///          section, a drive that is not a letter, a value out of its range. The
///          source of a line that may hold a password stays empty
Result<BenchIni> ReadBenchIni(const std::string& text, const std::string& name);

}  // namespace vanzet::project
