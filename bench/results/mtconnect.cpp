#include "base/number_text.h"
#include "base/xml_text.h"
#include "modeller/export.h"
#include "results/setup_texts.h"
#include "vdm/commit_origin.h"

/// The set-up as assets of MTConnect. docs/formats/setup.md describes it.
namespace vanzet::results {
namespace {

constexpr const char* kVersion = "2.7";

/// One asset, as XML.
using Asset = std::string;

std::string Attribute(const std::string& name, const std::string& value) {
  return " " + name + "=\"" + EscapeXml(value) + "\"";
}

std::string Element(const std::string& name, const std::string& content) {
  return "      <" + name + ">" + EscapeXml(content) + "</" + name + ">\n";
}

/// The name of a thing as an identifier of XML, which begins with a letter and has no blanks.
std::string Identifier(const std::string& text) {
  std::string name = "vanzet.";
  for (const char c : text) {
    const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    name += isPlain || c == '-' || c == '.' ? c : '_';
  }
  return name;
}

/// Makes the assets of a set-up.
class Assets {
 public:
  explicit Assets(const Setup& setup, std::string time) : setup_(setup), time_(std::move(time)) {}

  void AddFixture(const std::string& spindle, const std::string& device, const std::string& clamping) {
    const std::string id = IdOf(spindle + ".fixture");
    all_.push_back(Open("Fixture", id, "") + Element("Description", device) + Element("FixtureId", id) +
                   Element("ClampingMethod", clamping) + "    </Fixture>\n");
  }

  Result<void> AddRawMaterial(const std::string& spindle, const scene::SceneBody& billet, bool isCylinder) {
    VANZET_TRY(const auto facts,
               modeller::FactsOf({billet.name, billet.body, {}, {}}, modeller::ExportFormat::kStep, {}));
    const geometry::Box3d& box = facts.box;
    std::string asset = Open("RawMaterial", IdOf(spindle + ".billet"), billet.name);
    asset += Element("Form", isCylinder ? "BAR" : "CASTING");
    if (facts.volume) asset += Element("InitialVolume", NumberText(*facts.volume, 10));
    asset += Element("InitialDimension", NumberText(box.max.z - box.min.z) + " " +
                                             NumberText(box.max.y - box.min.y) + " " +
                                             NumberText(box.max.x - box.min.x));
    all_.push_back(asset + "    </RawMaterial>\n");
    return {};
  }

  std::string Document() const {
    const std::string count = std::to_string(all_.size());
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<MTConnectAssets";
    text += Attribute("xmlns", std::string("urn:mtconnect.org:MTConnectAssets:") + kVersion) + ">\n  <Header";
    text += Attribute("creationTime", time_) + Attribute("sender", "vanzet") + Attribute("instanceId", "1") +
            Attribute("version", kVersion + std::string(".0.0")) + Attribute("assetBufferSize", count) +
            Attribute("assetCount", count) + Attribute("deviceModelChangeTime", time_) + "/>\n  <Assets>\n";
    for (const Asset& asset : all_) text += asset;
    return text + "  </Assets>\n</MTConnectAssets>\n";
  }

 private:
  std::string IdOf(const std::string& thing) const {
    return Identifier(setup_.project + "." + std::to_string(setup_.spur) + "." + thing);
  }

  Asset Open(const std::string& type, const std::string& id, const std::string& name) const {
    return "    <" + type + Attribute("assetId", id) + Attribute("timestamp", time_) +
           (name.empty() ? "" : Attribute("name", name)) + ">\n";
  }

  const Setup& setup_;
  std::string time_;
  std::vector<Asset> all_;
};

std::string DeviceText(const scene::Spindle& spindle) {
  return spindle.clamp.name + (spindle.jaw.name.empty() ? "" : ", " + spindle.jaw.name);
}

bool HasFixture(const scene::Spindle& spindle) {
  return spindle.clamp.params.type != 0;
}

}  // namespace

Result<std::string> MtConnectText(const Setup& setup) {
  Assets assets(setup, setup.time.empty() ? vdm::TimeText() : setup.time);
  for (const bool isSub : {false, true}) {
    const scene::Spindle& spindle = setup.equipment.spindles[isSub ? 1 : 0];
    const std::string word = isSub ? "sub" : "main";
    if (HasFixture(spindle)) {
      assets.AddFixture(word, DeviceText(spindle), spindle.clampsInside ? "INSIDE" : "OUTSIDE");
    }
    if (const scene::SceneBody* const billet = BilletOf(setup, isSub)) {
      VANZET_DO(assets.AddRawMaterial(word, *billet, spindle.billet.type == scene::billet_type::kCylinder));
    }
  }
  return assets.Document();
}

}  // namespace vanzet::results
