// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/forms/frm_smtp.h"

#include <QCloseEvent>
#include <QFrame>
#include <QKeyEvent>
#include <initializer_list>

#include "base/mail_addresses.h"
#include "base/typed_text.h"
#include "companions/forms/form_look.h"
#include "companions/smtp_words.h"
#include "texts/address_words.h"
#include "texts/language.h"
#include "ui/common/clicked_words.h"
#include "ui/common/heard_roles.h"

namespace vaktor {

namespace {

constexpr Libelle kDemandeAdresse = Libelle::kMailDestination;

}  // namespace

FrmSmtp::FrmSmtp(const PortsFrmSmtp& ports)
    : Ports_(ports),
      Controles_(this),
      Push_(this, ports.Reglages, [this] { Panneau_->EssaieAutre(ComposeDemandeEssaiPush(Ports_.Reglages)); }) {
  setObjectName(QStringLiteral("FrmSmtp"));
  setWindowTitle(QStringLiteral("SMTP"));
  HabilleForme(*this);
  Controles_.TxtSMTPpass->setFont(font());  // a style sheet keeps it from taking the one of the form
  Panneau_ =
      new PanneauEssai(this, Ports_.Essai, [this] { return ComposeDemandeEssai(Ports_.Reglages, DonneDestination()); });
  auto* trait = new QFrame(this);
  trait->setFrameShape(QFrame::HLine);
  DonneRole(*trait, QAccessible::Separator);
  trait->setFrameShadow(QFrame::Sunken);
  QVBoxLayout* colonne = CreeColonne(*this);
  QGridLayout* grille = Controles_.DonneGrille();
  Push_.AjouteA(*grille);
  colonne->addLayout(grille);
  colonne->addWidget(trait);
  colonne->addWidget(Panneau_);
  Panneau_->setFixedWidth(kLargeurForme - 2 * kMargeForme);
  BrancheControles();
}

// A field that goes with the form loses the focus, and is left.
FrmSmtp::~FrmSmtp() { Controles_.TxtFrom->disconnect(this); }

void FrmSmtp::BrancheControles() {
  const ControlesSmtp& c = Controles_;
  connect(c.ChkMailWinsock, &QCheckBox::toggled, this, [this](bool coche) {
    Ports_.Reglages.SmtpActif = !coche;  // the box means the opposite of the setting
    ActiveChampsSmtp();
  });
  const std::pair<QLabel*, QCheckBox*> cases[] = {{c.LblMailWinsock, c.ChkMailWinsock},
                                                  {c.LblNeedLoginSMTP, c.CheckNeedLoginSMTP},
                                                  {c.LblSansChiffrement, c.CheckSansChiffrement}};
  for (const auto& [mots, boite] : cases) RelieMots(*mots, *boite, [boite = boite] { boite->click(); });
  connect(c.CheckNeedLoginSMTP, &QCheckBox::toggled, this, [this](bool coche) {
    Ports_.Reglages.SmtpNeedLogin = coche;
    ActiveChampsSmtp();
  });
  connect(c.CheckSansChiffrement, &QCheckBox::toggled, this,
          [this](bool coche) { Ports_.Reglages.SmtpSansChiffrement = coche; });
  BrancheTexte(c.TxtSMTP, &Parametres::SmtpServeur);
  BrancheTexte(c.TxtFrom, &Parametres::SmtpFrom);
  BrancheTexte(c.TxtSMTPuser, &Parametres::SmtpUser);
  BrancheTexte(c.TxtSMTPpass, &Parametres::SmtpPass);
  connect(c.TxtSMTPjeton, &QLineEdit::textChanged, this, [this](const QString& texte) {
    // Its arguments stand behind blanks: they stay.
    Ports_.Reglages.SmtpJeton = GardePremiereLigne(texte).trimmed();
  });
  connect(c.TxtFrom, &QLineEdit::editingFinished, this, &FrmSmtp::JugeExpediteur);
  connect(c.CmbSigneDeVie, &QComboBox::currentIndexChanged, this,
          [this](int rang) { Ports_.Reglages.HeureSigneDeVie = rang - 1; });
  connect(c.TextPort, &QLineEdit::textChanged, this, &FrmSmtp::SuitPort);
  connect(c.CmbComptes, &QComboBox::activated, this, &FrmSmtp::ChoisitCompte);
}

// The setting has no blanks, while the field keeps those that were typed.
void FrmSmtp::BrancheTexte(QLineEdit* champ, QString Parametres::*variable) {
  connect(champ, &QLineEdit::textChanged, this, [this, champ, variable](const QString& texte) {
    const QString ligne = GardePremiereLigne(texte);
    Ports_.Reglages.*variable = variable == &Parametres::SmtpPass ? RetireEspaces(ligne) : RetireBlancs(ligne);
    if (ligne != texte) champ->setText(ligne);
    MontreOAuth2();
  });
}

// When the field is left, not while an address is half typed.
void FrmSmtp::JugeExpediteur() {
  const QStringList fausses = LitAdresses(Ports_.Reglages.SmtpFrom, !Ports_.Reglages.SmtpActif).Mauvaises;
  RougitChampSmtp(*Controles_.TxtFrom, !fausses.isEmpty());
  EcritAide(*Controles_.TxtFrom, fausses.isEmpty()
                                     ? Ports_.Textes.Dit(Aide::kAdresseEMail)
                                     : DitAdressesFausses(LangueParlee(Ports_.Reglages.LangueCourante), fausses));
}

void FrmSmtp::SuitPort(const QString& texte) {
  const QString port = CorrigePortSmtp(texte);
  if (port != texte) Controles_.TextPort->setText(port);
  Ports_.Reglages.SmtpPort = RetireBlancs(port);
}

void FrmSmtp::Charge() {
  AfficheCompteSmtp();
  Push_.Montre();
  LitComptesMail(Ports_.Lecteur, Ports_.Pompe, Ports_.Comptes,
                 [this](const CompteMail& compte) { Controles_.CmbComptes->addItem(compte.Adresse); });
  Controles_.CmbComptes->setCurrentIndex(-1);
  if (Ports_.Reglages.SmtpServeur.isEmpty() || Ports_.Reglages.SmtpFrom.isEmpty())
    ChoisitCompte(Ports_.Comptes.IndexCompteDefaut);  // with no account found, an empty slot
  Ports_.Pompe.PompeMessages();
}

void FrmSmtp::ChoisitCompte(qint32 index) {
  ReprendCompte(Ports_.Comptes, index, Ports_.Reglages);
  AfficheCompteSmtp();
}

void FrmSmtp::AfficheCompteSmtp() {
  // Copies: each assignment below runs the handler of its control, which writes into the settings.
  const Parametres valeurs = Ports_.Reglages;
  Controles_.ChkMailWinsock->setChecked(!valeurs.SmtpActif);
  Controles_.CheckNeedLoginSMTP->setChecked(valeurs.SmtpNeedLogin);
  Controles_.CheckSansChiffrement->setChecked(valeurs.SmtpSansChiffrement);
  Controles_.CmbSigneDeVie->setCurrentIndex(valeurs.HeureSigneDeVie + 1);
  ActiveChampsSmtp();
  Controles_.TxtFrom->setText(valeurs.SmtpFrom);
  Controles_.TxtSMTP->setText(valeurs.SmtpServeur);
  Controles_.TxtSMTPuser->setText(valeurs.SmtpUser);
  Controles_.TxtSMTPpass->setText(valeurs.SmtpPass);
  Controles_.TxtSMTPjeton->setText(valeurs.SmtpJeton);
  Controles_.TextPort->setText(valeurs.SmtpPort);
}

void FrmSmtp::ActiveChampsSmtp() {
  const ChampsSmtp champs = DonneChampsSmtp(Ports_.Reglages);
  Controles_.CmbComptes->setEnabled(champs.Serveur);
  Controles_.CheckNeedLoginSMTP->setEnabled(champs.Serveur);
  for (QLineEdit* champ : {Controles_.TxtFrom, Controles_.TxtSMTP, Controles_.TextPort})
    ActiveChamp(*champ, champs.Serveur);
  for (QLineEdit* champ : {Controles_.TxtSMTPuser, Controles_.TxtSMTPpass, Controles_.TxtSMTPjeton})
    ActiveChamp(*champ, champs.Connexion);
  Controles_.CheckSansChiffrement->setEnabled(champs.Connexion);
  EcritRaisons();
}

// Only one of the two boxes is to blame: the second one is off itself while the first is ticked.
void FrmSmtp::EcritRaisons() {
  const ControlesSmtp& c = Controles_;
  const Langue langue = LangueParlee(Ports_.Reglages.LangueCourante);
  const QString logiciel = RaisonLogiciel(langue);
  const QString connexion = c.CheckNeedLoginSMTP->isEnabled()
                                ? RaisonSansConnexion(langue, Ports_.Textes.Dit(Libelle::kSmtpAvecMotDePasse))
                                : logiciel;
  for (QWidget* controle :
       std::initializer_list<QWidget*>{c.CmbComptes, c.CheckNeedLoginSMTP, c.TxtFrom, c.TxtSMTP, c.TextPort})
    EcritRaison(*controle, logiciel);
  for (QWidget* controle :
       std::initializer_list<QWidget*>{c.TxtSMTPuser, c.TxtSMTPpass, c.TxtSMTPjeton, c.CheckSansChiffrement})
    EcritRaison(*controle, connexion);
}

void FrmSmtp::Montre() {
  show();
  raise();
  activateWindow();
}

TextesSmtp FrmSmtp::LitTextes() const {
  return {Controles_.TxtSMTP->text(), Controles_.TxtFrom->text(), Controles_.TxtSMTPuser->text(),
          Controles_.TxtSMTPpass->text(), Controles_.TxtSMTPjeton->text()};
}

// The field of the main window may show its prompt, which is no address.
QString FrmSmtp::DonneDestination() const {
  const QString& destination = Ports_.Reglages.MailDestination;
  return destination == Ports_.Textes.Dit(kDemandeAdresse) ? QString() : destination;
}

void FrmSmtp::keyPressEvent(QKeyEvent* evenement) {
  if (evenement->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(evenement);
}

// The destination is typed in the main window, also while this one is open.
void FrmSmtp::changeEvent(QEvent* evenement) {
  QWidget::changeEvent(evenement);
  if (evenement->type() == QEvent::ActivationChange && isActiveWindow())
    Panneau_->MontreInvite(InviteEssaiMail(LangueParlee(Ports_.Reglages.LangueCourante), DonneDestination()));
}

void FrmSmtp::closeEvent(QCloseEvent* evenement) {
  // Until everything is saved: a save that fails leaves the form open, so that the user can try again.
  evenement->ignore();
  if (!PeutFermer()) return;
  if (!isVisible()) return;  // the program ended while a question stood, and has unloaded the form
  Panneau_->Arrete();
  Ports_.Sauvegarde.SauveParametres();
  evenement->accept();
  Q_EMIT Dechargee();
}

void FrmSmtp::Decharge() {
  Panneau_->Arrete();
  hide();
  Ports_.Sauvegarde.SauveParametres();
}

bool FrmSmtp::PeutFermer() {
  if (!Ports_.Reglages.SmtpActif || Ports_.Etat.EnFermeture) return true;
  if (VeutPushSeul(Ports_.Reglages)) return true;
  return AccepteSansServeur() && AccepteSansConnexion();
}

bool FrmSmtp::AccepteSansServeur() {
  if (!ManqueServeur(LitTextes())) return true;
  const ReponseBoite reponse = Ports_.Boites.MontreMessage(Ports_.Textes.Dit(Message::kMessagerieManque),
                                                           Ports_.Textes.Dit(Message::kTitre), BoutonsBoite::kOuiNon);
  if (reponse != ReponseBoite::kOui) return false;
  Ports_.Reglages.SmtpActif = false;
  Ports_.Reglages.SmtpNeedLogin = false;
  ActiveChampsSmtp();
  return true;
}

// Asked also after the question above was answered, which then has switched the login off. Only a plain No goes on
// without a login: a box that was closed without an answer leaves everything as it is, and the form open.
bool FrmSmtp::AccepteSansConnexion() {
  if (!Ports_.Reglages.SmtpNeedLogin || !ManqueConnexion(LitTextes())) return true;
  const ReponseBoite reponse = Ports_.Boites.MontreMessage(Ports_.Textes.Dit(Message::kAccesIncomplet),
                                                           Ports_.Textes.Dit(Message::kTitre), BoutonsBoite::kOuiNon);
  if (reponse != ReponseBoite::kNon) return false;
  Ports_.Reglages.SmtpNeedLogin = false;
  ActiveChampsSmtp();
  return true;
}

// The addresses, as words: what stands behind one of them has a language.
void FrmSmtp::EcritComptes() {
  const Langue langue = LangueParlee(Ports_.Reglages.LangueCourante);
  QComboBox& liste = *Controles_.CmbComptes;
  for (int i = 0; i < liste.count(); ++i) {
    const CompteMail& compte = *Ports_.Comptes.Cases.at(static_cast<std::size_t>(i));
    liste.setItemText(i, NommeCompte(langue, compte));
    liste.setItemData(i, compte.OAuth2 ? AideOAuth2(langue) : QString(), Qt::ToolTipRole);
  }
}

// In the empty field, where it is in the way of nothing, and gone with the first letter.
void FrmSmtp::MontreOAuth2() {
  const Langue langue = LangueParlee(Ports_.Reglages.LangueCourante);
  const bool oauth2 = SontDUnCompteOAuth2(Ports_.Reglages, Ports_.Comptes);
  Controles_.TxtSMTPpass->setPlaceholderText(oauth2 ? InviteOAuth2(langue) : QString());
  EcritAide(*Controles_.TxtSMTPpass, oauth2 ? AideOAuth2(langue) : Ports_.Textes.Dit(Libelle::kMotDePasseSmtp));
}

void FrmSmtp::EcritSigneDeVie(Langue langue) {
  const ControlesSmtp& c = Controles_;
  for (int i = 0; i <= kHeures; ++i) c.CmbSigneDeVie->setItemText(i, NommeHeure(langue, i - 1));
  c.LblSigneDeVie->setText(MotsSigneDeVie(langue));
  c.CmbSigneDeVie->setAccessibleName(MotsSigneDeVie(langue));
  c.LblSigneDeVie->setBuddy(c.CmbSigneDeVie);
  c.LblSMTPjeton->setText(MotsJeton(langue));
  c.TxtSMTPjeton->setAccessibleName(MotsJeton(langue));
  for (QWidget* controle : {static_cast<QWidget*>(c.LblSigneDeVie), static_cast<QWidget*>(c.CmbSigneDeVie)})
    controle->setToolTip(AideSigneDeVie(langue));
  for (QWidget* controle : {static_cast<QWidget*>(c.LblSMTPjeton), static_cast<QWidget*>(c.TxtSMTPjeton)})
    EcritAide(*controle, AideJeton(langue));
}

void FrmSmtp::EcritMots() {
  const TablesTextes& t = Ports_.Textes;
  const ControlesSmtp& c = Controles_;
  c.ChkMailWinsock->setToolTip(t.Dit(Aide::kLogicielMessagerie));
  for (QWidget* controle : {static_cast<QWidget*>(c.LblSMTPadresse), static_cast<QWidget*>(c.TxtSMTP)})
    EcritAide(*controle, t.Dit(Aide::kAdresseSmtp));
  for (QWidget* controle : {static_cast<QWidget*>(c.LblFrom), static_cast<QWidget*>(c.TxtFrom)})
    EcritAide(*controle, t.Dit(Aide::kAdresseEMail));
  for (QWidget* controle : {static_cast<QWidget*>(c.LblSMTPport), static_cast<QWidget*>(c.TextPort)})
    EcritAide(*controle, t.Dit(Aide::kPortSmtp));
  EcritAide(*c.TxtSMTPuser,
            t.Dit(Libelle::kUtilisateurSmtp));  // this one and the password have no row among the tool tips
  MontreOAuth2();
  struct Ligne {
    Libelle Mots;
    QLabel* Etiquette;
    QWidget* Voisin;  // named like its label, for those who hear the form
  };
  const Ligne lignes[] = {{Libelle::kLogicielMessagerie, c.LblMailWinsock, c.ChkMailWinsock},
                          {Libelle::kAdresseSmtp, c.LblSMTPadresse, c.TxtSMTP},
                          {Libelle::kAdresseEMail, c.LblFrom, c.TxtFrom},
                          {Libelle::kUtilisateurSmtp, c.LblSMTPuser, c.TxtSMTPuser},
                          {Libelle::kMotDePasseSmtp, c.LblSMTPass, c.TxtSMTPpass},
                          {Libelle::kSmtpAvecMotDePasse, c.LblNeedLoginSMTP, c.CheckNeedLoginSMTP},
                          {Libelle::kPortSmtp, c.LblSMTPport, c.TextPort}};
  for (const Ligne& ligne : lignes) {
    ligne.Etiquette->setText(t.Dit(ligne.Mots));
    ligne.Voisin->setAccessibleName(t.Dit(ligne.Mots));
    ligne.Etiquette->setBuddy(ligne.Voisin);
  }
  const Langue parlee = LangueParlee(Ports_.Reglages.LangueCourante);
  c.LblSansChiffrement->setText(MotsSansChiffrement(parlee));
  c.CheckSansChiffrement->setAccessibleName(MotsSansChiffrement(parlee));
  for (QWidget* controle : {static_cast<QWidget*>(c.CheckSansChiffrement), static_cast<QWidget*>(c.LblSansChiffrement)})
    EcritAide(*controle, AideSansChiffrement(parlee));
  EcritSigneDeVie(parlee);
  EcritRaisons();
  Push_.EcritMots(parlee);
  EcritComptes();
  // The shown text is no selection: picking any entry is a choice.
  c.CmbComptes->setPlaceholderText(t.Dit(Libelle::kChoisitCompte));
  c.CmbComptes->setCurrentIndex(-1);
  NommeListe(*c.CmbComptes, t.Dit(Libelle::kChoisitCompte));
  Panneau_->EcritMots(DonneMotsEssaiMail(parlee), DonneMotsEssaiPush(parlee),
                      InviteEssaiMail(parlee, DonneDestination()));
  if (EstRougeSmtp(*c.TxtFrom)) JugeExpediteur();  // instead of its ordinary tip
}

}  // namespace vaktor
