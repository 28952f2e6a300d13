// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a word of a companion, as a command to one, and as a status file.
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "base/failure.h"
#include "companions/companion_fakes.h"
#include "companions/sending_watch.h"
#include "fakes/fake_companion_status.h"
#include "fakes/fake_health_report.h"
#include "platform/folders/companion_status_reader.h"

namespace vaktor {
namespace {

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

/// The main program's side of the channel, with a switch that is on.
struct Fenetres {
  QStringList Journal;
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Minuteries{Horloge};
  essai::CanalFaux Canal{Journal};
  essai::MagasinFaux Magasin{Journal};
  essai::CommandesFaux Commandes{Journal};
  essai::FenetreFausse Fenetre{Journal};
  EtatLiaison Etat;
  FormWinsock Form{PortsWinsock{Canal, Magasin, Minuteries, Commandes, Fenetre, Fenetre, Etat, [] {}}};
};

void EssaieMots(const QByteArray& octets) {
  static Fenetres fenetres;
  for (const QByteArray& ligne : octets.split('\n')) {
    const QString mot = QString::fromUtf8(ligne);
    const EtatLiaison avant = fenetres.Etat;
    for (void (FormWinsock::*recu)(const QString&) :
         {&FormWinsock::ChangeTxtCmdFTP, &FormWinsock::ChangeTxtCmdMail, &FormWinsock::ChangeTxtCmdSound}) {
      try {
        (fenetres.Form.*recu)(mot);
      } catch (const Echec&) {
        Exige(mot.startsWith(kMotHwnd));
      }
    }
    const bool pareil = avant.HandleFTP == fenetres.Etat.HandleFTP && avant.HandleMail == fenetres.Etat.HandleMail &&
                        avant.HandleSon == fenetres.Etat.HandleSon;
    Exige(pareil || mot.startsWith(kMotHwnd));
    fenetres.Journal.clear();
  }
  for (const Compagnon compagnon : kCompagnons) {
    bool nombre = false;
    const qint32 code = octets.toInt(&nombre);
    const std::optional<Commande> commande = nombre ? LitCodeTouche(compagnon, code) : std::nullopt;
    if (commande) Exige(DonneCodeTouche(compagnon, *commande) == code);
  }
}

void EssaieEtat(const QByteArray& octets) {
  const EtatCompagnon etat = ComprendEtat(octets, 1'800'000'000'000);
  Exige(etat.Poignee >= 0 && etat.MotsServeur.size() <= 300 && etat.MotsPush.size() <= 300);
  for (const std::optional<qint64>& age : {etat.Attente, etat.Publie, etat.AttentePush}) Exige(!age || *age >= 0);
  Parametres reglages;
  reglages.MailActif = true;
  EtatLiaison liaison;
  liaison.HandleFTP = liaison.HandleMail = etat.Poignee;
  liaison.SurveillanceEnCours = true;
  faux::HorlogeVirtuelle horloge;
  faux::TempsVirtuel minuteries{horloge};
  faux::LecteurEtatsFaux lecteur;
  faux::SanteFausse sante;
  lecteur.Etats = {etat, etat};
  const SuiviEnvois suivi(PortsEnvois{reglages, liaison, horloge, minuteries, lecteur, sante});
  minuteries.Avance(qint64{2} * SuiviEnvois::kRegard);
  const bool parle = etat.Poignee != 0;
  Exige(sante.Dure(Condition::kPushEnAttente) ==
        (parle && etat.AttentePush && *etat.AttentePush > SuiviEnvois::kAttenteMax));
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const QByteArray octets(reinterpret_cast<const char*>(donnees), static_cast<qsizetype>(taille));
  vaktor::EssaieMots(octets);
  vaktor::EssaieEtat(octets);
  return 0;
}
