// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/forms/timeline_look.h"

#include <QPainter>

#include "ui/face/art_images.h"

namespace vaktor {
namespace {

constexpr int kNombreSkins = 3;

/// The part of a skin below its printed band, and left of what is drawn into it.
QImage CoupeMatiere(int index, double densite) {
  const QImage peau = ChargeArt(QStringLiteral("SKIN%1").arg(index), EchelleArt(densite));
  if (peau.isNull()) return {};
  QImage coupe = peau.copy(0, peau.height() * 30 / 100, peau.width() * 56 / 100, peau.height() * 50 / 100);
  coupe.setDevicePixelRatio(1);
  return coupe;
}

AllureFrise AllureClaire(const QColor& fond, const QColor& barre) {
  return {.Matiere = {},
          .Voile = QColor(255, 255, 255, 60),
          .EncreTete = QColor(0x1c, 0x24, 0x22),
          .Fond = fond,
          .Encre = QColor(0x20, 0x26, 0x2a),
          .EncreDouce = QColor(0x50, 0x58, 0x5c),
          .Carte = QColor(0xfb, 0xfb, 0xfc),
          .BordCarte = QColor(0xb8, 0xc0, 0xbf),
          .Piste = QColor(0xfa, 0xfb, 0xfb, 225),
          .BordPiste = QColor(0x7d, 0x86, 0x84),
          .EncrePiste = QColor(0x3a, 0x43, 0x42),
          .Armee = QColor(0x4f, 0xa3, 0x5a),
          .Barre = barre,
          .BarreVague = QColor(0x96, 0xa2, 0xae),
          .Choisi = QColor(0x24, 0x3f, 0xa8),
          .Rouge = QColor(0xc6, 0x2f, 0x2a)};
}

AllureFrise AllureBois() {
  return {.Matiere = {},
          .Voile = QColor(20, 12, 4, 120),
          .EncreTete = QColor(0xfb, 0xf3, 0xe0),
          .Fond = QColor(0x2b, 0x22, 0x18),
          .Encre = QColor(0x2a, 0x20, 0x14),
          .EncreDouce = QColor(0x62, 0x53, 0x3f),
          .Carte = QColor(0xf1, 0xe8, 0xd4),
          .BordCarte = QColor(0x12, 0x0d, 0x08),
          .Piste = QColor(0xf1, 0xe8, 0xd4, 235),
          .BordPiste = QColor(0x12, 0x0d, 0x08),
          .EncrePiste = QColor(0x46, 0x39, 0x28),
          .Armee = QColor(0x5f, 0x8f, 0x3f),
          .Barre = QColor(0x6a, 0x5a, 0xa6),
          .BarreVague = QColor(0x9d, 0x90, 0x7b),
          .Choisi = QColor(0xc8, 0x6a, 0x12),
          .Rouge = QColor(0xb8, 0x2a, 0x1e)};
}

QString Nom(const QColor& couleur) { return couleur.name(QColor::HexRgb); }

}  // namespace

AllureFrise ChoisitAllure(int index, double densite) {
  const int skin = index >= 0 && index < kNombreSkins ? index : 0;
  AllureFrise allure = skin == 2   ? AllureBois()
                       : skin == 1 ? AllureClaire(QColor(0xdd, 0xe1, 0xe3), QColor(0x5c, 0x6f, 0xc0))
                                   : AllureClaire(QColor(0xd8, 0xde, 0xd8), QColor(0x6c, 0x68, 0xb4));
  allure.Matiere = CoupeMatiere(skin, densite);
  return allure;
}

QFont PoliceFrise(int pixels, bool gras) {
  QFont police(QStringLiteral("Arial"));
  police.setPixelSize(pixels);
  police.setBold(gras);
  return police;
}

void DessineTete(QPainter& peintre, const QRect& place, const AllureFrise& allure) {
  if (allure.Matiere.isNull()) {
    peintre.fillRect(place, allure.Fond);
    return;
  }
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  peintre.drawImage(place, allure.Matiere);
  peintre.fillRect(place, allure.Voile);
}

// The faces of the main window's grey buttons, as far as a style sheet can say them: light above, darker below.
QString FeuilleFrise(const AllureFrise& allure) {
  return QStringLiteral(
             "QPushButton,QToolButton{color:#1c2022;border:1px solid #6e7478;border-radius:5px;padding:5px 14px;"
             "background:qlineargradient(x1:0,y1:0,x2:0,y2:1,stop:0 #ffffff,stop:0.48 #ececee,stop:0.5 #d6d7da,"
             "stop:1 #c9cbcf);}"
             "QToolButton{padding:5px;}"
             "QPushButton:hover,QToolButton:hover{background:qlineargradient(x1:0,y1:0,x2:0,y2:1,stop:0 #ffffff,"
             "stop:0.48 #e6e6fa,stop:0.5 #cfcff0,stop:1 #bcbce6);}"
             "QPushButton:pressed,QToolButton:pressed,QPushButton:checked{background:#aeaede;}"
             "QPushButton:focus,QToolButton:focus{border:2px solid %1;padding:4px 13px;}"
             "QToolButton:focus{padding:4px;}"
             "QPushButton:disabled,QToolButton:disabled{color:#6a6f73;border-color:#9a9fa3;background:#d9dbdd;}"
             "QScrollBar:vertical{background:transparent;width:12px;margin:0;}"
             "QScrollBar::handle:vertical{background:rgba(90,98,104,150);border-radius:4px;min-height:36px;margin:2px;}"
             "QScrollBar::handle:vertical:hover{background:rgba(70,78,84,210);}"
             "QScrollBar::add-line,QScrollBar::sub-line,QScrollBar::add-page,QScrollBar::sub-page{height:0;width:0;"
             "background:transparent;}"
             "QCheckBox{spacing:6px;}QLabel{color:%2;background:transparent;}")
      .arg(Nom(allure.Choisi), Nom(allure.EncreTete));
}

}  // namespace vaktor
