#include "view/qt/page_layouts.h"

#include <algorithm>

namespace vanzet::view::qt {
namespace {

constexpr Unit kMm = Unit::kMillimetre;
constexpr Unit kDeg = Unit::kDegree;

constexpr const char* kPartLength = "Part length";
constexpr const char* kValues = "Values";
constexpr const char* kFigures = "Figures";
constexpr const char* kSolid = "Solid";

// clang-format off
constexpr FieldRow kCylindricSize[] = {
    {.control = 2022, .button = 2005, .unit = kMm, .name = "Outer diameter"},
    {.control = 2023, .button = 2006, .unit = kMm, .name = kPartLength},
    {.control = 2024,                 .unit = kMm, .name = "Allowance in front"},
    {.control = 2025,                 .unit = kMm, .name = "Allowance behind"},
    {.control = 2026, .button = 2009, .unit = kMm, .name = "Inner diameter"},
    {.control = 2027,                 .unit = kMm, .name = "Bar length, 0: no bar"},
    {.control = 2018},
};
constexpr FieldRow kCylindricShow[] = {{.control = 2138}};
constexpr FieldGroup kCylindric[] = {
    {.title = "Dimensions", .rows = kCylindricSize},
    {.title = "Drawing", .rows = kCylindricShow},
};
constexpr std::int32_t kCylindricActions[] = {2016};

constexpr FieldRow kFigureRows[] = {
    {.label = 2132, .control = 2039, .button = 2010},
    {.label = 2133, .control = 2040, .button = 2011},
};
constexpr FieldRow kFigureLength[] = {{.label = 2145, .control = 2045, .button = 2013, .unit = kMm, .name = kPartLength}};
constexpr FieldGroup kBilletFigure[] = {
    {.title = kFigures, .rows = kFigureRows},
    {.title = kValues, .rows = kFigureLength},
};
constexpr FieldGroup kFinishFigure[] = {{.title = kFigures, .rows = kFigureRows}};
constexpr std::int32_t kSelectAction[] = {2015};

constexpr FieldRow kSolidName[] = {{.label = 2156, .control = 2046, .button = 2018}};
constexpr FieldRow kSolidRows[] = {
    {.label = 2145, .control = 2045, .button = 2014, .unit = kMm},
    {.label = 2122, .control = 2035, .button = 2008, .unit = kMm},
    {.label = 2117, .control = 2032,                 .unit = kDeg},
};
constexpr FieldGroup kBilletSolid[] = {
    {.title = kSolid, .rows = kSolidName},
    {.title = kValues, .rows = kSolidRows},
};
constexpr FieldGroup kFinishSolid[] = {{.title = kSolid, .rows = kSolidName}};

constexpr FieldRow kDatumMain[] = {
    {.label = 2202, .control = 2203, .button = 2201, .unit = kMm},
    {.label = 2205, .control = 2207, .button = 2206, .unit = kMm},
};
constexpr FieldRow kDatumSub[] = {
    {.label = 2210, .control = 2211, .button = 2209, .unit = kMm},
    {.label = 2212, .control = 2214, .button = 2213, .unit = kMm},
};
constexpr FieldGroup kDatum[] = {
    {.titleLabel = 2204, .rows = kDatumMain},
    {.titleLabel = 2208, .rows = kDatumSub},
};

constexpr FieldRow kBezelRows[] = {{.control = 2019}};
constexpr FieldGroup kBezel[] = {{.title = "Steady rest", .rows = kBezelRows}};

constexpr FieldRow kClampElemRows[] = {
    {.control = 2124, .name = "Device"},
    {.label = 2116, .control = 2031, .letter = 'A'},
    {.label = 2119, .control = 2033, .letter = 'B'},
    {.label = 2121, .control = 2034, .letter = 'C'},
    {.label = 2126, .control = 2036, .letter = 'D'},
    {.label = 2129, .control = 2037, .letter = 'E'},
    {.label = 2131, .control = 2038, .letter = 'F'},
    {.label = 2135, .control = 2041, .letter = 'G'},
    {.label = 2137, .control = 2042, .letter = 'H'},
    {.label = 2140, .control = 2043, .letter = 'I'},
    {.label = 2143, .control = 2044, .letter = 'J'},
    {.label = 2179, .control = 2181, .inner = 2180},
    {.control = 2141},
};
constexpr FieldRow kOwnRows[] = {{.label = 2159, .control = 2021, .button = 2000, .isWide = true}};
constexpr FieldGroup kClampElem[] = {
    {.title = "From the catalogue", .rows = kClampElemRows, .action = 2154},
    {.title = "From a file", .rows = kOwnRows, .action = 2155},
};

constexpr FieldRow kNewRows[] = {
    {.control = 2123, .name = "Name"},
    {.label = 2115, .control = 2031, .letter = 'A'},
    {.label = 2118, .control = 2033, .letter = 'B'},
    {.label = 2120, .control = 2034, .letter = 'C'},
    {.label = 2125, .control = 2036, .letter = 'D'},
    {.label = 2128, .control = 2037, .letter = 'E'},
    {.label = 2130, .control = 2038, .letter = 'F'},
    {.label = 2134, .control = 2041, .letter = 'G'},
    {.label = 2136, .control = 2042, .letter = 'H'},
    {.label = 2139, .control = 2043, .letter = 'I'},
    {.label = 2142, .control = 2044, .letter = 'J'},
};
constexpr FieldGroup kNew[] = {{.title = "Device of the catalogue", .rows = kNewRows}};
constexpr std::int32_t kNewActions[] = {2127, 2152};

constexpr const char* kNoDevice = "Choose a device, and its picture appears here.";
constexpr const char* kNoKind = "Choose a kind below this entry of the tree.";

constexpr PageLayout kLayouts[] = {
    {"CPageClampElem",        0,    2146, kClampElem,    {}, kNoDevice},
    {"CPageBezel",            0,    2147, kBezel,        kSelectAction},
    {"CPageBilletCylindric",  2171, 2147, kCylindric,    kCylindricActions},
    {"CPageBilletFromFigure", 2171, 2147, kBilletFigure, kSelectAction},
    {"CPageBilletFromSolid",  2171, 2147, kBilletSolid,  kSelectAction},
    {"CPageFinishpartFromFigure", 2171, 2147, kFinishFigure, kSelectAction},
    {"CPageFinishpartFromSolid",  2171, 2147, kFinishSolid,  kSelectAction},
    {"CPageZeroPiontShift",   2171, 2147, kDatum,        kSelectAction},
    {"CPageClampElemNew",     0,    2150, kNew,          kNewActions, kNoKind},
};
// clang-format on

}  // namespace

std::span<const PageLayout> PageLayouts() {
  return kLayouts;
}

const PageLayout* FindPageLayout(std::string_view page) {
  const auto* const layout = std::ranges::find(kLayouts, page, &PageLayout::page);
  return layout == std::end(kLayouts) ? nullptr : layout;
}

std::vector<std::int32_t> ActionsOf(const PageLayout& layout) {
  std::vector<std::int32_t> ids(layout.actions.begin(), layout.actions.end());
  for (const FieldGroup& group : layout.groups) {
    if (group.action != 0) ids.push_back(group.action);
  }
  return ids;
}

std::vector<std::int32_t> ControlsOf(const PageLayout& layout) {
  std::vector<std::int32_t> ids = {layout.header, layout.picture};
  for (const FieldGroup& group : layout.groups) {
    ids.push_back(group.titleLabel);
    for (const FieldRow& row : group.rows)
      ids.insert(ids.end(), {row.label, row.control, row.inner, row.button});
    ids.push_back(group.action);
  }
  ids.insert(ids.end(), layout.actions.begin(), layout.actions.end());
  std::erase(ids, 0);
  return ids;
}

}  // namespace vanzet::view::qt
