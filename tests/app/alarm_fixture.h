// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program on fakes, armed, with somebody who moves in each frame.
#pragma once

#include "app/program_fixture.h"

namespace vaktor::essai {

class AlarmeSurFaux : public ProgrammeSurFaux {
 protected:
  /// The windows of this program go before those of the next test are looked for by the same names.
  void TearDown() override {
    Programme.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  /// Armed, with photos, mail and sound on, and somebody who moves.
  void ArmeEtBouge(const QString& arguments = QStringLiteral("/alarm"), bool photos = true) {
    Systeme.Valeurs.insert(QMap<QString, QString>{{"general/retard", "1"},
                                                  {"general/seuilauto", "0"},
                                                  {"general/seuil", "1000"},
                                                  {"general/langue", "1"},
                                                  {"PHOTO/actif", photos ? "1" : "0"},
                                                  {"MAIL/actif", "1"},
                                                  {"SON/actif", "1"},
                                                  {"PHOTO/nombrephoto", "100000"}});
    FaitBouger();
    Demarre(arguments);
    Systeme.Temps.Avance(2000);
    Systeme.Recoit(1002, QStringLiteral("HWND:72"));
    Systeme.Recoit(1003, QStringLiteral("HWND:73"));
    Systeme.Temps.Avance(10'000);
    Systeme.Notes.Vide();
  }
  /// Two pictures by turns. Before the start.
  void FaitBouger() {
    QImage claire(287, 241, QImage::Format_RGB32);
    claire.fill(Qt::blue);
    const QImage sombre = Systeme.Pilote->Image;
    Systeme.Pilote->Suivante = [this, claire, sombre] { return (Paire_ = !Paire_) ? claire : sombre; };
  }
  /// The settings of a site, so that the live page can be switched on. Before the start.
  void DonneSite() {
    for (const char* cle : {"ftp", "user", "pass", "html"})
      Systeme.Valeurs.insert(QStringLiteral("FTP/") + QLatin1String(cle), QStringLiteral("098100102"));
  }
  /// Its companion comes and is connected.
  void OuvreLaPage() {
    Systeme.Recoit(1001, QStringLiteral("HWND:71"));
    Systeme.Recoit(1001, QStringLiteral("ConOK"));
    Systeme.Notes.Vide();
  }
  struct Actes {
    qsizetype Photos, Mails, Sons;
  };
  /// What the program does in so long.
  Actes Pendant(int millisecondes) {
    Systeme.Temps.Avance(millisecondes);
    const QStringList vus = Systeme.DepuisVide();
    return {vus.filter(QStringLiteral("jpeg: ")).size(), vus.count(QStringLiteral("channel: post 66 to 72")),
            vus.count(QStringLiteral("channel: post 66 to 73"))};
  }

 private:
  bool Paire_ = false;
};

}  // namespace vaktor::essai
