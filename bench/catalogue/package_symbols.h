#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "modeller/device_package.h"

/// The letters and figures that the properties of a maker's package become.
///
/// Source   docs/formats/device-package.md
namespace vanzet::catalogue {

/// The value of a letter or a figure, in the unit of the files of a shop.
struct PackageValue {
  std::string key;
  std::string text;
  std::string symbol;  ///< of the property that it comes from
};

struct PackageValues {
  std::vector<PackageValue> letters, figures;
};

/// A table of letters and figures with the symbols of their properties.
class PackageSymbols {
 public:
  /// Errors   a fault with the place: a section that is not "maker" or a kind of devices, a key that is not
  ///          one of it, a value that is not a symbol
  static Result<PackageSymbols> Read(const std::string& text, const std::string& file);

  /// Takes over the keys of another table; they win.
  void Add(const PackageSymbols& other);

  /// The letters and figures of a device of that type; those whose property is missing are left out.
  /// Errors   a property that is not a number, or of a unit that is not one of its letter or figure
  Result<PackageValues> ValuesOf(const modeller::PackageItem& item, std::int32_t type) const;

 private:
  /// A property, and what its number is multiplied by.
  struct Term {
    std::string symbol;
    double factor = 1;
  };
  /// One property, or the two ends of a range.
  struct Source {
    Term first;
    std::optional<Term> last;
  };
  struct Row {
    std::string section, key;
    std::vector<Source> sources;  ///< the first one whose properties are there counts
  };

  static std::optional<Term> TermOf(std::string_view text);
  static std::optional<Source> SourceOf(std::string_view text);
  static std::optional<std::vector<Source>> SourcesOf(std::string_view text);
  static Result<std::optional<std::string>> TextOf(const Source& source, const modeller::PackageItem& item,
                                                   std::string_view unit);
  static Result<std::optional<PackageValue>> ValueOf(const Row& row, const modeller::PackageItem& item,
                                                     std::string_view unit);

  std::vector<Row> rows_;
};

}  // namespace vanzet::catalogue
