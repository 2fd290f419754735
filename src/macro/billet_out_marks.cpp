#include "macro/billet_out_marks.h"

#include <string>
#include <string_view>

#include "base/numbers.h"
#include "host/bridge.h"
#include "host/macro_variables.h"
#include "macro/command_text.h"
#include "macro/drawing_state.h"

namespace vanzet {
namespace {

using macro::SendLine;

struct Names {
  std::string_view figure;
  std::string_view layer;
};
constexpr Names kMain = {"ZOffsetMain", "Billet_out_HS"};
constexpr Names kSub = {"ZOffsetSub", "Billet_out_GS"};

/// Begins the work in a layer; an empty text ends it.
void RunLayerMacro(const std::string& arguments) {
  host::RunMacro("@@lay", arguments);
}

std::string Quoted(std::string_view layer, std::string_view before) {
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
  RunLayerMacro(Quoted(names.layer, "'' '' 'grey' 'dot' '"));
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
  RunLayerMacro(Quoted(names.layer, "'grey' 'solid' '' '' ''"));
  DrawOriginFigure(names);
  RunLayerMacro("");
  InsertFigureAt(names.figure, position);
}

}  // namespace

void DrawBilletOutMarks(const DatumRecord& datum, std::int32_t spindle) {
  const bool isSub = spindle == 1;
  const Names& names = isSub ? kSub : kMain;
  const double clampingOut = isSub ? datum.clampingOutSub : datum.clampingOutMain;
  const double origin = isSub ? datum.originSub : datum.originMain;
  const std::string savedLayer = macro::CurrentLayer();
  SendLine("win 1");
  SendLine("fig del ", names.figure, " yes");
  SendLine("lay del ", names.layer);
  if (AreMarksWanted()) {
    macro::BeginTurningDrawing();
    if (clampingOut > 0) DrawClampingOut(names, origin - clampingOut);
    if (origin != 0) DrawOrigin(names, origin);
  }
  macro::ChangeLayer(savedLayer);
  SendLine("red -1");
}

}  // namespace vanzet
