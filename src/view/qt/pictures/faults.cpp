#include "view/qt/pictures/faults.h"

#include "view/qt/words.h"

namespace vanzet::view::qt {
namespace {

constexpr Words kNoNumber = {"%1 is no number.", "%1 ist keine Zahl."};

QString Quoted(const QString& text) {
  return IsGerman() ? QStringLiteral("\u201E%1\u201C").arg(text) : QStringLiteral("\u201C%1\u201D").arg(text);
}

}  // namespace

void TellNoNumber(Sketch& sketch, const PageValues& values, std::int32_t edit, const QString& name) {
  if (!sketch.fault.isEmpty() || !values.IsNoNumber(edit)) return;
  sketch.fault = Said(kNoNumber, name.isEmpty() ? Quoted(values.TextOf(edit)) : name);
  sketch.wrong = {edit};
}

}  // namespace vanzet::view::qt
