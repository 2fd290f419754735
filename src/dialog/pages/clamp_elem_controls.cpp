#include "dialog/pages/clamp_elem_controls.h"

#include "host/message_ids.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = control::kDevicePicture,            .kind = ControlKind::kPicture},
    {.id = control::kDeviceList,         .kind = ControlKind::kCombo,  .isList = true},
    {.id = control::kLabelA,    .kind = ControlKind::kLabel,  .text = "A"},
    {.id = control::kEditA,     .kind = ControlKind::kEdit},
    {.id = control::kLabelB,    .kind = ControlKind::kLabel,  .text = "B"},
    {.id = control::kEditB,     .kind = ControlKind::kEdit},
    {.id = control::kLabelC,    .kind = ControlKind::kLabel,  .text = "C"},
    {.id = control::kEditC,     .kind = ControlKind::kEdit},
    {.id = control::kLabelD,    .kind = ControlKind::kLabel,  .text = "D"},
    {.id = control::kEditD,     .kind = ControlKind::kEdit},
    {.id = control::kLabelE,    .kind = ControlKind::kLabel,  .text = "E"},
    {.id = control::kEditE,     .kind = ControlKind::kEdit},
    {.id = control::kLabelF,    .kind = ControlKind::kLabel,  .text = "F"},
    {.id = control::kEditF,     .kind = ControlKind::kEdit},
    {.id = control::kLabelG,    .kind = ControlKind::kLabel,  .text = "G"},
    {.id = control::kEditG,     .kind = ControlKind::kEdit},
    {.id = control::kLabelH,    .kind = ControlKind::kLabel,  .text = "H"},
    {.id = control::kEditH,     .kind = ControlKind::kEdit},
    {.id = control::kLabelI,    .kind = ControlKind::kLabel,  .text = "I"},
    {.id = control::kEditI,     .kind = ControlKind::kEdit},
    {.id = control::kLabelJ,    .kind = ControlKind::kLabel,  .text = "J"},
    {.id = control::kEditJ,     .kind = ControlKind::kEdit},
    {.id = control::kJawsLabel,          .kind = ControlKind::kLabel},
    {.id = control::kJawsEdit,           .kind = ControlKind::kEdit,   .text = "3"},
    {.id = control::kJawSpin,            .kind = ControlKind::kSpin,   .least = 3, .most = 16, .buddy = control::kJawsEdit},
    {.id = control::kInnerChucking,      .kind = ControlKind::kCheck},
    {.id = control::kSelectParametric,   .kind = ControlKind::kButton},
    {.id = control::kPathLabel, .kind = ControlKind::kLabel},
    {.id = control::kPath,               .kind = ControlKind::kEdit},
    {.id = control::kBrowse,             .kind = ControlKind::kButton, .text = "..."},
    {.id = control::kSelectOwn,          .kind = ControlKind::kButton},
};

constexpr StartText kTexts[] = {
    {control::kJawsLabel,          message::kJawCount},
    {control::kInnerChucking,      message::kInnerChucking},
    {control::kSelectParametric,   message::kSelectParametric},
    {control::kPathLabel, message::kOwnPath},
    {control::kSelectOwn,          message::kSelectOwn},
};
// clang-format on

}  // namespace

const PageTemplate kClampElemTemplate = {"CPageClampElem", page_template::kClampElem, kControls, kTexts};

}  // namespace vanzet::dialog
