#include "view/qt/button_icons.h"

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
    {   1, "ok"    }, {2012, "help"  }, {2144, "load"  }, {2153, "save"  },
    {2015, "select"}, {2016, "select"}, {2154, "select"}, {2155, "select"},
    {2018, "solid" }, {2127, "delete"}, {2152, "save"  },
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
