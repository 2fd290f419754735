#include "view/qt/boxes.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "support/temporary_folder.h"
#include "view/qt/texts.h"
#include "view_qt/responder.h"

namespace vanzet::view::qt {
namespace {

using platform::FileQuestion;

class BoxTest : public testing::Test {
 protected:
  std::int32_t Ask(std::int32_t type, std::deque<std::int32_t> answers) {
    responder.answers = std::move(answers);
    responder.onBox = [this](QMessageBox& box) {
      caption = box.windowTitle();
      text = box.text();
      icon = box.icon();
      flags = box.windowFlags();
      owner = box.parentWidget();
      defaultText = box.defaultButton() == nullptr ? QString() : box.defaultButton()->text();
    };
    return boxes.Present({"Caption", "<b>Delete?</b>", type, nullptr});
  }

  Boxes boxes;
  test::Responder responder;
  QString caption, text, defaultText;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  Qt::WindowFlags flags;
  QWidget* owner = nullptr;
};

TEST_F(BoxTest, AnswersInTheNumbersOfThePlatform) {
  EXPECT_EQ(Ask(0, {}), 1);
  EXPECT_EQ(Ask(4, {6}), 6);
  EXPECT_EQ(Ask(4, {7}), 7);
  EXPECT_EQ(Ask(36, {6}), 6);
}

TEST_F(BoxTest, TakesTheEscapeKeyForNo) {
  EXPECT_EQ(Ask(4, {2}), 7);
}

TEST_F(BoxTest, OffersNoFirst) {
  Ask(4, {});
  EXPECT_EQ(defaultText, QStringLiteral("&No"));
}

TEST_F(BoxTest, ShowsItsTextAsItStands) {
  Ask(0, {});
  EXPECT_EQ(caption, QStringLiteral("Caption"));
  EXPECT_EQ(text, QStringLiteral("<b>Delete?</b>"));
}

TEST_F(BoxTest, CanBeNeitherMaximisedNorMinimised) {
  Ask(0, {});
  EXPECT_FALSE(flags.testAnyFlags(Qt::WindowMinMaxButtonsHint));
  EXPECT_TRUE(flags.testFlag(Qt::CustomizeWindowHint)) << "the window manager adds none";
  EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
}

TEST_F(BoxTest, BelongsToTheModalWindowThatIsUp) {
  QDialog modal;
  modal.open();
  Ask(0, {});
  EXPECT_EQ(owner, &modal);
}

TEST_F(BoxTest, HasTheIconOfItsType) {
  Ask(48, {});
  EXPECT_EQ(icon, QMessageBox::Warning);
  Ask(36, {});
  EXPECT_EQ(icon, QMessageBox::Question);
  Ask(0, {});
  EXPECT_EQ(icon, QMessageBox::Information);
}

template <class Widget>
QStringList TextsOf(const QDialog& dialog) {
  QStringList texts;
  for (const Widget* const widget : dialog.findChildren<Widget*>()) texts.append(widget->text());
  return texts;
}

class FileDialogTest : public testing::Test {
 protected:
  /// Types a name into the dialog and takes it; cancels where that is empty.
  std::optional<std::string> Choose(const FileQuestion& question, const std::string& name) {
    QTimer::singleShot(0, [&] {
      auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      filters = dialog->nameFilters();
      labels = TextsOf<QLabel>(*dialog);
      buttons = TextsOf<QAbstractButton>(*dialog);
      suggested = dialog->findChild<QLineEdit*>()->text();
      if (name.empty()) return dialog->reject();
      dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(name));
      QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
    });
    return files.Choose(question);
  }

  FileDialogs files;
  test::TemporaryFolder folder;
  QStringList filters;
  QStringList labels, buttons;
  QString suggested;
};

TEST_F(FileDialogTest, GivesThePathThatWasChosen) {
  test::WriteBytes(folder / "a.vdm", "");
  FileQuestion question{.filter = "VDM Files (*.vdm)|*.vdm||", .startFolder = folder.path().string()};
  EXPECT_EQ(Choose(question, "a.vdm"), (folder / "a.vdm").string());
  EXPECT_EQ(filters.constFirst(), QStringLiteral("VDM Files (*.vdm)"));
}

TEST_F(FileDialogTest, GivesNothingWhenItIsCancelled) {
  EXPECT_EQ(Choose({}, ""), std::nullopt);
}

TEST_F(FileDialogTest, PutsTheExtensionBehindANameWithoutOne) {
  FileQuestion question{
      .kind = FileQuestion::Kind::kSave, .defaultExtension = "vdm", .startFolder = folder.path().string()};
  EXPECT_EQ(Choose(question, "new"), (folder / "new.vdm").string());
}

TEST_F(FileDialogTest, SpeaksGermanThroughoutInAGermanView) {
  qputenv("VANZET_LANGUAGE", "de");
  {
    const TextsOfQt german;
    Choose({}, "");
  }
  qputenv("VANZET_LANGUAGE", "en");
  EXPECT_TRUE(labels.contains(QStringLiteral("Datei&name:"))) << labels.join(QLatin1Char('|')).toStdString();
  EXPECT_TRUE(buttons.contains(QStringLiteral("&Abbrechen")) || buttons.contains(QStringLiteral("Abbrechen")))
      << buttons.join(QLatin1Char('|')).toStdString();
  Choose({}, "");
  EXPECT_FALSE(labels.contains(QStringLiteral("Datei&name:"))) << "and leaves the host's application alone";
}

TEST_F(FileDialogTest, ListsByAPatternThatIsSuggestedAsAName) {
  Choose({.suggested = "*.vdm"}, "");
  EXPECT_EQ(filters.constFirst(), QStringLiteral("*.vdm"));
  EXPECT_EQ(suggested, QString());
}

}  // namespace
}  // namespace vanzet::view::qt
