#include "macro/billet_drawing.h"

#include <string>
#include <string_view>

#include "base/numbers.h"
#include "host/bridge.h"
#include "host/host_functions.h"
#include "host/macro_variables.h"
#include "macro/command_text.h"

namespace vanzet {
namespace {

using macro::SendLine;

constexpr std::int32_t kCylindrical = 1;

struct Names {
  std::string_view figure;
  std::string_view layer;
};
constexpr Names kBilletMain = {"BilletM", "Billet_Spindel_1"};
constexpr Names kBilletSub = {"BilletS", "Billet_Spindel_2"};
constexpr Names kMarksMain = {"ZOffsetMain", "Billet_out_HS"};
constexpr Names kMarksSub = {"ZOffsetSub", "Billet_out_GS"};

/// Prepares the host for a drawing in the plane of turning.
void BeginTurningDrawing() {
  SendLine("ori");
  SendLine("mct turning");
  // The answer of the host is not used.
  host::Flag ok = 0;
  host::hostFunctions.OrvoWriteGlobalI("i_diaprg", 1, &ok);
}

/// The name of the current layer.
std::string CurrentLayer() {
  return host::hostFunctions.OrvoGetLayerName(host::hostFunctions.OrvoGetCurrentLayer());
}

/// Makes a layer current; the host makes a missing one.
void ChangeLayer(std::string_view name) {
  SendLine("lay ch '", name, "'");
}

/// The lines of one picture. s100 is the axis; s101 and s102 are the outer lines, s103 and s104 those of the
/// bore; s110 to s114 are the stations along the axis.
class Picture {
 public:
  Picture(const BilletDrawing& billet, std::string_view figure) : billet_(billet), figure_(figure) {}

  void Send(double z) const {
    OuterLines();
    Stations(z);
    SendLine("fig cre ", figure_, " z0x0y0");
    Outline();
    if (IsBored()) Bore();
    if (billet_.frontAllowance > 0) StationStrokes(111);
    // Unlike the others this one is drawn for a negative value too.
    if (billet_.rearAllowance != 0) StationStrokes(112);
    if (IsBar()) StationStrokes(113);
  }

 private:
  bool IsBored() const { return billet_.innerDiameter > 0; }
  bool IsBar() const { return billet_.barLength > 0; }

  /// Where outline and bore end: at the end of the bar, else where the part is cut off.
  std::int32_t EndStation() const { return IsBar() ? 114 : 113; }

  void OuterLines() const {
    SendLine("s100=h 0");
    SendLine("s101=h ", billet_.outerDiameter);
    SendLine("s102=h ", -billet_.outerDiameter);
  }

  void Stations(double z) const {
    SendLine("s110=v ", z + billet_.frontAllowance);
    SendLine("s111=v ", z);
    SendLine("s112=v ", z - billet_.partLength);
    SendLine("s113=v ", z - billet_.partLength - billet_.rearAllowance);
    SendLine("s114=v ", z + billet_.frontAllowance - billet_.barLength);
  }

  void Outline() const {
    SendLine("p100=s100 s110");
    AppendContour("p100 ts110 as101 as", EndStation(), " ts102 ts110 p100");
  }

  void Bore() const {
    SendLine("s103=h ", billet_.innerDiameter);
    SendLine("s104=h ", -billet_.innerDiameter);
    SendLine("p100=s103 s110");
    SendLine("p101=s103 s", EndStation());
    AppendContour("p100 as103 p101");
    // The points stay those of s103; the host brings them onto the line.
    AppendContour("p100 as104 p101");
  }

  /// A cross line at a station; on a bored billet only from the outer lines to the bore.
  void StationStrokes(std::int32_t station) const {
    SendLine("p100=s101 s", station);
    if (IsBored()) {
      SendLine("p101=s103 s", station);
      AppendContour("p100 as", station, " p101");
      SendLine("p100=s104 s", station);
    }
    SendLine("p101=s102 s", station);
    AppendContour("p100 as", station, " p101");
  }

  template <class... Parts>
  void AppendContour(const Parts&... elements) const {
    SendLine("k30000 ", elements..., " ek");
    SendLine("figure append ", figure_, " k30000");
  }

  const BilletDrawing& billet_;
  std::string_view figure_;
};

void InsertFigure(std::string_view figure) {
  SendLine("set m30000");
  SendLine("win 1");
  SendLine("fig ins ", figure, " m30000");
  SendLine("del m30000");
  SendLine("red -1");
}

/// Begins the work in a layer; an empty text ends it.
void RunLayerMacro(const std::string& arguments) {
  host::RunMacro("@@lay", arguments);
}

std::string LayerArguments(std::string_view layer, std::string_view before) {
  return std::string(before).append(layer) + "'";
}

/// The sense of the setting is the opposite of its name.
bool AreMarksWanted() {
  SendLine("env 'HideBilletOut' $_return");
  std::string text;
  OrvoApi::GetGlobalStrVar("$_return", text);
  return IntegerOrZero(text) != 0;
}

/// The line keeps its number and goes with its layer.
void DrawClampingOut(const Names& names, double position) {
  RunLayerMacro(LayerArguments(names.layer, "'' '' 'grey' 'dot' '"));
  SendLine("s-100 = v", position);
  RunLayerMacro("");
}

/// The lines of the cross and its ring about the point 0, 0.
constexpr std::string_view kStrokes[] = {"k30010 e X5 Y0 X-5 Y0 ek", "k30011 e X0 Y5 X0 Y-5 ek"};
constexpr std::string_view kRing[] = {
    "p100=X0 Y0",        "c100=p100 2", "p101=X2 Y0", "p102=X-2 Y0", "k30012 p101 ac100 p102 ac100 p101 ek",
    "del p100>102 c100",
};

void DrawOriginFigure(const Names& names) {
  SendLine("fig cre ", names.figure, " x0y0z0");
  SendLine(kStrokes[0]);
  SendLine("figure append ", names.figure, " k30010");
  SendLine(kStrokes[1]);
  SendLine("figure append ", names.figure, " k30011");
  for (const std::string_view line : kRing) SendLine(line);
  SendLine("figure append ", names.figure, " k30012");
}

void InsertFigureAt(std::string_view figure, double position) {
  SendLine("win 1");
  SendLine("set m30000");
  SendLine("tra m30000 x", position);
  SendLine("fig ins ", figure, " m30000");
  SendLine("del m30000");
}

void DrawOrigin(const Names& names, double position) {
  SendLine("win 0");
  // The two quotes before a name are on purpose, here and in the next text: the host takes the last text.
  SendLine("lay ch ''", names.layer, "'");
  RunLayerMacro(LayerArguments(names.layer, "'grey' 'solid' '' '' ''"));
  DrawOriginFigure(names);
  RunLayerMacro("");
  InsertFigureAt(names.figure, position);
}

}  // namespace

void DrawBillet(const BilletDrawing& billet, std::int32_t spindle, double z) {
  const Names& names = spindle == 1 ? kBilletSub : kBilletMain;
  SendLine("win 1");
  SendLine("fig del ", names.figure, " yes");
  SendLine("red -1");
  if (billet.type != kCylindrical || billet.drawOnScreen != 1) return;
  BeginTurningDrawing();
  const std::string savedLayer = CurrentLayer();
  ChangeLayer(names.layer);
  SendLine("call @@lay 'magenta' 'solid' '' '' '", names.layer, "'");
  SendLine("win 0");
  Picture(billet, names.figure).Send(z);
  SendLine("del s100>121 p100>110");
  SendLine("call @@lay");
  InsertFigure(names.figure);
  ChangeLayer(savedLayer);
}

void DrawBilletOutMarks(const DatumRecord& datum, std::int32_t spindle) {
  const bool isSub = spindle == 1;
  const Names& names = isSub ? kMarksSub : kMarksMain;
  const double clampingOut = isSub ? datum.clampingOutSub : datum.clampingOutMain;
  const double origin = isSub ? datum.originSub : datum.originMain;
  const std::string savedLayer = CurrentLayer();
  SendLine("win 1");
  SendLine("fig del ", names.figure, " yes");
  SendLine("lay del ", names.layer);
  if (AreMarksWanted()) {
    BeginTurningDrawing();
    if (clampingOut > 0) DrawClampingOut(names, origin - clampingOut);
    if (origin != 0) DrawOrigin(names, origin);
  }
  ChangeLayer(savedLayer);
  SendLine("red -1");
}

}  // namespace vanzet
