#include "base/number_text.h"
#include "contour/library.h"
#include "results/setup_texts.h"
#include "section/cut.h"

/// The set-up as a program of LinuxCNC's lathes: z along the spindle's axis, x the radius, zero at the datum
/// of the main spindle. docs/formats/setup.md describes it.
namespace vanzet::results {
namespace {

using geometry::Point;

constexpr int kDecimals = 5;

std::string Number(double value) {
  return DecimalText(value, kDecimals);
}

/// A text within a comment: parentheses would end it, and a program may have no control characters.
std::string Comment(std::string text) {
  for (char& c : text) {
    if (c == '(') c = '[';
    if (c == ')') c = ']';
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') c = ' ';
  }
  return "(" + text + ")\n";
}

/// The lines of a set-up.
class Program {
 public:
  explicit Program(double datum) : datum_(datum) {}

  /// The stock is the hollow cylinder around the billet.
  void AddStock(const geometry::Region& billet, double bore) {
    const geometry::Box box = section::BoxOf(billet);
    const bool isTube = bore > 0;
    text_ += std::string("(WORKPIECE,") + (isTube ? "TUBE" : "CYLINDER") +
             ",AXIS=Z,X=0,Y=0,ZMIN=" + Number(box.min.x - datum_) + ",ZMAX=" + Number(box.max.x - datum_) +
             ",DIAMETER=" + Number(2 * box.max.y) + (isTube ? ",INNER_DIAMETER=" + Number(bore) : "") + ")\n";
  }

  void AddOutline(const section::SectionBody& body) {
    text_ += Comment(body.name + (body.device.empty() ? "" : ": " + body.device));
    for (const geometry::RegionLoop& loop : body.region.loops) {
      text_ += "G0 " + Place(loop.spans.front().p0) + "\n";
      for (const geometry::RegionSpan& span : loop.spans) AddSpan(span);
    }
  }

  void Add(const std::string& line) { text_ += line; }
  const std::string& text() const { return text_; }

 private:
  std::string Place(const Point& point) const {
    return "X" + Number(point.y) + " Z" + Number(point.x - datum_);
  }

  /// Seen with z to the right and x upwards, G3 runs anticlockwise.
  void AddSpan(const geometry::RegionSpan& span) {
    if (span.dir == geometry::LINEAR) {
      text_ += "G1 " + Place(span.p1) + "\n";
    } else {
      text_ += std::string(span.dir == geometry::ACW ? "G3 " : "G2 ") + Place(span.p1) + " I" +
               Number(span.pc.y - span.p0.y) + " K" + Number(span.pc.x - span.p0.x) + "\n";
    }
  }

  double datum_;
  std::string text_;
};

Result<void> AddStocks(const Setup& setup, Program& program) {
  for (const bool isSub : {false, true}) {
    const scene::SceneBody* const billet = BilletOf(setup, isSub);
    if (billet == nullptr) continue;
    const scene::Billet& values = setup.equipment.spindles[isSub ? 1 : 0].billet;
    VANZET_TRY(const auto region, section::CutOf(*billet));
    program.AddStock(region, values.type == scene::billet_type::kCylinder ? values.innerDiameter : 0);
  }
  return {};
}

}  // namespace

Result<std::string> LinuxCncText(const Setup& setup) {
  contour::UseMillimetres();
  VANZET_TRY(const auto section, section::MakeSection(setup.equipment, setup.scene));
  Program program(setup.equipment.spindles[0].origin);
  program.Add(Comment("set-up of " + setup.project + ", spur " + std::to_string(setup.spur) +
                      (setup.time.empty() ? "" : ", " + setup.time)));
  program.Add("G21\n");
  VANZET_DO(AddStocks(setup, program));
  program.Add(
      "o100 if [#<_task> EQ 0]\n(only the preview comes here; nothing moves)\nG18 G90 G94 G8 F1000\n");
  for (const section::SectionBody& body : section.bodies) {
    if (scene::IsDevice(body.kind)) program.AddOutline(body);
  }
  program.Add("o100 endif\nM2\n");
  return program.text();
}

}  // namespace vanzet::results
