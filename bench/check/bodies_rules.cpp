#include <array>
#include <utility>

#include "base/translations.h"
#include "check/rules.h"
#include "check/spindle_devices.h"
#include "devices/kinds.h"

namespace vanzet::check {
namespace {

Where WhereOf(scene::Kind kind, bool isSub) {
  if (kind == scene::Kind::kCenter) return Where::kCenter;
  if (kind == scene::Kind::kSteadyRest) return Where::kSteadyRest;
  return isSub ? Where::kSub : Where::kMain;
}

/// Details about one body.
Collector::Details DetailsOf(const scene::SceneBody& body, Sentence sentence) {
  return {.where = WhereOf(body.kind, body.name.starts_with("sub ")),
          .sentence = std::move(sentence),
          .bodies = {body.name},
          .part = show::PartOf(body.kind)};
}

void CheckMissing(const Setup& setup, Collector& findings) {
  for (const auto& [kind, isSub, fault] : setup.scene.missing) {
    findings.Add("EQ-104", {.where = WhereOf(kind, isSub),
                            .sentence = {Translatable("A body cannot be made: %1."), {fault.Message()}},
                            .part = show::PartOf(kind)});
  }
}

void CheckFiles(const Setup& setup, Collector& findings) {
  if (!setup.ownDevice) return;
  for (const PlacedDevice& placed : DevicesOf(setup.equipment)) {
    if (!devices::IsOwn(placed.device->params.type)) continue;
    const auto read = setup.ownDevice(placed.device->name);
    if (read) continue;
    findings.Add("EQ-104", {.where = placed.where,
                            .sentence = {Translatable("The file of the device cannot be used: %1."),
                                         {read.fault().Message()}},
                            .part = placed.part});
  }
}

// By soundness.
constexpr const char* kFlaws[] = {
    nullptr,
    Translatable("The facets of the body '%1' do not enclose a volume; where its inside is, is not certain."),
    Translatable("The facets of the body '%1' face inwards; the check takes them the other way round."),
    Translatable("The facets of the body '%1' enclose no volume; they are compared as a surface."),
};

/// Of equal jaws the first one stands for all.
bool IsFurtherJaw(const HalfSection& body) {
  return body.IsJaw() && !body.body().name.ends_with(" 1");
}

}  // namespace

void CheckBodies(const Setup& setup, const HalfSections& sections, Collector& findings) {
  CheckMissing(setup, findings);
  CheckFiles(setup, findings);
  for (const auto& [body, fault] : sections.unusable) {
    findings.Add("EQ-104",
                 DetailsOf(*body, {Translatable("The body cannot be used: %1."), {fault.Message()}}));
  }
  for (const HalfSection& each : sections.bodies) {
    const char* const english = kFlaws[static_cast<std::size_t>(each.soundness())];
    if (english == nullptr || IsFurtherJaw(each)) continue;
    findings.Add("EQ-104", DetailsOf(each.body(), {english, {each.body().name}}));
  }
}

}  // namespace vanzet::check
