#include "app/raised_rights.h"

#include "app/registry_texts.h"
#include "base/failure.h"

namespace vaktor {

namespace {

const QLatin1String kCleDrapeaux("Software\\Microsoft\\Windows NT\\CurrentVersion\\AppCompatFlags");
const QLatin1String kSousCle("Layers");
const QLatin1String kDrapeauAdmin("RUNASADMIN");
const QLatin1String kDrapeauEleve("ELEVATECREATEPROCESS");

struct MessageRelance {
  QString Texte, Titre;
};

MessageRelance ComposeMessage(qint32 langue) {
  const QString titre = QStringLiteral("Attention");
  if (langue == 0)
    return {QString::fromUtf8("Vaktor doit être executé en tant qu'administrateur.\r\n"
                              "Pour passer en mode administrateur, cliquez sur OK, puis autorisez le sur la fenêtre "
                              "qui suit"),
            titre};
  if (langue == 1)
    return {QStringLiteral("Vaktor must be executed as an administrator\r\n"
                           "To change to the Administrator, click OK, then authorize on the window below."),
            titre};
  return {};  // a language without words: the box comes up empty, and the restart goes on
}

}  // namespace

bool RelanceDroits::EstVistaOuSeven() const {
  const QString produit =
      TexteValeur(Ports_.Registre.LitValeur(RacineRegistre::kMachine,
                                            QStringLiteral("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion"),
                                            QStringLiteral("productname")))
          .toLower();
  return produit.contains(QLatin1String("vista")) || produit.contains(QLatin1Char('7'));
}

bool RelanceDroits::PrepareRelance(qint32 langue) {
  const MessageRelance message = ComposeMessage(langue);
  if (!EstVistaOuSeven() || DroitsDejaDemandes()) return false;
  DemandeDroits();
  Ports_.Boites.MontreMessage(message.Texte, message.Titre, BoutonsBoite::kOk);
  const QString relanceur = Programme(QStringLiteral("restart.exe"));
  if (!Ports_.Programmes.LanceProgramme(relanceur)) throw Echec(kFichierIntrouvable, relanceur);
  return true;
}

bool RelanceDroits::DroitsDejaDemandes() const {
  // Equal to the last character: a flag that only begins this way is somebody else's and is overwritten.
  return LitRegistreUtilisateur(Ports_.Registre, kCleDrapeaux, kSousCle, Programme(QStringLiteral("Vaktor.exe")), {}) ==
         kDrapeauAdmin;
}

void RelanceDroits::DemandeDroits() {
  PoseDrapeau(QStringLiteral("Vaktor.exe"), kDrapeauAdmin);
  PoseDrapeau(QStringLiteral("PlanificateurVAKTOR.exe"), kDrapeauAdmin);
  PoseDrapeau(QStringLiteral("restart.exe"), kDrapeauEleve);
}

void RelanceDroits::PoseDrapeau(const QString& programme, const QString& drapeau) {
  EcritRegistreUtilisateur(Ports_.Registre, kCleDrapeaux, kSousCle, Programme(programme), drapeau);
}

}  // namespace vaktor
