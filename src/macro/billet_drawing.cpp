#include "macro/billet_drawing.h"

#include <string_view>

#include "macro/command_text.h"
#include "macro/drawing_state.h"

namespace vanzet {
namespace {

using macro::SendLine;

constexpr std::int32_t kCylindrical = 1;

struct Names {
  std::string_view figure;
  std::string_view layer;
};
constexpr Names kMain = {"BilletM", "Billet_Spindel_1"};
constexpr Names kSub = {"BilletS", "Billet_Spindel_2"};

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

}  // namespace

void DrawBillet(const BilletDrawing& billet, std::int32_t spindle, double z) {
  const Names& names = spindle == 1 ? kSub : kMain;
  SendLine("win 1");
  SendLine("fig del ", names.figure, " yes");
  SendLine("red -1");
  if (billet.type != kCylindrical || billet.drawOnScreen != 1) return;
  macro::BeginTurningDrawing();
  const std::string savedLayer = macro::CurrentLayer();
  macro::ChangeLayer(names.layer);
  SendLine("call @@lay 'magenta' 'solid' '' '' '", names.layer, "'");
  SendLine("win 0");
  Picture(billet, names.figure).Send(z);
  SendLine("del s100>121 p100>110");
  SendLine("call @@lay");
  InsertFigure(names.figure);
  macro::ChangeLayer(savedLayer);
}

}  // namespace vanzet
