#include <algorithm>
#include <array>

#include "base/number_text.h"
#include "base/one_line.h"
#include "section/picture.h"
#include "sheet/spur.h"
#include "show/missing.h"
#include "show/page.h"

namespace vanzet::sheet {
namespace {

using scene::Kind;
using scene::Spindle;
using show::Part;

constexpr const char* kNone = "-";

/// The dimensions of the half section in the order of the table. The names are keys of its translations.
constexpr const char* kMeasures[] = {"Clamp diameter", "Clamped length",  "Clamping out",
                                     "Stick-out",      "Billet diameter", "Billet length"};

/// Rows with a value for each spindle.
class Columns {
 public:
  void Put(const std::string& name, std::size_t spindle, std::string value) {
    auto row = std::ranges::find(rows_, name, &Row::name);
    if (row == rows_.end()) row = rows_.insert(rows_.end(), {name, {}});
    if (row->values.at(spindle).empty()) row->values.at(spindle) = std::move(value);
  }

  /// Fills a table that has its headings.
  void AddTo(Table& table, const std::vector<std::size_t>& spindles) const {
    for (const Row& row : rows_) {
      std::vector<Cell> cells = {row.name};
      for (const std::size_t spindle : spindles) {
        const std::string& value = row.values.at(spindle);
        cells.emplace_back(value.empty() ? kNone : value);
      }
      table.rows.push_back(std::move(cells));
    }
  }

 private:
  struct Row {
    std::string name;
    std::array<std::string, 2> values;
  };
  std::vector<Row> rows_;
};

/// Fills the column of a spindle.
class SpindleColumn {
 public:
  SpindleColumn(const Spur& spur, const show::Rows& page, std::size_t spindle, const Words& words)
      : spur_(spur), page_(page), index_(spindle), words_(words) {}

  void FillInto(Columns& columns) {
    columns_ = &columns;
    AddPart(Part::kClamp, Translatable("Clamp device"));
    AddPart(Part::kJaw, Translatable("Jaws"));
    if (spindle().jaw.params.type != 0) AddJaws();
    for (const char* const name : kMeasures) AddMeasure(name);
    Put(words_(Translatable("Origin translation in Z")), words_.Measured(spindle().origin));
    AddPart(Part::kBillet, Translatable("Billet"));
    AddLevels(Part::kBillet);
    AddPart(Part::kFinishPart, Translatable("Finished part"));
    AddLevels(Part::kFinishPart);
  }

 private:
  const Spindle& spindle() const { return spur_.equipment.spindles.at(index_); }
  void Put(const std::string& name, std::string value) { columns_->Put(name, index_, std::move(value)); }

  void AddPart(Part part, const char* name) {
    for (const show::Row& row : page_.all()) {
      if (row.part == part && row.spindle == index_ && row.level == 1)
        Put(words_(name), part == Part::kClamp ? row.label + ": " + row.value : row.value);
    }
  }

  void AddLevels(Part part) {
    for (const show::Row& row : page_.all()) {
      if (row.part == part && row.spindle == index_ && row.level == 2) Put(row.label, row.value);
    }
  }

  void AddJaws() {
    Put(words_(Translatable("Clamping direction")),
        words_(spindle().clampsInside ? Translatable("outwards, away from the axis")
                                      : Translatable("inwards, to the axis")));
    std::string angles;
    for (std::int32_t i = 0; i < spindle().jaws; ++i)
      angles += (i == 0 ? "" : ", ") + ShortDecimalText(360.0 * i / spindle().jaws, 2) + "°";
    Put(words_(Translatable("Jaws at, from the top")), angles);
    const section::SectionBody* const jaw = FindJaw();
    if (jaw == nullptr) return;
    const geometry::Box box = section::BoxOf(jaw->region);
    const double front = index_ == 0 ? box.max.x : spur_.scene.subDatum - box.min.x;
    Put(words_(Translatable("Front of the jaws in Z")), words_.Measured(front));
  }

  const section::SectionBody* FindJaw() const {
    const auto jaw = std::ranges::find_if(spur_.section.bodies, [&](const section::SectionBody& body) {
      return body.kind == Kind::kJaw && body.isSub == (index_ == 1);
    });
    return jaw == spur_.section.bodies.end() ? nullptr : &*jaw;
  }

  void AddMeasure(const char* name) {
    for (const section::Dimension& each : spur_.section.dimensions) {
      if (std::string_view(each.name) != name || each.isSub != (index_ == 1)) continue;
      const bool isDiameter = each.direction == section::Direction::kDiameter;
      Put(std::string(words_.texts.Translate(section::kTextSection, name)),
          (isDiameter ? "Ø" : "") + words_.Measured(each.Value()));
    }
  }

  const Spur& spur_;
  const show::Rows& page_;
  std::size_t index_;
  const Words& words_;
  Columns* columns_ = nullptr;
};

/// The center and the steady rest.
Table SharedTable(const show::Rows& page, const Words& words) {
  Table table{.caption = words(Translatable("Both spindles")),
              .headings = {words(Translatable("Part")), words(Translatable("Value"))},
              .rows = {}};
  for (const show::Row& row : page.all()) {
    const bool isShared = row.part == Part::kCenter || row.part == Part::kSteadyRest;
    if (isShared && row.level == 1) table.rows.push_back({row.label, row.value});
  }
  return table;
}

}  // namespace

show::Rows PageRowsOf(const Spur& spur, const Words& words) {
  const auto length = [unit = words.unit](double millimetres) {
    return show::LengthForPeople(millimetres, unit);
  };
  return show::RowsOf({spur.number, spur.vdm, spur.definition, {}}, {words.texts, length});
}

std::vector<Table> SetUpTables(const Spur& spur, const Words& words) {
  constexpr const char* kTitles[] = {Translatable("Main spindle"), Translatable("Sub spindle")};
  const show::Rows page = PageRowsOf(spur, words);
  std::vector<std::size_t> spindles;
  Table clamping{
      .caption = words(Translatable("Clamping")), .headings = {words(Translatable("Measure"))}, .rows = {}};
  Columns columns;
  for (std::size_t i = 0; i < spur.equipment.spindles.size(); ++i) {
    if (show::IsEmpty(spur.equipment.spindles.at(i))) continue;
    SpindleColumn(spur, page, i, words).FillInto(columns);
    spindles.push_back(i);
    clamping.headings.push_back(words(kTitles[i]));
  }
  columns.AddTo(clamping, spindles);
  return {std::move(clamping), SharedTable(page, words)};
}

}  // namespace vanzet::sheet
