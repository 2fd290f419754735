#include "store/clamp_schema.h"

namespace vanzet {
namespace {

using Text = std::string_view;

constexpr Text kZeros[] = {"0", "0", "0"};
constexpr Text kMainBillet[] = {"MainBillet", "0", "0", "0"};
constexpr Text kSubBillet[] = {"SubBillet", "0", "0", "0"};

constexpr SectionItems kOne{kZeros, 1};
constexpr SectionItems kTwo{kZeros, 2};
constexpr SectionItems kThree{kZeros, 3};
constexpr SectionItems kEmpty{};

// clang-format off
constexpr ClampOperation kOperations[kClampOperations] = {
    // section 0                           kind   section 1  section 2  section 3
    { {"Billet definition", kClampVersionText}, 1, {{                                    }} },
    { {"Main Spindle"},                      2, {{  kThree,    kTwo,      kMainBillet }} },
    { {"Sub Spindle"},                       2, {{  kThree,    kTwo,      kSubBillet  }} },
    { {"Datum NPV"},                         2, {{  kOne,      kEmpty,    kEmpty      }} },
    { {"Luenette"},                          2, {{  kOne,      kEmpty,    kEmpty      }} },
    { {"VRML Main Clampdevice"},             2, {{  kEmpty                            }} },
    { {"VRML Main Jaw", "D2T Main Jaw"},     2, {{  kEmpty,    kEmpty                 }} },
    { {"VRML Sub Clampdevice"},              2, {{  kEmpty                            }} },
    { {"VRML Sub Jaw", "D2T Sub Jaw"},       2, {{  kEmpty,    kEmpty                 }} },
    { {"VRML Center"},                       2, {{  kEmpty                            }} },
    { {"Center"},                            2, {{  kThree                            }} },
    { {"2D Geometry for main clamp"},        2, {{  kEmpty                            }} },
    { {"2D Geometry for main jaw"},          2, {{  kEmpty                            }} },
    { {"2D Geometry for sub clamp"},         2, {{  kEmpty                            }} },
    { {"2D Geometry for sub jaw"},           2, {{  kEmpty                            }} },
    { {"2D Geometry for center"},            2, {{  kEmpty                            }} },
    { {"Finishpart from Main"},              2, {{  kOne                              }} },
    { {"Finishpart from Sub"},               2, {{  kOne                              }} },
};
// clang-format on

}  // namespace

std::span<const ClampOperation, kClampOperations> ClampOperations() {
  return kOperations;
}

}  // namespace vanzet
