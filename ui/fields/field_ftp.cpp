// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/fields/field_ftp.h"

#include "base/numbers.h"
#include "ui/common/field_text.h"
#include "ui/fields/field_events.h"
#include "ui/fields/field_rules.h"

namespace vaktor {

ChampsFtp::ChampsFtp(const PortsChamps& ports, PageFtp& page) : Ports_(ports), Page_(page) {
  // Before the handlers are tied: a design text is no change.
  PrepareChamps();
  BrancheTextes();
  BrancheListes();
  BrancheDeparts();
  BrancheMarques();
}

void ChampsFtp::PrepareChamps() {
  PrepareChamp(*Page_.TxtFtp, QStringLiteral("ftp."));
  PrepareChamp(*Page_.TxtHtml, QStringLiteral("http://"));
  PrepareChamp(*Page_.TextNbrPhotoFTP, QStringLiteral("30"));
  for (QLineEdit* champ : {Page_.TxtFTPracine, Page_.TxtUserName, Page_.TxtPass, Page_.TxtRefresh}) {
    PrepareChamp(*champ, QString());
  }
}

void ChampsFtp::BrancheTextes() {
  connect(Page_.TxtFtp, &QLineEdit::textChanged, this, &ChampsFtp::SuitTxtFtp);
  connect(Page_.TxtRefresh, &QLineEdit::textChanged, this, &ChampsFtp::SuitTxtRefresh);
  connect(Page_.TextNbrPhotoFTP, &QLineEdit::textChanged, this, &ChampsFtp::SuitTextNbrPhotoFTP);
  // The password and the folder take an empty text as it is, the address and the user name do not.
  BrancheTexte(Page_.TxtHtml, &Parametres::AdresseHtml, false);
  BrancheTexte(Page_.TxtUserName, &Parametres::UtilisateurFtp, false);
  BrancheTexte(Page_.TxtPass, &Parametres::MotDePasseFtp, true);
  BrancheTexte(Page_.TxtFTPracine, &Parametres::RepertoireFtp, true);
}

void ChampsFtp::BrancheTexte(QLineEdit* champ, QString Parametres::*valeur, bool memeVide) {
  connect(champ, &QLineEdit::textChanged, this, [this, champ, valeur, memeVide](const QString& texte) {
    EcritChamp(*champ, GardePremiereLigne(texte));
    if (champ->text().isEmpty() && !memeVide) return;
    Ports_.Reglages.*valeur = champ->text();
    Ports_.NoteModification();
  });
}

void ChampsFtp::SuitTxtFtp() {
  const QString texte = Page_.TxtFtp->text();
  if (texte.isEmpty()) return;
  const QString serveur = NettoieServeur(GardePremiereLigne(texte));
  EcritChamp(*Page_.TxtFtp, serveur);
  Ports_.Reglages.AdresseFtp = serveur;
  Ports_.NoteModification();
}

void ChampsFtp::SuitTxtRefresh() {
  EcritChamp(*Page_.TxtRefresh, NettoieIntervalle(Page_.TxtRefresh->text()));
  Ports_.Reglages.IntervalleFtp = Page_.TxtRefresh->text();
  ReporteEchec(*Page_.TxtRefresh, [this] { Ports_.NoteEtSauve(); });
}

void ChampsFtp::SuitTextNbrPhotoFTP() {
  EcritChamp(*Page_.TextNbrPhotoFTP, NettoieNombre(Page_.TextNbrPhotoFTP->text(), QStringLiteral("1"), 1));
  Ports_.Reglages.NbrPhotosPage = ChiffresEnEntierBorne(Page_.TextNbrPhotoFTP->text());
  Ports_.NoteModification();
}

void ChampsFtp::BrancheListes() {
  // Only the user's choice: the program sets both lists at start and at each change of language.
  connect(Page_.CombCouleur, &QComboBox::activated, this, [this](int index) {
    Ports_.Reglages.IndexCouleurPage = index;
    Ports_.Reglages.CouleurPage = DonneMotCouleur(index, Ports_.Reglages.CouleurPage);
    Ports_.NoteEtSauve();
  });
  connect(Page_.CombQualit, &QComboBox::activated, this, [this](int index) {
    Ports_.Reglages.IndexQualite = static_cast<quint8>(index);
    DeduitQualiteJpeg(Ports_.Reglages);
    Ports_.NoteEtSauve();
  });
}

void ChampsFtp::BrancheDeparts() {
  for (QLineEdit* champ : {Page_.TxtFtp, Page_.TxtFTPracine, Page_.TxtUserName, Page_.TxtPass}) {
    connect(new EvenementsChamp(champ), &EvenementsChamp::Quitte, this, [this] { Ports_.SauveSiModifie(); });
  }
  connect(new EvenementsChamp(Page_.TxtHtml), &EvenementsChamp::Quitte, this, &ChampsFtp::QuitteTxtHtml);
  connect(new EvenementsChamp(Page_.TextNbrPhotoFTP), &EvenementsChamp::Quitte, this,
          [this] { Ports_.Sauvegarde.SauveParametres(); });
}

// Works on the address that is kept, not on what the field shows: an emptied field shows its last address again, and
// an address that was never given becomes "/".
void ChampsFtp::QuitteTxtHtml() {
  const QString adresse = TermineAdresse(Ports_.Reglages.AdresseHtml);
  Ports_.Reglages.AdresseHtml = adresse;
  EcritChamp(*Page_.TxtHtml, adresse);
  Ports_.SauveSiModifie();
}

// Who clears the red of a companion's error word. A click on TxtFTPracine does not: it stays red until the next word
// that tells of the link.
void ChampsFtp::BrancheMarques() {
  const auto noircit = [this](QLineEdit* clique, std::initializer_list<QLineEdit*> champs) {
    connect(new EvenementsChamp(clique), &EvenementsChamp::Clique, this, [liste = QList<QLineEdit*>(champs)] {
      for (QLineEdit* champ : liste) RougitChamp(*champ, false);
    });
  };
  noircit(Page_.TxtFtp, {Page_.TxtFtp});
  noircit(Page_.TxtHtml, {Page_.TxtHtml});
  for (QLineEdit* champ : {Page_.TxtUserName, Page_.TxtPass}) noircit(champ, {Page_.TxtUserName, Page_.TxtPass});
}

}  // namespace vaktor
