// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/persistent_settings.h"

#include <QLatin1StringView>
#include <QScopedValueRollback>
#include <utility>

#include "base/failure.h"
#include "base/numbers.h"
#include "settings/settings_failures.h"
#include "texts/language.h"

namespace vaktor {

namespace {

// From the store, not from Parametres: the very first value may be the damaged one, before the language is loaded.
Langue LangueDuMagasin(MagasinReglages& magasin) {
  try {
    return LangueParlee(
        TexteEnEntier(magasin.LitReglage(QStringLiteral("general"), QStringLiteral("langue"), QStringLiteral("0"))));
  } catch (const Echec&) {
    return Langue::kFrancais;
  }
}

}  // namespace

ReglagesPersistants::ReglagesPersistants(LiensReglages liens) : Liens_(std::move(liens)) {}

const LigneReglage* ReglagesPersistants::LitSuivant() {
  while (!Restent_.empty() && !EstLue(Restent_.front())) Restent_ = Restent_.subspan(1);
  if (Restent_.empty()) return nullptr;
  const LigneReglage& ligne = Restent_.front();
  LitLigne(ligne);
  RepareLu(ligne);
  // Last: a row that has thrown is never passed over.
  Restent_ = Restent_.subspan(1);
  return &ligne;
}

void ReglagesPersistants::LitJusqua(const ChampParametre& champ) {
  const LigneReglage* ligne = nullptr;
  do {
    ligne = LitSuivant();
  } while (ligne != nullptr && ligne->Champ != champ);
}

void ReglagesPersistants::TermineChargement(const std::function<void()>& montre) {
  while (LitSuivant() != nullptr) {
  }
  DeduitQualiteJpeg(Liens_.Valeurs);
  DitAbimes();
  // Back to where nothing is saved if the tail fails: the program does not come up then.
  QScopedValueRollback<Etape> etape(Etape_, Etape::kFin);
  if (montre) montre();
  if (Reportee_) SauveParametres();
  Etape_ = Etape::kChargee;
  etape.commit();
}

void ReglagesPersistants::LitLigne(const LigneReglage& ligne) {
  const QString texte = Liens_.Magasin.LitReglage(QLatin1StringView(ligne.Section), QLatin1StringView(ligne.Cle),
                                                  DefautReglage(ligne, Liens_.DossierPhotos));
  NotePerdu(ligne);
  try {
    LitValeur(ligne, texte, Liens_.Valeurs);
  } catch (const Echec& echec) {
    throw Echec(echec.Numero(), DitReglageImpossible(LangueDuMagasin(Liens_.Magasin), NomReglage(ligne), texte,
                                                     Liens_.Magasin.Emplacement()));
  }
}

// A setting that is missing has its start value, which is as it should be on a first run and behind an update. In a
// store that was damaged it is most likely one that was lost. What gives back the default, whichever that is, has none.
void ReglagesPersistants::NotePerdu(const LigneReglage& ligne) {
  if (Liens_.Magasin.Abimes().Intact()) return;
  const QLatin1StringView section(ligne.Section);
  const QLatin1StringView cle(ligne.Cle);
  const bool absente = Liens_.Magasin.LitReglage(section, cle, QStringLiteral("0")) == QLatin1StringView("0") &&
                       Liens_.Magasin.LitReglage(section, cle, QStringLiteral("1")) == QLatin1StringView("1");
  if (absente) Perdus_.append(NomReglage(ligne));
}

// Nothing of what the values were, only which: one may be a password. The next save writes the store anew, and nobody
// would ever know.
void ReglagesPersistants::DitAbimes() {
  const AbimesMagasin abimes = Liens_.Magasin.Abimes();
  if (abimes.Intact()) return;
  Liens_.Sante.Signale(Condition::kReglagesAbimes,
                       DitReglagesAbimes(LangueParlee(Liens_.Valeurs.LangueCourante), abimes.Coupees + Perdus_,
                                         abimes.Lignes, Liens_.Magasin.Emplacement()));
}

void ReglagesPersistants::RepareLu(const LigneReglage& ligne) {
  if (ligne.Champ == ChampParametre(&Parametres::RepertoirePhoto)) RepareRepertoirePhoto(ligne);
  if (ligne.Champ == ChampParametre(&Parametres::FichierSon)) RepareSonAbsent();
  if (ligne.Champ == ChampParametre(&Parametres::IntervalleFtp)) RepareIntervalleVide();
}

// The user's folder is replaced in the store and not kept for later, also when it only vanished for a while (a drive
// that is not plugged in): photos of an alarm must have a place, and the user must see which.
// A file of that name is no folder: every photo would fail, and nobody is there to see it. Where the program's own
// folder is a file it cannot be made, which ends the start. A disk that does not answer, a server that comes up later
// than this machine, has lost nothing: its folder stays, and should it stay silent the photos of an alarm say so
// themselves.
void ReglagesPersistants::RepareRepertoirePhoto(const LigneReglage& ligne) {
  QString& repertoire = Liens_.Valeurs.RepertoirePhoto;
  if (Liens_.Disque.RegardeDossier(repertoire) != Presence::kAbsent) return;
  const QString dossier = DefautReglage(ligne, Liens_.DossierPhotos);
  if (Liens_.Disque.RegardeDossier(dossier) == Presence::kAbsent && !Liens_.Disque.CreeDossier(dossier)) {
    throw Echec(kFichierIntrouvable, DitDossierPhotoImpossible(LangueParlee(Liens_.Valeurs.LangueCourante),
                                                               NomReglage(ligne), repertoire, dossier));
  }
  // On a first run, and where the default is made again, nothing has taken the place of anything.
  if (repertoire != dossier && !repertoire.isEmpty())
    Liens_.Sante.Signale(Condition::kDossierRemplace, repertoire + QStringLiteral(" -> ") + dossier);
  repertoire = dossier;
  Liens_.Magasin.EcritReglage(QLatin1StringView(ligne.Section), QLatin1StringView(ligne.Cle), repertoire);
  VideMagasin();
}

// After the file, which is read behind the choice.
void ReglagesPersistants::RepareSonAbsent() {
  constexpr qint32 kSonDuFichier = 3;
  Parametres& valeurs = Liens_.Valeurs;
  if (valeurs.FichierSon.isEmpty() && valeurs.IndexSon == kSonDuFichier) valeurs.IndexSon = 0;
}

// Any other text that is no number is cleaned by its field, which is shown it. An empty one is what the field shows
// already: nothing would clean it, and without an interval no frame is compared.
void ReglagesPersistants::RepareIntervalleVide() {
  if (Liens_.Valeurs.IntervalleFtp.isEmpty()) Liens_.Valeurs.IntervalleFtp = QStringLiteral("5");
}

void ReglagesPersistants::SauveParametres() {
  Reportee_ = Etape_ == Etape::kLecture;
  if (Reportee_) return;
  const QSize taille = Liens_.TailleImage();
  for (const LigneReglage* ligne : OrdreSauvegarde()) {
    QString texte = TexteValeur(*ligne, Liens_.Valeurs);
    if (ligne->Forme == FormeStockee::Mesure) {
      const bool largeur = QLatin1StringView(ligne->Cle) == QLatin1StringView("width");
      texte = QString::number(largeur ? taille.width() : taille.height());
    }
    Liens_.Magasin.EcritReglage(QLatin1StringView(ligne->Section), QLatin1StringView(ligne->Cle), texte);
  }
  VideMagasin();
  // After the last write: a companion reads the store as soon as it is told.
  Liens_.Modules.EnvoiFTP(Commande::kOptions);
  Liens_.Modules.EnvoiMail(Commande::kOptions);
  Liens_.Modules.EnvoiSon(Commande::kOptions);
  Liens_.Valeurs.ParametresModifies = false;
}

void ReglagesPersistants::VideMagasin() {
  try {
    Liens_.Magasin.Vide();
    Liens_.Sante.Leve(Condition::kReglagesNonSauves);
  } catch (const Echec& echec) {
    // The message that follows is read once and gone, or nobody is there to read it: what was not saved stays told
    // until a save succeeds.
    Liens_.Sante.Signale(Condition::kReglagesNonSauves, echec.Description());
    throw Echec(echec.Numero(),
                DitSauvegardeImpossible(LangueParlee(Liens_.Valeurs.LangueCourante), echec.Description()));
  }
}

}  // namespace vaktor
