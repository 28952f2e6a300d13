// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/control_factory.h"

#include <QProxyStyle>

#include "ui/common/field_font.h"

namespace vaktor {

namespace {

constexpr QSize kTailleCase{17, 17};

QFont DonnePolice(int pixels) {
  QFont police(QStringLiteral("Arial"));
  police.setPixelSize(pixels);
  return police;
}

// Styles have signs of their own. A style sheet could say the same, at the price of the whole machinery for them.
class StyleSecret : public QProxyStyle {
 public:
  int styleHint(StyleHint sujet, const QStyleOption* option, const QWidget* controle,
                QStyleHintReturn* retour) const override {
    if (sujet == SH_LineEdit_PasswordCharacter) return '*';
    return QProxyStyle::styleHint(sujet, option, controle, retour);
  }
};

}  // namespace

QString NomIndexe(const char* nom, int index) { return QStringLiteral("%1(%2)").arg(QLatin1String(nom)).arg(index); }

QLabel* CreeEtiquette(QWidget* parent, const QString& nom, const QRect& place, int police, QRgb couleur) {
  auto* etiquette = new QLabel(parent);
  etiquette->setObjectName(nom);
  etiquette->setGeometry(place);
  etiquette->setFont(DonnePolice(police));
  etiquette->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  etiquette->setTextFormat(Qt::PlainText);
  ColoreEtiquette(*etiquette, couleur);
  return etiquette;
}

QLabel* CreeEtiquetteDeChamp(QWidget* parent, const QString& nom, const QRect& place) {
  QLabel* etiquette = CreeEtiquette(parent, nom, place, kPoliceMoyenne);
  etiquette->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  return etiquette;
}

QLineEdit* CreeChamp(QWidget* parent, const QString& nom, const QRect& place) {
  auto* champ = CreeChampEnPolice<QLineEdit>(parent, DonnePolice(kPolicePetite));
  champ->setObjectName(nom);
  champ->setGeometry(place);
  return champ;
}

QLineEdit* CreeChampSecret(QWidget* parent, const QString& nom, const QRect& place) {
  QLineEdit* champ = CreeChamp(parent, nom, place);
  champ->setEchoMode(QLineEdit::Password);
  auto* style = new StyleSecret;
  style->setParent(champ);
  champ->setStyle(style);
  return champ;
}

QComboBox* CreeListe(QWidget* parent, const QString& nom, const QRect& place) {
  auto* liste = new QComboBox(parent);
  liste->setObjectName(nom);
  liste->setGeometry(place);
  liste->setFont(DonnePolice(kPolicePetite));
  return liste;
}

void HabilleCase(QCheckBox& boite) {
  QFont police(QStringLiteral("MS Sans Serif"));
  police.setPixelSize(kPoliceGrande);
  boite.setFont(police);
}

CaseACocher* CreeCase(QWidget* parent, const QString& nom, const QPoint& place) {
  auto* boite = new CaseACocher(parent);
  boite->setObjectName(nom);
  boite->setGeometry(QRect(place, kTailleCase));
  HabilleCase(*boite);
  return boite;
}

void ColoreEtiquette(QLabel& etiquette, QRgb couleur) {
  // An unchanged colour needs no palette of the label's own.
  if (etiquette.palette().color(QPalette::WindowText) == QColor::fromRgb(couleur)) return;
  QPalette palette = etiquette.palette();
  palette.setColor(QPalette::WindowText, QColor::fromRgb(couleur));
  etiquette.setPalette(palette);
}

}  // namespace vaktor
