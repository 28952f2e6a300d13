#include "settings/persistent_settings.h"

#include <QLatin1StringView>
#include <QScopedValueRollback>
#include <utility>

#include "base/failure.h"
#include "base/numbers.h"
#include "settings/settings_failures.h"
#include "texts/language.h"

namespace vaktor {

using C = ControleParametre;

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

void ReglagesPersistants::ChargeParametres() {
  Etape_ = Etape::kLecture;
  constexpr std::size_t kSansForme = kRangSeuilAuto - 1;
  const std::span<const LigneReglage> lignes = TableReglages().first(kNombreReglages);
  for (const LigneReglage& ligne : lignes.first(kSansForme)) LitLigne(ligne);
  // The main form comes into being here and not earlier: its load step publishes the inboxes and needs the language.
  AffichageParametres& affichage = Liens_.PremierControle();
  for (const LigneReglage& ligne : lignes.subspan(kSansForme)) {
    LitLigne(ligne);
    if (ligne.Controle) affichage.MontreParametre(*ligne.Controle);
    if (ligne.RangChargement == kRangRepertoirePhoto) RepareRepertoirePhoto(ligne);
    if (ligne.RangChargement == kRangFichierSon) RepareSonAbsent();
  }
  // Back to where nothing is saved if the tail fails: the program does not come up then.
  QScopedValueRollback<Etape> etape(Etape_, Etape::kFin);
  MontreFinChargement(affichage);
  if (Reportee_) SauveParametres();
  Etape_ = Etape::kChargee;
  etape.commit();
}

void ReglagesPersistants::LitLigne(const LigneReglage& ligne) {
  const QString texte = Liens_.Magasin.LitReglage(QLatin1StringView(ligne.Section), QLatin1StringView(ligne.Cle),
                                                  DefautReglage(ligne, Liens_.DossierProgramme));
  try {
    LitValeur(ligne, texte, Liens_.Valeurs);
  } catch (const Echec& echec) {
    throw Echec(echec.Numero(), DitReglageImpossible(LangueDuMagasin(Liens_.Magasin), NomReglage(ligne), texte,
                                                     Liens_.Magasin.Emplacement()));
  }
}

// The user's folder is replaced in the store and not kept for later, also when it only vanished for a while (a drive
// that is not plugged in): photos of an alarm must have a place, and the user must see which.
// A disk that does not answer, a server that comes up later than this machine, has lost nothing: its folder stays, and
// should it stay silent the photos of an alarm say so themselves.
void ReglagesPersistants::RepareRepertoirePhoto(const LigneReglage& ligne) {
  QString& repertoire = Liens_.Valeurs.RepertoirePhoto;
  if (Liens_.Disque.Regarde(repertoire) != Presence::kAbsent) return;
  const QString dossier = DefautReglage(ligne, Liens_.DossierProgramme);
  if (Liens_.Disque.Regarde(dossier) == Presence::kAbsent && !Liens_.Disque.CreeDossier(dossier)) {
    throw Echec(kFichierIntrouvable, DitDossierPhotoImpossible(LangueParlee(Liens_.Valeurs.LangueCourante),
                                                               NomReglage(ligne), repertoire, dossier));
  }
  repertoire = dossier;
  Liens_.Magasin.EcritReglage(QLatin1StringView(ligne.Section), QLatin1StringView(ligne.Cle), repertoire);
  VideMagasin();
}

void ReglagesPersistants::RepareSonAbsent() {
  constexpr qint32 kSonDuFichier = 3;
  Parametres& valeurs = Liens_.Valeurs;
  if (valeurs.FichierSon.isEmpty() && valeurs.IndexSon == kSonDuFichier) valeurs.IndexSon = 0;
}

void ReglagesPersistants::MontreFinChargement(AffichageParametres& affichage) {
  affichage.MontreParametre(C::TxtHtml);
  affichage.MontreParametre(C::TxtFtp);
  affichage.MontreParametre(C::TxtUserName);
  affichage.MontreParametre(C::TxtFTPracine);
  MontreIntervalle(affichage);
  affichage.MontreParametre(C::TxtPass);
  affichage.MontreParametre(C::TextNbrPhotoFTP);
  affichage.MontreParametre(C::TxtFTPracine);  // a second time, as it always was
  affichage.MontreParametre(C::Text1);
  affichage.MontreParametre(C::CombQualit);
  DeduitQualiteJpeg(Liens_.Valeurs);
}

// TxtRefresh is empty at every start, so filling it is a change, and each change of it saves: this is what puts the
// whole table into a store that was empty. A display whose field does not save by itself must not take that away.
void ReglagesPersistants::MontreIntervalle(AffichageParametres& affichage) {
  const bool change = !Liens_.Valeurs.IntervalleFtp.isEmpty();
  const qint64 avant = Sauvegardes_;
  affichage.MontreParametre(C::TxtRefresh);
  if (change && Sauvegardes_ == avant) SauveParametres();
}

void ReglagesPersistants::SauveParametres() {
  Reportee_ = Etape_ == Etape::kLecture;
  if (Reportee_) return;
  ++Sauvegardes_;
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
