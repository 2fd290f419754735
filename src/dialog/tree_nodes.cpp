#include "dialog/tree_nodes.h"

#include <algorithm>
#include <cassert>

namespace vanzet::dialog {
namespace {

using enum PageId;

constexpr NeedsOf kAny = NeedsOf::kNothing;
constexpr NeedsOf kSub = NeedsOf::kSubSpindle;
constexpr NeedsOf kTail = NeedsOf::kTailStock;
constexpr NeedsOf kLun = NeedsOf::kLun;

// clang-format off
constexpr TreeNodeRow kNodes[] = {
    // id  message text                      number parent needs  bitmaps      page                 spindle type
    {  1,  703, "Clampdevice",               0,      0, kAny,  2100, 2100, kEmpty,                0,  0 },
    {  2,  704, "Mainspindle",               0,      1, kAny,  2088, 2089, kEmpty,                0,  0 },
    {  3,  705, "Chuck",                     0,      2, kAny,  2088, 2089, kClampElem,            0,  1 },
    {  4,  706, "Jaw",                       0,      3, kAny,  2102, 2103, kClampElem,            0,  5 },
    {  5,  707, "Collet",                    0,      2, kAny,  2092, 2093, kClampElem,            0,  2 },
    {  6,  708, "Mandrel",                   0,      2, kAny,  2106, 2107, kClampElem,            0,  3 },
    {  7,  709, "Face Driver",               0,      2, kAny,  2096, 2097, kClampElem,            0,  4 },
    {  8,  710, "Subspindle",                0,      1, kSub,  2090, 2091, kEmpty,                1,  0 },
    {  9,  705, "Chuck",                     0,      8, kSub,  2090, 2091, kClampElem,            1,  1 },
    { 10,  706, "Jaw",                       0,      9, kSub,  2104, 2105, kClampElem,            1,  5 },
    { 11,  707, "Collet",                    0,      8, kSub,  2094, 2095, kClampElem,            1,  2 },
    { 12,  708, "Mandrel",                   0,      8, kSub,  2108, 2109, kClampElem,            1,  3 },
    { 13,  709, "Face Driver",               0,      8, kSub,  2098, 2099, kClampElem,            1,  4 },
    { 14,  711, "Tailstock",                 0,      1, kTail, 2110, 2111, kEmpty,                0,  0 },
    { 15,  712, "Center",                    0,     14, kTail, 2086, 2087, kClampElem,            1, 13 },
    { 16,  713, "Bezel",                     0,      1, kLun,  2072, 2073, kBezel,                0,  0 },
    { 17,  714, "Billet",                    0,      0, kAny,  2100, 2100, kEmpty,                0,  0 },
    { 18,  704, "Mainspindle",               0,     17, kAny,  2074, 2075, kEmpty,                0,  0 },
    { 19,  715, "Billet cylindrical",        0,     18, kAny,  2074, 2075, kBilletCylindric,      0,  0 },
    { 20,  717, "Billet from Geometry",      0,     18, kAny,  2078, 2079, kBilletFromFigure,     0,  0 },
    { 21, 1160, "Billet from Solid",         0,     18, kAny,  2082, 2083, kBilletFromSolid,      0,  0 },
    { 22,  710, "Subspindle",                0,     17, kSub,  2076, 2077, kEmpty,                1,  0 },
    { 23,  715, "Billet cylindric Sub",      0,     22, kSub,  2076, 2077, kBilletCylindric,      1,  0 },
    { 24,  717, "Billet from geometry",      0,     22, kSub,  2080, 2081, kBilletFromFigure,     1,  0 },
    { 25, 1160, "Billet from Solid",         0,     22, kSub,  2084, 2085, kBilletFromSolid,      1,  0 },
    { 26, 1171, "Finishpart",                0,      0, kAny,  2100, 2100, kEmpty,                0,  0 },
    { 27,  704, "Mainspindle",               0,     26, kAny,  2074, 2075, kEmpty,                0,  0 },
    { 28, 1172, "Finishpart from Geometry",  0,     27, kAny,  2078, 2079, kFinishpartFromFigure, 0,  0 },
    { 29, 1173, "Finishpart from Solid",     0,     27, kAny,  2082, 2083, kFinishpartFromSolid,  0,  0 },
    { 30,  710, "Subspindle",                0,     26, kSub,  2076, 2077, kEmpty,                1,  0 },
    { 31, 1172, "Finishpart from Geometry",  0,     30, kSub,  2080, 2081, kFinishpartFromFigure, 1,  0 },
    // The main spindle's bitmaps, unlike node 25: it is wanted so.
    { 32, 1173, "Finishpart from Solid",     0,     30, kSub,  2082, 2083, kFinishpartFromSolid,  1,  0 },
    { 33,  718, "Root Datum",                0,      0, kAny,  2100, 2100, kEmpty,                0,  0 },
    { 34,  719, "Datum",                     0,     33, kAny,  2112, 2113, kZeroPiontShift,       0,  0 },
    { 35,  720, "Create new Clampdevice",    0,      0, kAny,  2100, 2100, kEmpty,                0,  0 },
    { 36,  705, "Chuck",                     0,     35, kAny,  2088, 2089, kClampElemNew,         0,  1 },
    { 37,  707, "Collet",                    0,     35, kAny,  2092, 2093, kClampElemNew,         0,  2 },
    { 38,  708, "Mandrel",                   0,     35, kAny,  2106, 2107, kClampElemNew,         0,  3 },
    { 39,  709, "Face Driver",               0,     35, kAny,  2096, 2097, kClampElemNew,         0,  4 },
    { 40,  706, "Jaw",                       0,     35, kAny,  2102, 2103, kClampElemNew,         0,  0 },
    { 41,  706, "Jaw",                       1,     40, kAny,  2102, 2103, kClampElemNew,         0,  5 },
    { 42,  706, "Jaw",                       2,     40, kAny,  2102, 2103, kClampElemNew,         0,  6 },
    { 43,  706, "Jaw",                       3,     40, kAny,  2102, 2103, kClampElemNew,         0,  7 },
    { 44,  706, "Jaw",                       4,     40, kAny,  2102, 2103, kClampElemNew,         0,  8 },
    { 45,  706, "Jaw",                       5,     40, kAny,  2102, 2103, kClampElemNew,         0,  9 },
    { 46,  706, "Jaw",                       6,     40, kAny,  2102, 2103, kClampElemNew,         0, 10 },
    { 47,  706, "Jaw",                       7,     40, kAny,  2102, 2103, kClampElemNew,         0, 11 },
    { 48,  706, "Jaw",                       8,     40, kAny,  2102, 2103, kClampElemNew,         0, 12 },
    { 49,  712, "Center",                    0,     35, kAny,  2086, 2087, kClampElemNew,         0,  0 },
    { 50,  712, "Center",                    1,     49, kAny,  2086, 2087, kClampElemNew,         0, 13 },
    { 51,  712, "Center",                    2,     49, kAny,  2086, 2087, kClampElemNew,         0, 14 },
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
