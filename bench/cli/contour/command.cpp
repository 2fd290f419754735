#include "cli/commands.h"
#include "cli/contour/files.h"
#include "cli/contour/operations.h"
#include "cli/contour/region.h"
#include "contour/library.h"

namespace vanzet::cli {
namespace {

struct Row {
  const char* name;
  const char* help;
  const char* operands;
  std::size_t files;    ///< at most; a single one may be left out
  std::size_t numbers;  ///< after the files
  unsigned options;     ///< of `ContourOption`
  Result<void> (*run)(const ContourArguments&);
  const char* example;
};

// clang-format off
constexpr Row kRows[] = {
    {"info", "Prints the spans, length, area, direction and box of each contour.", "[FILE]", 1, 0,
     kFile | kSelect, ContourInfo, "vanzet contour info slot.txt"},
    {"near", "Finds the point of each contour that is nearest to a point.", "[FILE] X Y", 1, 2,
     kFile | kSelect, ContourNear, "vanzet contour near slot.txt 12.5 -3"},
    {"inside", "Finds out on which side of each contour a point is; status 3: outside.", "[FILE] X Y", 1, 2,
     kFile | kSelect, ContourInside, "vanzet contour inside slot.txt 0 0 --json"},
    {"intersect", "Finds where the contours of one file meet those of another.", "A B", 2, 0,
     kFile | kArea, ContourIntersect, "vanzet contour intersect slot.txt shaft.txt --svg both.svg"},
    {"clean", "Makes loops that do not cross of closed contours, by the even-odd rule.", "[FILE]", 1, 0,
     kFile | kSelect | kDxf, ContourClean, "vanzet contour clean pinched.txt"},
    {"unite", "Unites the regions that the contours of two files enclose.", "A B", 2, 0,
     kFile | kDxf, ContourUnite, "vanzet contour unite slot.txt lens.txt"},
    {"subtract", "Takes the region of B away from that of A.", "A B", 2, 0,
     kFile | kDxf, ContourSubtract, "vanzet contour subtract ring.txt slot.txt --svg rest.svg"},
    {"split", "Replaces all arcs by chords.", "[FILE]", 1, 0,
     kFile | kSelect | kTolerance | kDxf, ContourSplit, "vanzet contour split slot.txt --tolerance 0.1"},
    {"reduce", "Removes vertices that the contour does not need.", "[FILE]", 1, 0,
     kFile | kSelect | kTolerance | kDxf, ContourReduce, "vanzet contour reduce scan.txt --tolerance 0.05"},
    {"transform", "Moves, turns, mirrors and scales contours, in the order given.", "[FILE]", 1, 0,
     kFile | kSelect | kSteps | kDxf, ContourTransform,
     "vanzet contour transform slot.txt --turn 90 --move 20,0 --mirror x"},
    {"part", "Cuts out the part of a contour from one point to another, along its direction.",
     "[FILE] X1 Y1 X2 Y2", 1, 4,
     kFile | kSelect | kDxf, ContourPart, "vanzet contour part slot.txt 0 10 30 10"},
    {"section", "Cuts a contour between two points with the working contour.", "[FILE] X1 Y1 X2 Y2", 1, 4,
     kFile | kSelect | kDxf, ContourSection, "vanzet contour section slot.txt 25 10 -25 -10"},
    {"trim", "Cuts a length off the ends of contours.", "[FILE] LENGTH", 1, 1,
     kFile | kSelect | kEnd | kOpening | kDxf, ContourTrim, "vanzet contour trim shaft.txt 12.5 --at both"},
    {"extend", "Adds straight pieces at the ends of contours.", "[FILE] LENGTH", 1, 1,
     kFile | kSelect | kEnd | kDxf, ContourExtend, "vanzet contour extend shaft.txt 5 --at both"},
    {"offset", "Makes contours at a distance from others.", "[FILE] DISTANCE", 1, 1,
     kFile | kSelect | kOffset | kDxf, ContourOffset, "vanzet contour offset slot.txt 2 --inside --steps 4"},
    {"blend", "Changes the radius of the arc that is nearest to a point.", "[FILE] X Y R", 1, 3,
     kFile | kSelect | kDxf, ContourBlend, "vanzet contour blend bracket.dxf 20 20 4 --contour 1"},
    {"equalise", "Cuts two contours into the same number of spans, in equal shares.", "A B", 2, 0,
     kFile | kSelect | kForce | kDxf, ContourEqualise, "vanzet contour equalise slot.txt lens.txt"},
    {"same", "Finds out whether two contours have the same shape, and the motion between them; status 3: they do not.", "A B", 2, 0,
     kFile | kSelect | kMirror, ContourSame, "vanzet contour same slot.txt moved_slot.txt"},
    {"circle", "Makes a circle of two half turns, anticlockwise.", "X Y R", 0, 3,
     kDxf, ContourCircle, "vanzet contour circle 0 0 25 | vanzet contour split"},
    {"ellipse", "Makes an ellipse of arcs around a point, anticlockwise, and transforms it.",
     "X Y RX RY", 0, 4,
     kSteps | kDxf, ContourEllipse, "vanzet contour ellipse 0 0 30 20 --turn 30"},
    {"biarc", "Makes two tangent arcs from one point and direction to another.", "X1 Y1 A1 X2 Y2 A2", 0, 6,
     kDxf, ContourBiarc, "vanzet contour biarc 0 0 90 40 0 -60"},
    {"xml", "Writes contours as XML of the geometry library.", "[FILE]", 1, 0,
     kFile | kSelect | kXmlKind, ContourXml, "vanzet contour xml slot.txt > slot.xml"},
    {"text", "Writes contours in a text form of the geometry library.", "[FILE]", 1, 0,
     kFile | kSelect | kTextForm, ContourText, "vanzet contour text slot.txt --form report"},
};
// clang-format on

constexpr const char* kNotes =
    "FILE contains contours in the text form, a drawing in DXF, or XML of the geometry library; its first "
    "bytes\n"
    "say which. Without FILE, or for '-', standard input is read. Lengths are in millimetres, angles in "
    "degrees.\n"
    "Write a negative number with its leading zero: -0.5, not -.5.";

void AddOperation(Command& contour, const Row& row, Context& context) {
  const auto arguments = std::make_shared<ContourArguments>();
  arguments->texts = &context.texts;
  arguments->hasFindings = &context.hasFindings;
  Command& command = contour.AddCommand(row.name, row.help);
  const std::size_t least = row.numbers + (row.files == 2 ? 2 : 0);
  Parameter& words = command.AddOperands(row.operands, "", arguments->words);
  words.Count(static_cast<int>(least), static_cast<int>(row.numbers + row.files)).isRequired = least > 0;
  AddContourOptions(command, *arguments, row.options);
  command.notes = kNotes;
  command.examples = {row.example};
  command.check = [=, &row] {
    SplitContourWords(*arguments, row.operands, row.files, row.numbers);
    CheckContourArguments(*arguments);
  };
  command.work = [=, &row]() -> Result<void> {
    VANZET_DO(CheckOutputs(*arguments));
    contour::UseMillimetres();
    const auto done = contour::Guarded([&] { return row.run(*arguments); });
    return done ? *done : done.fault();
  };
}

}  // namespace

void AddContour(Command& vanzet, Context& context) {
  Command& contour = vanzet.AddCommand("contour", "Measures, changes and draws contours of lines and arcs.");
  contour.notes = kNotes;
  contour.examples = {"vanzet contour info slot.txt --svg slot.svg --numbers"};
  for (const Row& row : kRows) AddOperation(contour, row, context);
}

}  // namespace vanzet::cli
