// SPDX-License-Identifier: GPL-3.0-or-later
// Both dialogs, over every kind of source and in both languages: not a word of the other one.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "fakes/fake_driver_commands.h"
#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/dialogs/dialog_texts.h"
#include "platform/capture/dialogs/format_dialog.h"
#include "platform/capture/dialogs/source_dialog.h"
#include "texts/phrase.h"

namespace vaktor {
namespace {

constexpr quint32 kLuminosite = 0x00980900;

// Everything that a person reads, by eye or by ear.
QStringList TextesLus(const QWidget& dialogue) {
  QStringList textes = {dialogue.windowTitle()};
  for (const auto* c : dialogue.findChildren<QWidget*>()) textes += {c->accessibleName(), c->toolTip()};
  for (const auto* c : dialogue.findChildren<QLabel*>()) textes += c->text();
  for (const auto* c : dialogue.findChildren<QAbstractButton*>()) textes += c->text();
  for (const auto* c : dialogue.findChildren<QGroupBox*>()) textes += c->title();
  for (const auto* c : dialogue.findChildren<QLineEdit*>()) textes += c->placeholderText();
  for (const auto* c : dialogue.findChildren<QComboBox*>())
    for (int i = 0; i < c->count(); ++i) textes += c->itemText(i);
  for (const auto* c : dialogue.findChildren<QListWidget*>())
    for (int i = 0; i < c->count(); ++i) textes += c->item(i)->text();
  return textes;
}

// The pieces between the places that are filled in, without the marks of the keys.
QStringList Morceaux(TexteDialogue texte, Langue langue) {
  static const QRegularExpression kPlace(QStringLiteral("%[12]"));
  QStringList morceaux;
  for (const QString& morceau : TexteDe(texte, langue).remove(u'&').split(kPlace)) {
    if (morceau.trimmed().size() > 3) morceaux.append(morceau.trimmed());
  }
  return morceaux;
}

bool EstDansLaLangue(const QString& morceau, Langue langue) {
  for (int i = 0; i < static_cast<int>(TexteDialogue::kNombre); ++i) {
    if (TexteDe(static_cast<TexteDialogue>(i), langue).remove(u'&').contains(morceau)) return true;
  }
  return false;
}

void ExpectUneSeuleLangue(const QWidget& dialogue, Langue langue) {
  const QString lus = TextesLus(dialogue).join(u'\n').remove(u'&');
  ASSERT_GT(lus.size(), 40);
  for (const Langue autre : kLangues) {
    for (int i = 0; autre != langue && i < static_cast<int>(TexteDialogue::kNombre); ++i) {
      for (const QString& morceau : Morceaux(static_cast<TexteDialogue>(i), autre)) {
        if (EstDansLaLangue(morceau, langue)) continue;
        EXPECT_FALSE(lus.contains(morceau)) << kCodesLangues.Dit(langue).toStdString() << ": " << morceau.toStdString();
      }
    }
  }
}

TEST(DialoguesBilingues, ShowNoWordOfTheOtherLanguage) {
  const QTemporaryDir dossier;
  FauxPilote pilote;
  FauxPeripheriques acces;
  MemoireCapture memoire(dossier.filePath(QStringLiteral("capture.ini")));
  acces.Peripheriques_ = {{"/dev/video0", "C-1", "stable-a"}};
  acces.Formats_["/dev/video0"] = {{"MJPG", 3840, 2160, 30, 1}, {"YUYV", 640, 480, 30, 1}, {"YUYV", 320, 240, 0, 1}};
  ReglageCamera luminosite;
  luminosite.Numero = kLuminosite;
  luminosite.Nom = QStringLiteral("Brightness");
  luminosite.Maximum = 255;
  acces.Reglages_["/dev/video0"] = {luminosite};
  for (const GenreSource genre :
       {GenreSource::kPeripherique, GenreSource::kReseau, GenreSource::kFichier, GenreSource::kTest}) {
    pilote.Genre_ = genre;
    pilote.Noeud_ = genre == GenreSource::kPeripherique ? QStringLiteral("/dev/video0") : QString();
    pilote.Description_ = QStringLiteral("S-1");
    for (const FormatCamera& format : {FormatCamera{"MJPG", 3840, 2160, 30, 1}, FormatCamera{}}) {
      pilote.Format_ = format;
      for (const Langue langue : kLangues) {
        ExpectUneSeuleLangue(DialogueFormat(nullptr, langue, pilote, memoire, acces), langue);
        const DialogueSource source(nullptr, langue, pilote, memoire, acces);
        ExpectUneSeuleLangue(source, langue);
        if (genre == GenreSource::kPeripherique) {
          EXPECT_EQ(TextesLus(source).join(u'\n').contains(QStringLiteral("Brightness")), langue == Langue::kAnglais);
        }
      }
    }
  }
}

}  // namespace
}  // namespace vaktor
