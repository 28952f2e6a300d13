// SPDX-License-Identifier: GPL-3.0-or-later
// The module of the pushes in virtual time, beside mails that only note what they are told.
#pragma once

#include <QDateTime>
#include <QDir>

#include "modules/module_bench.h"
#include "modules/push/mail_and_push.h"
#include "support/file_bytes.h"
#include "support/tiny_jpeg.h"

namespace vaktor::essai {

struct PosteFaux : PostePush {
  explicit PosteFaux(QStringList& faits) : Faits(faits) {}
  ~PosteFaux() override { Faits << "fini"; }
  void ChangeReglages(const ReglagesPush& reglages) override { Faits << QString::fromLatin1(reglages.Adresse); }
  void Reveille() override { Faits << "reveille"; }
  QStringList& Faits;
};

struct MailFaux : Module {
  explicit MailFaux(QStringList& faits) : Faits(faits) {}
  void PrendReglages(const ReglagesModule&) override { Faits << "reglages"; }
  void Enregistre(Inscription) override { Faits << "inscrit"; }
  void ExecuteCommande(Commande commande) override { Faits << DonneMot(commande); }
  void Termine() override { Faits << "termine"; }
  QStringList& Faits;
};

struct Push : BancModule {
  qint64 Debut = QDateTime::currentMSecsSinceEpoch() - 3'600'000;
  QStringList Faits, FaitsMail;
  FacteurPush::Rapporteur Rapporte;
  SacPush Sac{Temporaire.filePath("push")};
  std::unique_ptr<ModuleMailEtPush> Module;

  Push() : BancModule("mail") {
    QDir(Temporaire.path()).mkdir("photos");
    Reglages.Valeurs.PushAdresse = "https://push.exemple.fr/secret-topic";
    Reglages.Valeurs.MailDestination = "anna@exemple.fr";
    Reglages.Valeurs.PhotoActif = true;
    Reglages.Valeurs.RepertoirePhoto = Temporaire.path() + "\\photos";
    Dossiers.Programme.Donnees = Temporaire.path();
    const PortsPush ports{Temporaire.filePath("push"),
                          Temporaire.filePath("veille"),
                          "m",
                          {},
                          Etat,
                          [this] { return Debut + Horloge.Millisecondes; },
                          [this](const FacteurPush::Rapporteur& rapporte) {
                            Rapporte = rapporte;
                            return std::make_unique<PosteFaux>(Faits);
                          }};
    const ContexteModule contexte{Dossiers, Journal, Etat, Temps, Horloge, [](const QString&) {}, [] {}};
    Module = std::make_unique<ModuleMailEtPush>(std::make_unique<MailFaux>(FaitsMail),
                                                std::make_unique<ModulePush>(contexte, ports));
    Module->PrendReglages(Reglages);
    Faits.clear();
    FaitsMail.clear();
  }
  void Photo(const QString& nom, const QByteArray& octets) const {
    PhotoDans(Temporaire.filePath("photos/"), nom, octets);
  }
  void PhotoDans(const QString& dossier, const QString& nom, const QByteArray& octets) const {
    QFile f(dossier + nom);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(octets);
    f.flush();
    f.setFileTime(QDateTime::fromMSecsSinceEpoch(Debut + Horloge.Millisecondes), QFileDevice::FileModificationTime);
  }
  void Bouge(int secondes) {
    for (int i = 0; i < secondes; ++i) {
      Module->ExecuteCommande(Commande::kIntrusion);
      Temps.Avance(1000);
    }
  }
  void PushSeul() {
    Reglages.Valeurs.MailDestination = "Adresse ?";
    Module->PrendReglages(Reglages);
    Faits.clear();
    FaitsMail.clear();
  }
  QString Veille() const { return Temporaire.filePath("veille"); }
  MessagePush Dernier() const { return Sac.Lit(Sac.Liste().value(0)).value_or(MessagePush()); }
};

}  // namespace vaktor::essai
