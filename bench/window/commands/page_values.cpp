#include "window/commands/page_values.h"

#include <algorithm>

#include "define/tables.h"
#include "devices/kinds.h"
#include "view/ids.h"

namespace vanzet::window {
namespace {

using scene::Equipment;
using scene::Spindle;

/// The values of the page, by their controls.
class Page {
 public:
  explicit Page(const QVariantMap& page) : page_(page), values_(page["values"].toMap()) {}

  std::int32_t Node() const { return page_["node"].toInt(); }
  std::int32_t DeviceType() const { return page_["deviceType"].toInt(); }
  QVariant At(std::int32_t control) const { return values_[QString::number(control)]; }

  /// Takes over the numbers and the texts that the page has.
  template <class Record>
  void Fill(std::span<const define::Field<Record>> fields, Record& record) const {
    for (const define::Field<Record>& field : fields) {
      const QVariant value = At(field.control);
      if (!value.isValid()) continue;
      if (const auto* const real = std::get_if<double Record::*>(&field.member))
        record.** real = value.toDouble();
      if (const auto* const number = std::get_if<std::int32_t Record::*>(&field.member)) {
        record.** number = value.toInt();
      }
      if (const auto* const text = std::get_if<std::string Record::*>(&field.member)) {
        record.** text = value.toString().toStdString();
      }
    }
  }

 private:
  const QVariantMap& page_;
  QVariantMap values_;
};

template <class Record>
void FillPart(const define::Part<Record>& part, const Page& page, Equipment& equipment) {
  for (const define::Kind<Record>& kind : part.kinds) {
    for (std::size_t spindle = 0; spindle < equipment.spindles.size(); ++spindle) {
      if (kind.nodes[spindle] != page.Node()) continue;
      Record& record = equipment.spindles[spindle].*part.member;
      if (record.type != kind.type) record = {};
      record.type = kind.type;
      page.Fill(kind.fields, record);
    }
  }
}

/// A cylinder is clamped at its outside.
void CompleteCylinders(Equipment& equipment) {
  for (Spindle& spindle : equipment.spindles) {
    scene::Billet& billet = spindle.billet;
    if (billet.type == scene::billet_type::kCylinder) billet.clampDiameter = billet.outerDiameter;
  }
}

/// The letters of a device of the catalogue; an own one comes from its file.
void FillDevice(const Page& page, scene::Device& device) {
  const devices::Kind* const kind = devices::KindOf(page.DeviceType());
  if (kind == nullptr || !kind->HasParametric(page.DeviceType())) return;
  if (device.params.type != page.DeviceType()) device = {};
  device.params.type = page.DeviceType();
  for (const devices::Letter& letter : devices::LettersOf(page.DeviceType())) {
    const QVariant value = page.At(control::EditOfLetter(letter.letter));
    const auto real = kDeviceReals.at(static_cast<std::size_t>(letter.letter - 'A'));
    if (value.isValid()) device.params.*real = value.toDouble();
  }
}

void FillDevices(const Page& page, Equipment& equipment) {
  for (std::size_t i = 0; i < equipment.spindles.size(); ++i) {
    Spindle& spindle = equipment.spindles[i];
    const auto isHere = [&](const define::DeviceRow& row) { return row.nodes[i] == page.Node(); };
    if (std::ranges::any_of(define::ClampRows(), isHere)) FillDevice(page, spindle.clamp);
    if (!isHere(define::JawRow())) continue;
    FillDevice(page, spindle.jaw);
    page.Fill(define::JawFields(), spindle);
  }
  if (define::CenterRow().nodes[0] == page.Node()) FillDevice(page, equipment.center);
}

}  // namespace

Equipment WithPage(Equipment equipment, const QVariantMap& values) {
  if (values["isStored"].toBool()) return equipment;
  const Page page(values);
  FillPart(define::BilletPart(), page, equipment);
  FillPart(define::FinishedPart(), page, equipment);
  CompleteCylinders(equipment);
  FillDevices(page, equipment);
  if (page.Node() == node::kBezel) equipment.usesSteadyRest = page.At(control::kUseBezel).toBool();
  if (page.Node() == node::kDatum) {
    for (const std::size_t spindle : {std::size_t{0}, std::size_t{1}}) {
      page.Fill(define::DatumFields(spindle), equipment.spindles[spindle]);
    }
  }
  return equipment;
}

}  // namespace vanzet::window
