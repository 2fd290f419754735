#pragma once

#include <cstdint>

/// The ids of the program's texts in the host's catalogue, by name; what each says: host/messages.cpp.
namespace vanzet::message {

inline constexpr std::int32_t kOk = 5;
inline constexpr std::int32_t kHelp = 8;
inline constexpr std::int32_t kSelectFigure = 26;
inline constexpr std::int32_t kSolid = 406;
inline constexpr std::int32_t kWrongCenter = 699;
inline constexpr std::int32_t kEquipmentDefinition = 700;
inline constexpr std::int32_t kLoadConfiguration = 701;
inline constexpr std::int32_t kSaveConfiguration = 702;
inline constexpr std::int32_t kClampDevice = 703;
inline constexpr std::int32_t kMainSpindle = 704;
inline constexpr std::int32_t kChuck = 705;
inline constexpr std::int32_t kJaw = 706;
inline constexpr std::int32_t kCollet = 707;
inline constexpr std::int32_t kMandrel = 708;
inline constexpr std::int32_t kFaceDriver = 709;
inline constexpr std::int32_t kSubSpindle = 710;
inline constexpr std::int32_t kTailstock = 711;
inline constexpr std::int32_t kCenter = 712;
inline constexpr std::int32_t kBezel = 713;
inline constexpr std::int32_t kBillet = 714;
inline constexpr std::int32_t kBilletCylindric = 715;
inline constexpr std::int32_t kBilletFromGeometry = 717;
inline constexpr std::int32_t kRootDatum = 718;
inline constexpr std::int32_t kDatum = 719;
inline constexpr std::int32_t kCreateClampDevice = 720;
inline constexpr std::int32_t kNoDeviceName = 721;
inline constexpr std::int32_t kNoDeviceValue = 722;
inline constexpr std::int32_t kOverwriteDevice = 723;
inline constexpr std::int32_t kSelect = 724;
inline constexpr std::int32_t kValuesFromSolid = 725;
inline constexpr std::int32_t kFigureOutside = 726;
inline constexpr std::int32_t kFigureInside = 727;
inline constexpr std::int32_t kNoDeviceSelected = 728;
inline constexpr std::int32_t kRemoveBillet = 729;
inline constexpr std::int32_t kNoFigure = 731;
inline constexpr std::int32_t kOverwriteDefinition = 732;
inline constexpr std::int32_t kDeleteDevice = 733;
inline constexpr std::int32_t kSave = 734;
inline constexpr std::int32_t kDelete = 735;
inline constexpr std::int32_t kHideBillet = 739;
inline constexpr std::int32_t kSpindle = 741;
inline constexpr std::int32_t kUseBezel = 742;
inline constexpr std::int32_t kSelectParametric = 743;
inline constexpr std::int32_t kSelectOwn = 744;
inline constexpr std::int32_t kOwnPath = 745;
inline constexpr std::int32_t kInvalidVdmName = 746;
inline constexpr std::int32_t kInvalidDevice = 747;
inline constexpr std::int32_t kWrongChuck = 748;
inline constexpr std::int32_t kWrongJaw = 749;
inline constexpr std::int32_t kBilletFromSolid = 1160;
inline constexpr std::int32_t kInvalidSolid = 1162;
inline constexpr std::int32_t kSelectSolid = 1163;
inline constexpr std::int32_t kPartLength = 1164;
inline constexpr std::int32_t kInnerChucking = 1165;
inline constexpr std::int32_t kClampDiameter = 1166;
inline constexpr std::int32_t kAngle = 1167;
inline constexpr std::int32_t kBarTooShort = 1168;
inline constexpr std::int32_t kBoreTooWide = 1169;
inline constexpr std::int32_t kNoCatalogue = 1170;
inline constexpr std::int32_t kFinishPart = 1171;
inline constexpr std::int32_t kFinishPartFromGeometry = 1172;
inline constexpr std::int32_t kFinishPartFromSolid = 1173;
inline constexpr std::int32_t kDeleteRecord = 1174;
inline constexpr std::int32_t kClampingOutMain = 1175;
inline constexpr std::int32_t kClampingOutSub = 1176;
inline constexpr std::int32_t kOrigin = 1177;
inline constexpr std::int32_t kJawCount = 1178;

}  // namespace vanzet::message
