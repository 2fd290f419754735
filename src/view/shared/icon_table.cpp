#include "view/shared/icon_table.h"

#include <algorithm>

#include "view/ids.h"

namespace vanzet::view {
namespace {

/// A selected node has the same picture in other colours, and so the same row.
// clang-format off
constexpr NodeIcon kNodeIcons[] = {
    {icon::kBezel,          "bezel",       false},
    {icon::kBillet,         "billet",      false},
    {icon::kBilletSub,      "billet",      true},
    {icon::kFigure,         "figure",      false},
    {icon::kFigureSub,      "figure",      true},
    {icon::kSolid,          "solid",       false},
    {icon::kSolidSub,       "solid",       true},
    {icon::kCenter,         "center",      false},
    {icon::kChuck,          "chuck",       false},
    {icon::kChuckSub,       "chuck",       true},
    {icon::kCollet,         "collet",      false},
    {icon::kColletSub,      "collet",      true},
    {icon::kFaceDriver,     "face-driver", false},
    {icon::kFaceDriverSub,  "face-driver", true},
    {icon::kGroup,          "group",       false},
    {icon::kJaw,            "jaw",         false},
    {icon::kJawSub,         "jaw",         true},
    {icon::kMandrel,        "mandrel",     false},
    {icon::kMandrelSub,     "mandrel",     true},
    {icon::kTailstock,      "tailstock",   false},
    {icon::kDatum,          "datum",       false},
};
// clang-format on

// Icons of buttons, by a text that is a mere sign, and by their ids.

struct SignIcon {
  std::string_view text;
  const char* file;
};
constexpr SignIcon kSigns[] = {{">>", "pick"}, {"...", "browse"}};

struct IdIcon {
  std::int32_t id;
  const char* file;
};
// clang-format off
constexpr IdIcon kIds[] = {
    {control::kOk,               "ok"    },
    {control::kHelp,             "help"  },
    {control::kLoad,             "load"  },
    {control::kSave,             "save"  },
    {control::kSelect,           "select"},
    {control::kSelectCylinder,   "select"},
    {control::kSelectParametric, "select"},
    {control::kSelectOwn,        "select"},
    {control::kPickSolid,        "solid" },
    {control::kDeleteDevice,     "delete"},
    {control::kSaveDevice,       "save"  },
};
// clang-format on

}  // namespace

std::span<const NodeIcon> NodeIcons() {
  return kNodeIcons;
}

const NodeIcon* FindNodeIcon(std::int32_t bitmap) {
  const auto* const row = std::ranges::find_if(kNodeIcons, [&](const NodeIcon& icon) {
    return icon.bitmap == bitmap || icon::Selected(icon.bitmap) == bitmap;
  });
  return row == std::end(kNodeIcons) ? nullptr : row;
}

ButtonIcon IconOfButton(std::int32_t id, std::string_view text) {
  for (const SignIcon& row : kSigns) {
    if (row.text == text) return {row.file, true};
  }
  for (const IdIcon& row : kIds) {
    if (row.id == id) return {row.file, false};
  }
  return {nullptr, false};
}

}  // namespace vanzet::view
