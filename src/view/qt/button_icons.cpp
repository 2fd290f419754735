#include "view/qt/button_icons.h"

#include "view/ids.h"

namespace vanzet::view::qt {
namespace {

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

ButtonIcon IconOfButton(std::int32_t id, std::string_view text) {
  for (const SignIcon& row : kSigns) {
    if (row.text == text) return {row.file, true};
  }
  for (const IdIcon& row : kIds) {
    if (row.id == id) return {row.file, false};
  }
  return {nullptr, false};
}

}  // namespace vanzet::view::qt
