// SPDX-License-Identifier: GPL-3.0-or-later
// The bench of the FTP companion's rules: virtual time, and a worker that is played by hand.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <new>
#include <utility>

#include "modules/ftp/ftp_module.h"
#include "modules/module_bench.h"
#include "support/file_bytes.h"

namespace vaktor::essai {

struct OuvrierFaux : OuvrierFtp {
  void Lance(const TravailFtp& travail, SurEtape etape, SurFin fin) override {
    EXPECT_EQ(Fin, nullptr) << "one job at a time";
    if (std::exchange(SansMemoire, false)) throw std::bad_alloc();
    Travail = travail;
    Etape = std::move(etape);
    Fin = std::move(fin);
  }
  void Coupe() override {
    ++Coupes;
    Fin = nullptr;
  }
  bool EnCours() const { return Fin != nullptr; }
  TravailFtp Travail;
  SurEtape Etape;
  SurFin Fin;
  int Coupes = 0;
  bool SansMemoire = false;  ///< the next job finds none
};

struct Ftp : BancModule {
  const qint64 DebutReel = QDateTime::currentMSecsSinceEpoch();
  QStringList Mots;
  OuvrierFaux* Ouvrier = nullptr;
  std::unique_ptr<ModuleFtp> Module;

  Ftp() : BancModule(QStringLiteral("ftp")) {
    Dossiers.Etat = Dossiers.Programme.Donnees = Temporaire.path();
    QDir(Temporaire.path()).mkpath("Temp/FTP");
    Horloge.Date = QDate::currentDate();  // the files' own times are the system's
    Horloge.Debut = QTime::currentTime();
    Etat.ChangeLangue(Langue::kAnglais);
    Reglages.Valeurs.AdresseFtp = "ftp.exemple.fr:2121";
    Reglages.Valeurs.UtilisateurFtp = "anna";
    Reglages.Valeurs.MotDePasseFtp = "sesame";
    CreeModule();
  }
  void CreeModule() {
    auto ouvrier = std::make_unique<OuvrierFaux>();
    Ouvrier = ouvrier.get();
    Module = std::make_unique<ModuleFtp>(
        ContexteModule{Dossiers, Journal, Etat, Temps, Horloge, [this](const QString& mot) { Entend(mot); },
                       [this] { Mots << QStringLiteral("quitte"); }, [this] { return Maintenant(); }},
        std::move(ouvrier));
    Module->PrendReglages(Reglages);
  }
  void Entend(const QString& mot) {
    if (mot == MotSansMemoire) throw std::bad_alloc();
    Mots << mot;
  }
  QString MotSansMemoire;  ///< there is no memory to say it
  qint64 Maintenant() const { return DebutReel + Horloge.Millisecondes; }
  /// As the main program does, `age` milliseconds ago.
  void PoseLive(qint64 age = 0) {
    QFile live(Temporaire.filePath("Temp/Live.jpg"));
    ASSERT_TRUE(live.open(QIODevice::WriteOnly));
    live.write("x");
    live.flush();
    live.setFileTime(QDateTime::fromMSecsSinceEpoch(Maintenant() - age), QFileDevice::FileModificationTime);
  }
  QJsonObject EtatLu() const { return QJsonDocument::fromJson(LitOctets(Temporaire.filePath("ftp.json"))).object(); }
  /// The words said since the last look.
  QString Dits() { return std::exchange(Mots, {}).join(u' '); }
  /// `mot`: the word of a command of this companion.
  QString Dit(const QString& mot) {
    Mots.clear();
    for (const Commande commande :
         {Commande::kConnexion, Commande::kDeconnexion, Commande::kSurveillance, Commande::kPage})
      if (DonneMot(commande) == mot) Module->ExecuteCommande(commande);
    return Dits();
  }
  QString Finit(IssueFtp issue, const QString& mots = {}) {
    EXPECT_TRUE(Ouvrier->EnCours());
    Mots.clear();
    std::exchange(Ouvrier->Fin, nullptr)({issue, mots});
    return Dits();
  }
  QString Avance(qint64 millisecondes) {
    Mots.clear();
    Temps.Avance(millisecondes);
    return Dits();
  }
  void Connecte() {
    Dit("Conne");
    ASSERT_EQ(Finit(IssueFtp::kReussi), "ConOK");
  }
  /// Connected, and one image has gone through.
  void Publie() {
    Connecte();
    Dit("Surve");
    ASSERT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  }
  void PosePhoto(const QString& nom, int age = 0) {
    QFile photo(Temporaire.filePath("Temp/FTP/" + nom));
    ASSERT_TRUE(photo.open(QIODevice::ReadWrite));
    photo.write("x");
    photo.flush();
    photo.setFileTime(QDateTime::fromMSecsSinceEpoch(Maintenant() - age * 1000LL), QFileDevice::FileModificationTime);
  }
  QStringList PhotosLocales() const { return QDir(Temporaire.filePath("Temp/FTP")).entryList(QDir::Files); }
  bool EnPage() const { return Ouvrier->EnCours() && Ouvrier->Travail.Nom == kNomPage; }
  QString EtatEcrit() const { return LitTexte(Temporaire.filePath("ftp.json")); }
};

}  // namespace vaktor::essai
