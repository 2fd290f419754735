#include "view/qt/labels.h"

#include <QApplication>
#include <QWidget>

namespace vanzet::view::qt {
namespace {

/// The index of the first letter that `isWanted` takes, or -1.
template <class Predicate>
qsizetype FirstLetter(const QString& text, Predicate isWanted) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (isWanted(i)) return i;
  }
  return -1;
}

QString EscapeSigns(QString text) {
  return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

struct Face {
  TextRank rank;
  double size;  ///< times that of the system
  QFont::Weight weight;
};

constexpr Face kFaces[] = {
    {TextRank::kTitle, 1.35, QFont::DemiBold},
    {TextRank::kGroup, 1.0, QFont::DemiBold},
    {TextRank::kLetter, 1.0, QFont::Bold},
};

}  // namespace

QString Mnemonics::Mark(const QString& text) {
  if (text.size() == 1) return QLatin1Char('&') + text;
  const auto isFree = [&](qsizetype i) { return IsFree(text[i]); };
  const auto beginsAWord = [&](qsizetype i) { return isFree(i) && (i == 0 || !text[i - 1].isLetter()); };
  qsizetype at = FirstLetter(text, beginsAWord);
  if (at < 0) at = FirstLetter(text, isFree);
  if (at < 0) return EscapeSigns(text);
  taken_ += text[at].toUpper();
  return EscapeSigns(text.left(at)) + QLatin1Char('&') + EscapeSigns(text.mid(at));
}

void Mnemonics::Release(const QString& letters) {
  for (const QChar letter : letters) taken_.remove(letter);
}

bool Mnemonics::IsFree(QChar letter) const {
  // Letters beyond these are not on every keyboard.
  const QChar upper = letter.toUpper();
  return upper >= QLatin1Char('A') && upper <= QLatin1Char('Z') && !taken_.contains(upper);
}

void SetFont(QWidget& widget, TextRank rank) {
  for (const Face& face : kFaces) {
    if (face.rank != rank) continue;
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * face.size);
    font.setWeight(face.weight);
    widget.setFont(font);
  }
}

}  // namespace vanzet::view::qt
