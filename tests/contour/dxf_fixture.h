#pragma once

#include "contour_fixture.h"

namespace vanzet::contour {

/// Drawings by their groups: "0 LINE|10 0|20 0" and so on.
class DxfTest : public ContourTest {
 protected:
  /// The lines of groups that are parted by bars.
  static std::string Groups(const std::string& groups) {
    std::string lines;
    std::istringstream stream(groups);
    for (std::string group; std::getline(stream, group, '|');) {
      const std::size_t blank = group.find(' ');
      lines +=
          group.substr(0, blank) + "\n" + (blank == std::string::npos ? "" : group.substr(blank + 1)) + "\n";
    }
    return lines;
  }

  /// A drawing of entities, in millimetres. Its first entity begins on line 14, the value of its mark.
  static std::string Drawing(const std::string& entities, const std::string& unit = "4") {
    return Groups("0 SECTION|2 HEADER|9 $INSUNITS|70 " + unit + "|0 ENDSEC|0 SECTION|2 ENTITIES|" + entities +
                  "|0 ENDSEC|0 EOF");
  }

  static Result<DxfContent> Dxf(const std::string& text, const DxfOptions& options = {}) {
    std::istringstream stream(text);
    return ReadDxf(stream, "d.dxf", options);
  }

  static Contours ContoursOf(const std::string& entities, const DxfOptions& options = {}) {
    const auto content = Dxf(Drawing(entities), options);
    if (content) return content->contours;
    ADD_FAILURE() << content.fault().Message();
    return {};
  }

  static std::string Refused(const std::string& text, const DxfOptions& options = {}) {
    const auto content = Dxf(text, options);
    return content ? "read" : content.fault().Message();
  }
};

inline constexpr const char* kLine = "0 LINE|8 0|10 1|20 2|11 3|21 4";

}  // namespace vanzet::contour
