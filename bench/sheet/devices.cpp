#include <algorithm>
#include <iterator>

#include "base/one_line.h"
#include "catalogue/kinds.h"
#include "catalogue/maker_data.h"
#include "catalogue/picture.h"
#include "check/spindle_devices.h"
#include "devices/kinds.h"
#include "modeller/body_folder.h"
#include "results/png.h"
#include "scene/picture.h"
#include "sheet/spur.h"

namespace vanzet::sheet {
namespace {

using scene::Kind;
using show::Part;

/// The section of the translations that holds the names of makers' figures.
constexpr const char* kMakerSection = "cli";

constexpr double kPictureWidth = 100;  // millimetres of paper

/// A device of the set-up and its place.
struct Placed {
  const scene::Device* device;
  Part part;
  Kind kind;
  std::size_t spindle;
  const char* place;  ///< English, the key of its translations
};

std::vector<Placed> PlacedDevices(const scene::Equipment& equipment) {
  constexpr const char *kMain = Translatable("Main spindle"), *kSub = Translatable("Sub spindle");
  const auto& [main, sub] = equipment.spindles;
  std::vector<Placed> all = {
      {&main.clamp, Part::kClamp, Kind::kClamp, 0, kMain},
      {&main.jaw, Part::kJaw, Kind::kJaw, 0, kMain},
      {&sub.clamp, Part::kClamp, Kind::kClamp, 1, kSub},
      {&sub.jaw, Part::kJaw, Kind::kJaw, 1, kSub},
      {&equipment.center, Part::kCenter, Kind::kCenter, 0, Translatable("Both spindles")},
  };
  std::erase_if(all, [](const Placed& each) { return each.device->params.type == 0; });
  return all;
}

/// The rows of the page that are about a device, of one level.
std::vector<const show::Row*> RowsAbout(const Placed& placed, const show::Rows& page, int level) {
  std::vector<const show::Row*> rows;
  for (const show::Row& row : page.all()) {
    if (row.part == placed.part && row.spindle == placed.spindle && row.level == level) rows.push_back(&row);
  }
  return rows;
}

Table Letters(const Placed& placed, const show::Rows& page, const Words& words) {
  Table table{.caption = words(Translatable("Letters")),
              .headings = {words(Translatable("Letter")), words(Translatable("Value"))},
              .rows = {}};
  for (const show::Row* const row : RowsAbout(placed, page, 2))
    table.rows.push_back({row->label, row->value});
  return table;
}

/// The address of a figure that is one of the web; other addresses stay plain text.
std::string LinkOf(const std::string& text) {
  return text.starts_with("http://") || text.starts_with("https://") ? text : "";
}

Table Maker(const std::string& device, const catalogue::Shop& shop, const Words& words) {
  Table table{.caption = words(Translatable("Maker's data")),
              .headings = {words(Translatable("Figure")), words(Translatable("Value"))},
              .rows = {}};
  const catalogue::MakerJson* const stored = shop.maker.Find(device);
  if (stored == nullptr) return table;
  const catalogue::MakerJson figures = catalogue::ShownIn(*stored, words.unit);
  for (const catalogue::MakerKey& key : catalogue::MakerKeys()) {
    if (!figures.contains(key.key)) continue;
    const std::string value = OneLine(catalogue::MakerText(figures[key.key]));
    const std::string unit(key.IsLength() ? WordOf(words.unit) : key.unit);
    table.rows.push_back({std::string(words.texts.Translate(kMakerSection, key.name)),
                          {value + (unit.empty() ? "" : " " + unit), LinkOf(value)}});
  }
  return table;
}

/// A device without an outline in space; of several jaws the first. Empty when it has no body.
Result<std::string> PngInSpace(const Placed& placed, const Spur& spur) {
  scene::Model alone;
  for (const scene::SceneBody& body : spur.scene.bodies) {
    const bool isIt = body.kind == placed.kind && body.name.starts_with("sub ") == (placed.spindle == 1);
    if (!isIt || (body.kind == Kind::kJaw && !body.name.ends_with(" 1"))) continue;
    std::ranges::copy_if(spur.model.bodies, std::back_inserter(alone.bodies),
                         [&](const scene::ModelBody& each) { return each.name == body.name; });
  }
  if (alone.bodies.empty()) return std::string();
  return results::PngOf(
      scene::Draw(alone, {.width = catalogue::kPictureWidth, .height = catalogue::kPictureHeight}));
}

Result<std::optional<Picture>> PictureOf(const Placed& placed, const Spur& spur, const Words& words) {
  const std::string name = OneLine(placed.device->name);
  Picture picture{.alternative = words.With(Translatable("Drawing of %1"), name),
                  .width = kPictureWidth,
                  .height = kPictureWidth * catalogue::kPictureHeight / catalogue::kPictureWidth};
  const catalogue::Entry entry{.name = name, .params = catalogue::ShownIn(placed.device->params, words.unit)};
  if (auto drawn = catalogue::PictureOf(entry)) {
    picture.bytes = *std::move(drawn);
  } else {
    VANZET_TRY(picture.bytes, PngInSpace(placed, spur));
    picture.format = Picture::Format::kPng;
  }
  return picture.bytes.empty() ? std::nullopt : std::optional(std::move(picture));
}

}  // namespace

Result<std::vector<Block>> DeviceBlocks(const Spur& spur, const catalogue::Shop& shop, const Words& words) {
  const show::Rows page = PageRowsOf(spur, words);
  std::vector<Block> blocks;
  for (const Placed& placed : PlacedDevices(spur.equipment)) {
    const auto titles = RowsAbout(placed, page, 1);
    const std::string kind = titles.empty() ? "" : " (" + titles.front()->label + ")";
    blocks.emplace_back(Heading{3, words(placed.place) + ": " + OneLine(placed.device->name) + kind});
    VANZET_TRY(auto picture, PictureOf(placed, spur, words));
    Beside beside{std::move(picture),
                  {Letters(placed, page, words), Maker(placed.device->name, shop, words)}};
    std::erase_if(beside.tables, [](const Table& table) { return table.rows.empty(); });
    blocks.emplace_back(std::move(beside));
  }
  return blocks;
}

Table OwnFiles(const Spur& spur, const std::filesystem::path& bodies, const Words& words) {
  Table table{.caption = words(Translatable("Own devices and solids")),
              .headings = {words(Translatable("File")), words(Translatable("Used as"))},
              .rows = {}};
  for (const Placed& placed : PlacedDevices(spur.equipment)) {
    if (devices::IsOwn(placed.device->params.type))
      table.rows.push_back({OneLine(placed.device->name), words(placed.place)});
  }
  for (const scene::SceneBody& body : spur.scene.bodies) {
    if (body.solid.empty()) continue;
    const auto file = modeller::FindBodyFile(body.solid, bodies);
    table.rows.push_back({OneLine(file ? "bodies/" + file->path.filename().string() : body.solid),
                          BodyLabel(body, spur.equipment, words)});
  }
  return table;
}

}  // namespace vanzet::sheet
