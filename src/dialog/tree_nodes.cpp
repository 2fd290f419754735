#include "dialog/tree_nodes.h"

#include <algorithm>
#include <cassert>

#include "host/message_ids.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

using enum PageId;

constexpr NeedsOf kAny = NeedsOf::kNothing;
constexpr NeedsOf kSub = NeedsOf::kSubSpindle;
constexpr NeedsOf kTail = NeedsOf::kTailStock;
constexpr NeedsOf kLun = NeedsOf::kLun;

// clang-format off
constexpr TreeNodeRow kNodes[] = {
    // node, parent, message, needs, icon, page, spindle, type, then the number and the default text, if any
    {node::kClampDevices,             node::kNone,           message::kClampDevice,            kAny,  icon::kGroup,         kEmpty,                0,  0},
    {node::kClampMain,                node::kClampDevices,   message::kMainSpindle,            kAny,  icon::kChuck,         kEmpty,                0,  0},
    {node::kChuckMain,                node::kClampMain,      message::kChuck,                  kAny,  icon::kChuck,         kClampElem,            0,  1},
    {node::kJawMain,                  node::kChuckMain,      message::kJaw,                    kAny,  icon::kJaw,           kClampElem,            0,  5},
    {node::kColletMain,               node::kClampMain,      message::kCollet,                 kAny,  icon::kCollet,        kClampElem,            0,  2},
    {node::kMandrelMain,              node::kClampMain,      message::kMandrel,                kAny,  icon::kMandrel,       kClampElem,            0,  3},
    {node::kFaceDriverMain,           node::kClampMain,      message::kFaceDriver,             kAny,  icon::kFaceDriver,    kClampElem,            0,  4},
    {node::kClampSub,                 node::kClampDevices,   message::kSubSpindle,             kSub,  icon::kChuckSub,      kEmpty,                1,  0},
    {node::kChuckSub,                 node::kClampSub,       message::kChuck,                  kSub,  icon::kChuckSub,      kClampElem,            1,  1},
    {node::kJawSub,                   node::kChuckSub,       message::kJaw,                    kSub,  icon::kJawSub,        kClampElem,            1,  5},
    {node::kColletSub,                node::kClampSub,       message::kCollet,                 kSub,  icon::kColletSub,     kClampElem,            1,  2},
    {node::kMandrelSub,               node::kClampSub,       message::kMandrel,                kSub,  icon::kMandrelSub,    kClampElem,            1,  3},
    {node::kFaceDriverSub,            node::kClampSub,       message::kFaceDriver,             kSub,  icon::kFaceDriverSub, kClampElem,            1,  4},
    {node::kTailstock,                node::kClampDevices,   message::kTailstock,              kTail, icon::kTailstock,     kEmpty,                0,  0},
    {node::kCenter,                   node::kTailstock,      message::kCenter,                 kTail, icon::kCenter,        kClampElem,            1, 13},
    {node::kBezel,                    node::kClampDevices,   message::kBezel,                  kLun,  icon::kBezel,         kBezel,                0,  0},
    {node::kBillets,                  node::kNone,           message::kBillet,                 kAny,  icon::kGroup,         kEmpty,                0,  0},
    {node::kBilletMain,               node::kBillets,        message::kMainSpindle,            kAny,  icon::kBillet,        kEmpty,                0,  0},
    {node::kBilletCylindricMain,      node::kBilletMain,     message::kBilletCylindric,        kAny,  icon::kBillet,        kBilletCylindric,      0,  0},
    {node::kBilletFromFigureMain,     node::kBilletMain,     message::kBilletFromGeometry,     kAny,  icon::kFigure,        kBilletFromFigure,     0,  0},
    {node::kBilletFromSolidMain,      node::kBilletMain,     message::kBilletFromSolid,        kAny,  icon::kSolid,         kBilletFromSolid,      0,  0},
    {node::kBilletSub,                node::kBillets,        message::kSubSpindle,             kSub,  icon::kBilletSub,     kEmpty,                1,  0},
    {node::kBilletCylindricSub,       node::kBilletSub,      message::kBilletCylindric,        kSub,  icon::kBilletSub,     kBilletCylindric,      1,  0, 0, "Billet cylindric Sub"},
    {node::kBilletFromFigureSub,      node::kBilletSub,      message::kBilletFromGeometry,     kSub,  icon::kFigureSub,     kBilletFromFigure,     1,  0, 0, "Billet from geometry"},
    {node::kBilletFromSolidSub,       node::kBilletSub,      message::kBilletFromSolid,        kSub,  icon::kSolidSub,      kBilletFromSolid,      1,  0},
    {node::kFinishParts,              node::kNone,           message::kFinishPart,             kAny,  icon::kGroup,         kEmpty,                0,  0},
    {node::kFinishPartMain,           node::kFinishParts,    message::kMainSpindle,            kAny,  icon::kBillet,        kEmpty,                0,  0},
    {node::kFinishPartFromFigureMain, node::kFinishPartMain, message::kFinishPartFromGeometry, kAny,  icon::kFigure,        kFinishpartFromFigure, 0,  0},
    {node::kFinishPartFromSolidMain,  node::kFinishPartMain, message::kFinishPartFromSolid,    kAny,  icon::kSolid,         kFinishpartFromSolid,  0,  0},
    {node::kFinishPartSub,            node::kFinishParts,    message::kSubSpindle,             kSub,  icon::kBilletSub,     kEmpty,                1,  0},
    {node::kFinishPartFromFigureSub,  node::kFinishPartSub,  message::kFinishPartFromGeometry, kSub,  icon::kFigureSub,     kFinishpartFromFigure, 1,  0},
    // The main spindle's icon, unlike that of the billet from a solid: required so.
    {node::kFinishPartFromSolidSub, node::kFinishPartSub, message::kFinishPartFromSolid, kSub, icon::kSolid,      kFinishpartFromSolid, 1,  0},
    {node::kRootDatum,              node::kNone,          message::kRootDatum,           kAny, icon::kGroup,      kEmpty,               0,  0},
    {node::kDatum,                  node::kRootDatum,     message::kDatum,               kAny, icon::kDatum,      kZeroPiontShift,      0,  0},
    {node::kNewDevices,             node::kNone,          message::kCreateClampDevice,   kAny, icon::kGroup,      kEmpty,               0,  0},
    {node::kNewChuck,               node::kNewDevices,    message::kChuck,               kAny, icon::kChuck,      kClampElemNew,        0,  1},
    {node::kNewCollet,              node::kNewDevices,    message::kCollet,              kAny, icon::kCollet,     kClampElemNew,        0,  2},
    {node::kNewMandrel,             node::kNewDevices,    message::kMandrel,             kAny, icon::kMandrel,    kClampElemNew,        0,  3},
    {node::kNewFaceDriver,          node::kNewDevices,    message::kFaceDriver,          kAny, icon::kFaceDriver, kClampElemNew,        0,  4},
    {node::kNewJaws,                node::kNewDevices,    message::kJaw,                 kAny, icon::kJaw,        kClampElemNew,        0,  0},
    {node::kNewJaw1,                node::kNewJaws,       message::kJaw,                 kAny, icon::kJaw,        kClampElemNew,        0,  5, 1},
    {node::kNewJaw2,                node::kNewJaws,       message::kJaw,                 kAny, icon::kJaw,        kClampElemNew,        0,  6, 2},
    {node::kNewJaw3,                node::kNewJaws,       message::kJaw,                 kAny, icon::kJaw,        kClampElemNew,        0,  7, 3},
    {node::kNewJaw4,                node::kNewJaws,       message::kJaw,                 kAny, icon::kJaw,        kClampElemNew,        0,  8, 4},
    {node::kNewJaw5,                node::kNewJaws,       message::kJaw,                 kAny, icon::kJaw,        kClampElemNew,        0,  9, 5},
    {node::kNewJaw6,                node::kNewJaws,       message::kJaw,                 kAny, icon::kJaw,        kClampElemNew,        0, 10, 6},
    {node::kNewJaw7,                node::kNewJaws,       message::kJaw,                 kAny, icon::kJaw,        kClampElemNew,        0, 11, 7},
    {node::kNewJaw8,                node::kNewJaws,       message::kJaw,                 kAny, icon::kJaw,        kClampElemNew,        0, 12, 8},
    {node::kNewCenters,             node::kNewDevices,    message::kCenter,              kAny, icon::kCenter,     kClampElemNew,        0,  0},
    {node::kNewCenter1,             node::kNewCenters,    message::kCenter,              kAny, icon::kCenter,     kClampElemNew,        0, 13, 1},
    {node::kNewCenter2,             node::kNewCenters,    message::kCenter,              kAny, icon::kCenter,     kClampElemNew,        0, 14, 2},
};
// clang-format on

}  // namespace

std::span<const TreeNodeRow> TreeNodes() {
  return kNodes;
}

const TreeNodeRow& TreeNodeOf(std::int32_t id) {
  const auto* const row = std::ranges::find(kNodes, id, &TreeNodeRow::id);
  assert(row != std::end(kNodes) && "every node of the tree has a row");
  return *row;
}

}  // namespace vanzet::dialog
