#include "dialog/page_clamp_elem_controls.h"

namespace vanzet::dialog {
namespace {

using namespace clamp_elem;

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = kPicture,    .kind = ControlKind::kPicture},
    {.id = kDeviceList, .kind = ControlKind::kCombo, .isList = true},
    {.id = 2116,        .kind = ControlKind::kLabel, .text = "A"},
    {.id = 2031,        .kind = ControlKind::kEdit},
    {.id = 2119,        .kind = ControlKind::kLabel, .text = "B"},
    {.id = 2033,        .kind = ControlKind::kEdit},
    {.id = 2121,        .kind = ControlKind::kLabel, .text = "C"},
    {.id = 2034,        .kind = ControlKind::kEdit},
    {.id = 2126,        .kind = ControlKind::kLabel, .text = "D"},
    {.id = 2036,        .kind = ControlKind::kEdit},
    {.id = 2129,        .kind = ControlKind::kLabel, .text = "E"},
    {.id = 2037,        .kind = ControlKind::kEdit},
    {.id = 2131,        .kind = ControlKind::kLabel, .text = "F"},
    {.id = 2038,        .kind = ControlKind::kEdit},
    {.id = 2135,        .kind = ControlKind::kLabel, .text = "G"},
    {.id = 2041,        .kind = ControlKind::kEdit},
    {.id = 2137,        .kind = ControlKind::kLabel, .text = "H"},
    {.id = 2042,        .kind = ControlKind::kEdit},
    {.id = 2140,        .kind = ControlKind::kLabel, .text = "I"},
    {.id = 2043,        .kind = ControlKind::kEdit},
    {.id = 2143,        .kind = ControlKind::kLabel, .text = "J"},
    {.id = 2044,        .kind = ControlKind::kEdit},
    {.id = kJawsLabel,  .kind = ControlKind::kLabel, .text = "*Count of Jaws"},
    {.id = kJawsEdit,   .kind = ControlKind::kEdit,  .text = "3"},
    {.id = kJawSpin,    .kind = ControlKind::kSpin,  .least = 3, .most = 16, .buddy = kJawsEdit},
    {.id = kInnerChucking,    .kind = ControlKind::kCheck,  .text = "*Inner chucking"},
    {.id = kSelectParametric, .kind = ControlKind::kButton, .text = "*Select parametric clamp device"},
    {.id = 2159,              .kind = ControlKind::kLabel,  .text = "*VDM-Path for own clamp device"},
    {.id = kPath,             .kind = ControlKind::kEdit},
    {.id = kBrowse,           .kind = ControlKind::kButton, .text = "..."},
    {.id = kSelectOwn,        .kind = ControlKind::kButton, .text = "*Select own clamp device"},
};

constexpr StartText kTexts[] = {
    {kJawsLabel,        1178, "Count of Jaws"},
    {kInnerChucking,    1165, "Inner chucking"},
    {kSelectParametric,  743, "Select parametric clamp device"},
    {2159,               745, "VDM-Path for own clamp device"},
    {kSelectOwn,         744, "Select own clamp device"},
};
// clang-format on

}  // namespace

const PageTemplate kClampElemTemplate = {"CPageClampElem", 2165, kControls, kTexts};

}  // namespace vanzet::dialog
