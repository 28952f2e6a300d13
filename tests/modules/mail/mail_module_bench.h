// SPDX-License-Identifier: GPL-3.0-or-later
// The bench of the mail companion's rules: virtual time, folders of the test's own, a post that only keeps a journal.
#pragma once

#include <QDateTime>

#include "modules/mail/mail_bench.h"
#include "modules/mail/mail_module.h"
#include "modules/module_bench.h"
#include "support/tiny_jpeg.h"

namespace vaktor::essai {

struct PosteFaux : Poste {
  explicit PosteFaux(QStringList& faits) : Faits(faits) {}
  void ChangeReglages(const ReglagesEnvoi& reglages) override { Reglages = reglages; }
  void Reveille() override { Faits << QStringLiteral("reveille"); }
  void Confie(const CourrielEnAttente& courriel, const QByteArray& message) override {
    Confies << courriel.Nom;
    Messages << message;
  }
  void Arrete(std::function<void()> fini) override { Fini = std::move(fini); }
  QStringList& Faits;
  ReglagesEnvoi Reglages;
  QStringList Confies;  // mails to be sent from memory
  QByteArrayList Messages;
  std::function<void()> Fini;
};

struct Mail : BancModule {
  QString Photos = Temporaire.filePath("photos");
  qint64 Debut = QDateTime::currentMSecsSinceEpoch() - 3'600'000;
  QStringList Faits;
  PosteFaux* Envoi = nullptr;
  Facteur::Rapporteur Rapporte;
  SacPostal Sac{Temporaire.filePath("courrier")};
  LecteurPhotos Lecteur;
  std::unique_ptr<ModuleMail> Module;

  Mail() : BancModule(QStringLiteral("mail")) {
    QDir().mkpath(Photos);
    Dossiers.Programme.Donnees = Temporaire.path();
    Dossiers.Etat = Temporaire.path();
    QDir().mkpath(Dossiers.CheminTempFtp());
    Parametres& p = Reglages.Valeurs;
    p.MailDestination = "anna@exemple.fr";
    p.SmtpFrom = "cam@exemple.fr";
    p.SmtpServeur = "smtp.exemple.fr";
    p.SmtpUser = "anna";
    p.SmtpPass = "s3cret&mot";
    p.PhotoActif = true;
    p.RepertoirePhoto = Temporaire.path() + "\\photos";
    CreeModule();
    Module->PrendReglages(Reglages);
  }
  /// As a companion that has just been started: no settings so far.
  void CreeModule() {
    Module.reset();
    PortsMail ports;
    ports.DossierSac = Temporaire.filePath("courrier");
    ports.DossierVeille = Temporaire.filePath("veille");
    ports.Marque = "essai";
    ports.Maintenant = [this] { return Debut + Horloge.Millisecondes; };
    ports.OuvrePoste = [this](const Facteur::Rapporteur& rapporte) {
      Rapporte = rapporte;
      auto poste = std::make_unique<PosteFaux>(Faits);
      Envoi = poste.get();
      return poste;
    };
    Module = std::make_unique<ModuleMail>(ContexteModule{Dossiers, Journal, Etat, Temps, Horloge, [](const QString&) {},
                                                         [this] { Faits << QStringLiteral("quitte"); }},
                                          ports);
  }
  void Intrusion(qint64 duree = 0) {
    for (qint64 t = 0; t <= duree; t += 30) {
      Module->ExecuteCommande(Commande::kIntrusion);
      if (duree > 0) Temps.Avance(30);
    }
  }
  void Photo(const QString& nom, const QString& dossier = {}) const {
    QFile f((dossier.isEmpty() ? Photos : dossier) + '/' + nom);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(PetitJpeg(nom.toUtf8()));
    f.flush();
    f.setFileTime(QDateTime::fromMSecsSinceEpoch(Debut + Horloge.Millisecondes), QFileDevice::FileModificationTime);
  }
  qsizetype Nombre() { return Sac.Liste().size(); }
  QJsonObject Lit(qsizetype i) { return LitCourriel(Sac.LitMessage(Sac.Liste().value(i).Nom)); }
  QStringList Fichiers() const { return QDir(Temporaire.filePath("courrier")).entryList(QDir::Files, QDir::Name); }
};

}  // namespace vaktor::essai
