// A ReglagesPersistants among fakes: store, files, companions, and a form whose fields save as the real ones do.
#pragma once

#include <functional>

#include "fakes/fake_files.h"
#include "fakes/fake_health_report.h"
#include "fakes/fake_store.h"
#include "settings/persistent_settings.h"

namespace vaktor {

class FauxModules : public CommandesModules {
 public:
  QStringList Envois;                         ///< "FTP:Optio" and so on
  std::function<void()> AuPremierEnvoi = {};  ///< what a companion sees when it is told

  void EnvoiFTP(Commande commande) override { Note(QStringLiteral("FTP:") + DonneMot(commande)); }
  void EnvoiMail(Commande commande) override { Note(QStringLiteral("MAIL:") + DonneMot(commande)); }
  void EnvoiSon(Commande commande) override { Note(QStringLiteral("SON:") + DonneMot(commande)); }

 private:
  void Note(const QString& envoi) {
    if (Envois.isEmpty() && AuPremierEnvoi) AuPremierEnvoi();
    Envois += envoi;
  }
};

/// Records what it is told to show. TxtRefresh and Text1 have a text, and save when it changes, as in the form.
class FauxAffichage : public AffichageParametres {
 public:
  QList<ControleParametre> Montres;
  QString TxtRefresh;
  QString Text1 = QStringLiteral("0");
  const Parametres* Valeurs = nullptr;
  std::function<void()> Sauve = {};  ///< empty: fields without handlers
  std::function<void(ControleParametre)> AuMoment = {};

  void MontreParametre(ControleParametre controle) override {
    Montres += controle;
    if (AuMoment) AuMoment(controle);
    if (controle == ControleParametre::TxtRefresh) Change(TxtRefresh, Valeurs->IntervalleFtp);
    if (controle == ControleParametre::Text1) Change(Text1, QString::number(Valeurs->Retard));
  }

 private:
  void Change(QString& champ, const QString& texte) {
    if (champ == texte) return;
    champ = texte;
    if (Sauve) Sauve();
  }
};

struct BancReglages {
  Parametres Valeurs;
  FauxMagasin Magasin;
  FauxFichiers Disque;
  FauxModules Modules;
  FauxAffichage Affichage;
  faux::SanteFausse Sante;
  QSize Taille{320, 240};
  QStringList LusAvantForme;  ///< keys read before the main form came into being
  ReglagesPersistants Reglages{{.Valeurs = Valeurs,
                                .Magasin = Magasin,
                                .Disque = Disque,
                                .Modules = Modules,
                                .DossierProgramme = QStringLiteral("/prog"),
                                .PremierControle = [this]() -> AffichageParametres& {
                                  LusAvantForme = Magasin.Lus;
                                  return Affichage;
                                },
                                .TailleImage = [this] { return Taille; },
                                .Sante = Sante}};

  BancReglages() {
    Disque.AjouteDossier(QStringLiteral("/prog"));
    Affichage.Valeurs = &Valeurs;
    Affichage.Sauve = [this] { Reglages.SauveParametres(); };
  }
};

/// Its load is over, of a store that was empty, and forgotten.
struct BancCharge : BancReglages {
  BancCharge() {
    Reglages.ChargeParametres();
    Valeurs = Parametres{};
    Magasin.Valeurs.clear();
    Magasin.Disque.clear();
    Magasin.Lus.clear();
    Magasin.Ecrits.clear();
    Modules.Envois.clear();
  }
};

}  // namespace vaktor
