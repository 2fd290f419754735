#pragma once

#include <cstdint>

/// The ids of the dialog's controls, tree nodes and pictures, by name. A dialog, its views, scripts and forms
/// agree on these numbers; they never change. Plain constants: any folder may include this header.
namespace vanzet {

/// Controls, which are also the names of the events that they send. An id that several pages share has one
/// name.
namespace control {

// The dialog around the pages.
inline constexpr std::int32_t kOk = 1;
inline constexpr std::int32_t kCancel = 2;
inline constexpr std::int32_t kHelp = 2012;
inline constexpr std::int32_t kSpurs = 2020;
inline constexpr std::int32_t kLoad = 2144;
inline constexpr std::int32_t kPageArea = 2151;
inline constexpr std::int32_t kSave = 2153;
inline constexpr std::int32_t kTree = 2158;

// Several pages: the title, the picture, and the button that stores the record.
inline constexpr std::int32_t kHeader = 2171;
inline constexpr std::int32_t kPicture = 2147;
inline constexpr std::int32_t kSelect = 2015;

// The billet by numbers.
inline constexpr std::int32_t kOuterDiameter = 2022;
inline constexpr std::int32_t kCylinderLength = 2023;
inline constexpr std::int32_t kFrontAllowance = 2024;
inline constexpr std::int32_t kRearAllowance = 2025;
inline constexpr std::int32_t kInnerDiameter = 2026;
inline constexpr std::int32_t kBarLength = 2027;
inline constexpr std::int32_t kPickOuterDiameter = 2005;
inline constexpr std::int32_t kPickCylinderLength = 2006;
inline constexpr std::int32_t kPickInnerDiameter = 2009;
inline constexpr std::int32_t kHideBillet = 2138;
inline constexpr std::int32_t kSelectCylinder = 2016;

// Billets and finished parts from figures or a solid. The page of the billet by numbers takes its values
// from a solid with the same button.
inline constexpr std::int32_t kFigureOutsideLabel = 2132;
inline constexpr std::int32_t kFigureOutside = 2039;
inline constexpr std::int32_t kPickFigureOutside = 2010;
inline constexpr std::int32_t kFigureInsideLabel = 2133;
inline constexpr std::int32_t kFigureInside = 2040;
inline constexpr std::int32_t kPickFigureInside = 2011;
inline constexpr std::int32_t kSolidLabel = 2156;
inline constexpr std::int32_t kSolid = 2046;
inline constexpr std::int32_t kPickSolid = 2018;
inline constexpr std::int32_t kPartLengthLabel = 2145;
inline constexpr std::int32_t kPartLength = 2045;
inline constexpr std::int32_t kPickLengthOfFigure = 2013;
inline constexpr std::int32_t kPickLengthOfSolid = 2014;
inline constexpr std::int32_t kClampDiameterLabel = 2122;
inline constexpr std::int32_t kClampDiameter = 2035;
inline constexpr std::int32_t kPickClampDiameter = 2008;
inline constexpr std::int32_t kAngleLabel = 2117;
inline constexpr std::int32_t kAngle = 2032;

// The datum, main spindle and sub spindle.
inline constexpr std::int32_t kMainTitle = 2204;
inline constexpr std::int32_t kClampingOutMainLabel = 2202;
inline constexpr std::int32_t kClampingOutMain = 2203;
inline constexpr std::int32_t kPickClampingOutMain = 2201;
inline constexpr std::int32_t kOriginMainLabel = 2205;
inline constexpr std::int32_t kOriginMain = 2207;
inline constexpr std::int32_t kPickOriginMain = 2206;
inline constexpr std::int32_t kSubTitle = 2208;
inline constexpr std::int32_t kClampingOutSubLabel = 2210;
inline constexpr std::int32_t kClampingOutSub = 2211;
inline constexpr std::int32_t kPickClampingOutSub = 2209;
inline constexpr std::int32_t kOriginSubLabel = 2212;
inline constexpr std::int32_t kOriginSub = 2214;
inline constexpr std::int32_t kPickOriginSub = 2213;

// The steady rest.
inline constexpr std::int32_t kUseBezel = 2019;

// The values of a device, on the page of the clamp element and on that of a new device.
inline constexpr std::int32_t kEditA = 2031;
inline constexpr std::int32_t kEditB = 2033;
inline constexpr std::int32_t kEditC = 2034;
inline constexpr std::int32_t kEditD = 2036;
inline constexpr std::int32_t kEditE = 2037;
inline constexpr std::int32_t kEditF = 2038;
inline constexpr std::int32_t kEditG = 2041;
inline constexpr std::int32_t kEditH = 2042;
inline constexpr std::int32_t kEditI = 2043;
inline constexpr std::int32_t kEditJ = 2044;

// The clamp element.
inline constexpr std::int32_t kDevicePicture = 2146;
inline constexpr std::int32_t kDeviceList = 2124;
inline constexpr std::int32_t kLabelA = 2116;
inline constexpr std::int32_t kLabelB = 2119;
inline constexpr std::int32_t kLabelC = 2121;
inline constexpr std::int32_t kLabelD = 2126;
inline constexpr std::int32_t kLabelE = 2129;
inline constexpr std::int32_t kLabelF = 2131;
inline constexpr std::int32_t kLabelG = 2135;
inline constexpr std::int32_t kLabelH = 2137;
inline constexpr std::int32_t kLabelI = 2140;
inline constexpr std::int32_t kLabelJ = 2143;
inline constexpr std::int32_t kJawsLabel = 2179;
inline constexpr std::int32_t kJawsEdit = 2180;
inline constexpr std::int32_t kJawSpin = 2181;
inline constexpr std::int32_t kInnerChucking = 2141;
inline constexpr std::int32_t kSelectParametric = 2154;
inline constexpr std::int32_t kPathLabel = 2159;
inline constexpr std::int32_t kPath = 2021;
inline constexpr std::int32_t kBrowse = 2000;
inline constexpr std::int32_t kSelectOwn = 2155;

// A new device of the catalogue.
inline constexpr std::int32_t kNewPicture = 2150;
inline constexpr std::int32_t kNameList = 2123;
inline constexpr std::int32_t kNewLabelA = 2115;
inline constexpr std::int32_t kNewLabelB = 2118;
inline constexpr std::int32_t kNewLabelC = 2120;
inline constexpr std::int32_t kNewLabelD = 2125;
inline constexpr std::int32_t kNewLabelE = 2128;
inline constexpr std::int32_t kNewLabelF = 2130;
inline constexpr std::int32_t kNewLabelG = 2134;
inline constexpr std::int32_t kNewLabelH = 2136;
inline constexpr std::int32_t kNewLabelI = 2139;
inline constexpr std::int32_t kNewLabelJ = 2142;
inline constexpr std::int32_t kSaveDevice = 2152;
inline constexpr std::int32_t kDeleteDevice = 2127;

/// The edit of a device's value. Requires: a letter from 'A' to 'J'.
constexpr std::int32_t EditOfLetter(char letter) {
  constexpr std::int32_t kEdits[] = {kEditA, kEditB, kEditC, kEditD, kEditE,
                                     kEditF, kEditG, kEditH, kEditI, kEditJ};
  return kEdits[letter - 'A'];
}

}  // namespace control

/// Commands of the tree's menu.
namespace command {
inline constexpr std::int32_t kDeleteRecord = 51000;
}  // namespace command

/// The window templates of the dialog's pages.
namespace page_template {
inline constexpr std::int32_t kBezel = 2161;
inline constexpr std::int32_t kBilletCylindric = 2162;
inline constexpr std::int32_t kBilletFromFigure = 2163;
inline constexpr std::int32_t kBilletFromSolid = 2164;
inline constexpr std::int32_t kClampElem = 2165;
inline constexpr std::int32_t kClampElemNew = 2166;
inline constexpr std::int32_t kEmpty = 2168;
inline constexpr std::int32_t kFinishpartFromFigure = 2169;
inline constexpr std::int32_t kFinishpartFromSolid = 2170;
inline constexpr std::int32_t kZeroPiontShift = 2200;
}  // namespace page_template

/// Nodes of the equipment tree.
namespace node {

/// The parent of a root, and the selection while no node is selected.
inline constexpr std::int32_t kNone = 0;

inline constexpr std::int32_t kClampDevices = 1;
inline constexpr std::int32_t kClampMain = 2;
inline constexpr std::int32_t kChuckMain = 3;
inline constexpr std::int32_t kJawMain = 4;
inline constexpr std::int32_t kColletMain = 5;
inline constexpr std::int32_t kMandrelMain = 6;
inline constexpr std::int32_t kFaceDriverMain = 7;
inline constexpr std::int32_t kClampSub = 8;
inline constexpr std::int32_t kChuckSub = 9;
inline constexpr std::int32_t kJawSub = 10;
inline constexpr std::int32_t kColletSub = 11;
inline constexpr std::int32_t kMandrelSub = 12;
inline constexpr std::int32_t kFaceDriverSub = 13;
inline constexpr std::int32_t kTailstock = 14;
inline constexpr std::int32_t kCenter = 15;
inline constexpr std::int32_t kBezel = 16;

inline constexpr std::int32_t kBillets = 17;
inline constexpr std::int32_t kBilletMain = 18;
inline constexpr std::int32_t kBilletCylindricMain = 19;
inline constexpr std::int32_t kBilletFromFigureMain = 20;
inline constexpr std::int32_t kBilletFromSolidMain = 21;
inline constexpr std::int32_t kBilletSub = 22;
inline constexpr std::int32_t kBilletCylindricSub = 23;
inline constexpr std::int32_t kBilletFromFigureSub = 24;
inline constexpr std::int32_t kBilletFromSolidSub = 25;

inline constexpr std::int32_t kFinishParts = 26;
inline constexpr std::int32_t kFinishPartMain = 27;
inline constexpr std::int32_t kFinishPartFromFigureMain = 28;
inline constexpr std::int32_t kFinishPartFromSolidMain = 29;
inline constexpr std::int32_t kFinishPartSub = 30;
inline constexpr std::int32_t kFinishPartFromFigureSub = 31;
inline constexpr std::int32_t kFinishPartFromSolidSub = 32;

inline constexpr std::int32_t kRootDatum = 33;
inline constexpr std::int32_t kDatum = 34;

inline constexpr std::int32_t kNewDevices = 35;
inline constexpr std::int32_t kNewChuck = 36;
inline constexpr std::int32_t kNewCollet = 37;
inline constexpr std::int32_t kNewMandrel = 38;
inline constexpr std::int32_t kNewFaceDriver = 39;
inline constexpr std::int32_t kNewJaws = 40;
inline constexpr std::int32_t kNewJaw1 = 41;
inline constexpr std::int32_t kNewJaw2 = 42;
inline constexpr std::int32_t kNewJaw3 = 43;
inline constexpr std::int32_t kNewJaw4 = 44;
inline constexpr std::int32_t kNewJaw5 = 45;
inline constexpr std::int32_t kNewJaw6 = 46;
inline constexpr std::int32_t kNewJaw7 = 47;
inline constexpr std::int32_t kNewJaw8 = 48;
inline constexpr std::int32_t kNewCenters = 49;
inline constexpr std::int32_t kNewCenter1 = 50;
inline constexpr std::int32_t kNewCenter2 = 51;

}  // namespace node

/// The icons of tree nodes. Each name is the plain one; the next id is that of a selected node.
namespace icon {
inline constexpr std::int32_t kBezel = 2072;
inline constexpr std::int32_t kBillet = 2074;
inline constexpr std::int32_t kBilletSub = 2076;
inline constexpr std::int32_t kFigure = 2078;
inline constexpr std::int32_t kFigureSub = 2080;
inline constexpr std::int32_t kSolid = 2082;
inline constexpr std::int32_t kSolidSub = 2084;
inline constexpr std::int32_t kCenter = 2086;
inline constexpr std::int32_t kChuck = 2088;
inline constexpr std::int32_t kChuckSub = 2090;
inline constexpr std::int32_t kCollet = 2092;
inline constexpr std::int32_t kColletSub = 2094;
inline constexpr std::int32_t kFaceDriver = 2096;
inline constexpr std::int32_t kFaceDriverSub = 2098;
inline constexpr std::int32_t kGroup = 2100;
inline constexpr std::int32_t kJaw = 2102;
inline constexpr std::int32_t kJawSub = 2104;
inline constexpr std::int32_t kMandrel = 2106;
inline constexpr std::int32_t kMandrelSub = 2108;
inline constexpr std::int32_t kTailstock = 2110;
inline constexpr std::int32_t kDatum = 2112;

/// The icon of the same node while it is selected.
constexpr std::int32_t Selected(std::int32_t plain) {
  return plain + 1;
}

}  // namespace icon

/// The pictures of the pages. Those of devices are in the rows of src/devices.
namespace picture {

inline constexpr std::int32_t kNone = 0;

inline constexpr std::int32_t kBezel = 2047;
inline constexpr std::int32_t kBilletMain = 2048;
inline constexpr std::int32_t kBilletSub = 2049;
inline constexpr std::int32_t kFigure = 2050;
inline constexpr std::int32_t kSolid = 2051;
inline constexpr std::int32_t kDatum = 2114;

}  // namespace picture

}  // namespace vanzet
