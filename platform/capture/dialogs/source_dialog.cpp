// SPDX-License-Identifier: GPL-3.0-or-later
// The source dialog: above the sources and an address, below the controls of the camera at work.
#include "platform/capture/dialogs/source_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <optional>

#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/choice/named_source.h"
#include "platform/capture/devices/device_access.h"
#include "platform/capture/dialogs/controls_panel.h"
#include "platform/capture/dialogs/dialog_texts.h"
#include "platform/capture/dialogs/driver_commands.h"
#include "platform/capture/dialogs/message_strip.h"
#include "platform/folders/system_folders.h"
#include "texts/language.h"

namespace vaktor {
namespace {

const auto kTest = QStringLiteral("test");
const auto kSaisie = QStringLiteral("?");   // the list's entry for what is typed into the field
constexpr int kRoleNom = Qt::UserRole + 1;  // an entry's name for people; empty: its source tells

bool EstLieu(const QString& source) {  // an address or a file, not a device's stable name
  return EstHoteSeul(source) || source.contains(QLatin1String("://")) ||
         (source.startsWith(QLatin1Char('/')) && !source.startsWith(QLatin1String("/dev/")));
}

}  // namespace

DialogueSource::DialogueSource(QWidget* parent, Langue langue, CommandesPilote& pilote, MemoireCapture& memoire,
                               AccesPeripheriques& acces)
    : QDialog(parent), Langue_(langue), Pilote_(pilote), Memoire_(memoire), Acces_(acces) {
  setObjectName(QStringLiteral("DialogueSource"));
  setWindowTitle(TexteDe(TexteDialogue::kTitreSource, langue));
  setAccessibleName(windowTitle());
  auto* colonne = new QVBoxLayout(this);
  colonne->setContentsMargins(16, 14, 16, 12);
  colonne->setSpacing(10);
  Etat_ = new BandeauMessage(QStringLiteral("LblEtatSource"), this);
  ConstruitSource(*colonne);
  ConstruitReglages(*colonne);
  ConstruitPied(*colonne);
  RemplitSources();
  MontreReglages();
  Branchements_ = Acces_.SuitBranchements([this] { SuitBranchements(); });
  resize(600, 620);
}

void DialogueSource::DemandeAutreSource(const QString& description, const Raison& raison) {
  EnConnexion_ = true;
  RemplitSources();
  // Who has typed an address looks for it there.
  if (EstLieu(Memoire_.Source())) Sources_->setCurrentRow(Sources_->count() - 1);
  Etat_->MontreErreur(
      TexteDe(TexteDialogue::kDemandeAutreSource, Langue_).arg(description, DitRaison(raison, Langue_)).trimmed());
}

void DialogueSource::done(int resultat) {
  if (!EnEssai_) return QDialog::done(resultat);
  Fermee_ = true;
  Pilote_.Abandonne();
}

// A camera that was plugged in, or out, while the dialog is open. What is picked stays picked.
void DialogueSource::SuitBranchements() {
  if (EnEssai_ || Remplit_) return;
  const QListWidgetItem* avant = Sources_->currentItem();
  const QString choisie = avant == nullptr ? QString() : avant->data(Qt::UserRole).toString();
  RemplitSources();
  for (int i = 0; i < Sources_->count(); ++i)
    if (!choisie.isEmpty() && Sources_->item(i)->data(Qt::UserRole).toString() == choisie) Sources_->setCurrentRow(i);
}

QPushButton* DialogueSource::FaitBouton(int texte, const char* nom) {
  const QString legende = TexteDe(static_cast<TexteDialogue>(texte), Langue_);
  auto* bouton = new QPushButton(legende, this);
  bouton->setObjectName(QLatin1String(nom));
  bouton->setAccessibleName(QString(legende).remove(QLatin1Char('&')));
  bouton->setAutoDefault(false);
  return bouton;
}

void DialogueSource::ConstruitSource(QVBoxLayout& colonne) {
  auto* groupe = new QGroupBox(TexteDe(TexteDialogue::kGroupeSource, Langue_), this);
  groupe->setObjectName(QStringLiteral("GroupeSource"));
  auto* dedans = new QVBoxLayout(groupe);
  Sources_ = new QListWidget(groupe);
  Sources_->setObjectName(QStringLiteral("ListeSources"));
  Sources_->setAccessibleName(TexteDe(TexteDialogue::kListeSources, Langue_).remove(QLatin1Char('&')));
  Sources_->setAlternatingRowColors(true);
  Sources_->setFixedHeight(5 * (Sources_->fontMetrics().height() + 6));
  dedans->addWidget(Sources_);
  ConstruitAdresse(*dedans);

  auto* rangee = new QHBoxLayout;
  QPushButton* actualiser = FaitBouton(int(TexteDialogue::kActualise), "BtnActualiser");
  Utiliser_ = FaitBouton(int(TexteDialogue::kUtilise), "BtnUtiliser");
  rangee->addWidget(actualiser);
  rangee->addStretch(1);
  rangee->addWidget(Utiliser_);
  dedans->addLayout(rangee);
  colonne.addWidget(groupe);

  connect(Sources_, &QListWidget::currentRowChanged, this, &DialogueSource::SuitChoix);
  connect(Sources_, &QListWidget::itemDoubleClicked, this, &DialogueSource::Utilise);
  connect(actualiser, &QPushButton::clicked, this, [this] {
    Etat_->Efface();
    RemplitSources();
    MontreReglages();
  });
  connect(Utiliser_, &QPushButton::clicked, this, &DialogueSource::Utilise);
}

void DialogueSource::ConstruitAdresse(QVBoxLayout& colonne) {
  const QString legende = TexteDe(TexteDialogue::kAdresse, Langue_);
  auto* rangee = new QHBoxLayout;
  auto* etiquette = new QLabel(legende, this);
  Adresse_ = new QLineEdit(this);
  Adresse_->setObjectName(QStringLiteral("TxtAdresse"));
  Adresse_->setAccessibleName(QString(legende).remove(QLatin1Char('&')));
  Adresse_->setPlaceholderText(TexteDe(TexteDialogue::kAdresseExemple, Langue_));
  if (EstLieu(Memoire_.Source())) Adresse_->setText(MasqueAdresse(Memoire_.Source()));
  etiquette->setBuddy(Adresse_);
  Parcourir_ = FaitBouton(int(TexteDialogue::kParcourt), "BtnParcourir");
  rangee->addWidget(etiquette);
  rangee->addWidget(Adresse_, 1);
  rangee->addWidget(Parcourir_);
  colonne.addLayout(rangee);
  // Who writes an address means it.
  connect(Adresse_, &QLineEdit::textEdited, this, [this] { Sources_->setCurrentRow(Sources_->count() - 1); });
  connect(Adresse_, &QLineEdit::returnPressed, this, &DialogueSource::Utilise);
  connect(Parcourir_, &QPushButton::clicked, this, &DialogueSource::Parcourt);
}

void DialogueSource::ConstruitReglages(QVBoxLayout& colonne) {
  auto* groupe = new QGroupBox(TexteDe(TexteDialogue::kGroupeReglages, Langue_), this);
  groupe->setObjectName(QStringLiteral("GroupeReglages"));
  auto* dedans = new QVBoxLayout(groupe);
  Cadre_ = new QScrollArea(groupe);
  Cadre_->setObjectName(QStringLiteral("CadreReglages"));
  Cadre_->setWidgetResizable(true);
  Cadre_->setFrameShape(QFrame::NoFrame);
  Cadre_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  Defauts_ = FaitBouton(int(TexteDialogue::kDefauts), "BtnDefauts");
  dedans->addWidget(Cadre_, 1);
  dedans->addWidget(Defauts_, 0, Qt::AlignRight);
  colonne.addWidget(groupe, 1);
  connect(Defauts_, &QPushButton::clicked, this, &DialogueSource::RemetDefauts);
}

void DialogueSource::ConstruitPied(QVBoxLayout& colonne) {
  colonne.addWidget(Etat_);
  QPushButton* fermer = FaitBouton(int(TexteDialogue::kFerme), "BtnFermerSource");
  colonne.addWidget(fermer, 0, Qt::AlignRight);
  connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
}

void DialogueSource::AjouteSource(const QString& nom, const QString& texte, const QString& source, bool enService) {
  QString ligne = texte;
  if (enService) ligne += QStringLiteral("   - ") + TexteDe(TexteDialogue::kEnService, Langue_);
  auto* element = new QListWidgetItem(ligne, Sources_);
  element->setData(Qt::UserRole, source);
  element->setData(kRoleNom, nom);
  if (!enService) return;
  QFont gras = element->font();
  gras.setBold(true);
  element->setFont(gras);
  Sources_->setCurrentItem(element);
}

void DialogueSource::AjouteRemarque(const QString& texte) {
  auto* element = new QListWidgetItem(texte, Sources_);
  element->setFlags(Qt::NoItemFlags);
}

void DialogueSource::RemplitSources() {
  // Asked before the list is emptied: the wait for a device that does not answer may be seen.
  const QScopedValueRollback<bool> demande(Remplit_, true);
  const QList<PeripheriqueVideo> peripheriques = Acces_.Peripheriques();
  const QList<CameraBureau> duBureau = Acces_.CamerasDuBureau();
  const QStringList muets = Acces_.Muets();
  std::optional<GenreSource> genre;  // of what is at work
  if (!EnConnexion_) genre = Pilote_.Genre();
  Sources_->clear();
  for (const PeripheriqueVideo& p : peripheriques) {
    const bool enService = genre == GenreSource::kPeripherique && p.Noeud == Pilote_.NoeudPeripherique();
    AjouteSource(p.Nom, QStringLiteral("%1   (%2)").arg(p.Nom, p.Noeud), p.NomStable, enService);
  }
  for (const CameraBureau& camera : duBureau) {
    const bool enService = genre == GenreSource::kBureau && camera.Source == Pilote_.DescriptionSource();
    AjouteSource(camera.Nom, TexteDe(TexteDialogue::kDuBureau, Langue_).arg(camera.Nom), camera.Source, enService);
  }
  for (const QString& noeud : muets) AjouteRemarque(TexteDe(TexteDialogue::kPeripheriqueMuet, Langue_).arg(noeud));
  if (peripheriques.isEmpty() && duBureau.isEmpty() && muets.isEmpty())
    AjouteRemarque(TexteDe(TexteDialogue::kAucuneCamera, Langue_));
  const QString essai = TexteDe(TexteDialogue::kImageEssai, Langue_);
  AjouteSource(essai, essai, kTest, genre == GenreSource::kTest);
  const bool saisie = genre == GenreSource::kReseau || genre == GenreSource::kFichier;
  QString texte = TexteDe(TexteDialogue::kAdresseOuFichier, Langue_);
  if (saisie) texte += QStringLiteral(" : ") + MasqueAdresse(Pilote_.DescriptionSource());
  AjouteSource(QString(), texte, kSaisie, saisie);
  if (Sources_->currentItem() == nullptr) Sources_->setCurrentRow(0);
  SuitChoix();
}

void DialogueSource::SuitChoix() {
  const QListWidgetItem* element = Sources_->currentItem();
  Utiliser_->setEnabled(element != nullptr && (element->flags() & Qt::ItemIsEnabled) != 0);
}

void DialogueSource::MontreReglages() {
  Panneau_ = nullptr;
  if (Pilote_.Genre() == GenreSource::kPeripherique) {
    auto* panneau = new PanneauReglages(nullptr, Langue_, Acces_, Pilote_.NoeudPeripherique());
    if (panneau->EstVide())
      delete panneau;
    else
      Panneau_ = panneau;
  }
  Defauts_->setEnabled(Panneau_ != nullptr);
  Defauts_->setToolTip(Panneau_ == nullptr ? TexteSansReglages() : QString());  // a dead button says why
  if (Panneau_ == nullptr) {
    auto* texte = new QLabel(TexteSansReglages());
    texte->setObjectName(QStringLiteral("LblSansReglages"));
    texte->setWordWrap(true);
    texte->setTextFormat(Qt::PlainText);
    texte->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    Cadre_->setWidget(texte);
    return;
  }
  Cadre_->setWidget(Panneau_);
  connect(Panneau_, &PanneauReglages::RegleFait, Etat_, &BandeauMessage::Efface);
  connect(Panneau_, &PanneauReglages::EntreeChoisie, this, &DialogueSource::ChangeEntree);
  connect(Panneau_, &PanneauReglages::RegleRefuse, this, [this](const QString& nom) {
    Etat_->MontreErreur(TexteDe(TexteDialogue::kReglageRefuse, Langue_).arg(nom));
  });
}

QString DialogueSource::TexteSansReglages() const {
  switch (Pilote_.Genre()) {
    case GenreSource::kReseau:
      return TexteDe(TexteDialogue::kReglagesReseau, Langue_);
    case GenreSource::kFichier:
      return TexteDe(TexteDialogue::kReglagesFichier, Langue_);
    case GenreSource::kTest:
      return TexteDe(TexteDialogue::kReglagesTest, Langue_);
    case GenreSource::kBureau:
      return TexteDe(TexteDialogue::kReglagesBureau, Langue_);
    case GenreSource::kPeripherique:
      break;
  }
  const QString noeud = Pilote_.NoeudPeripherique();
  if (Acces_.Muets().contains(noeud)) return TexteDe(TexteDialogue::kPeripheriqueMuet, Langue_).arg(noeud);
  return TexteDe(TexteDialogue::kAucunReglage, Langue_);
}

void DialogueSource::Parcourt() {
  const auto texte = [this](TexteDialogue t) { return TexteDe(t, Langue_); };
  const QString film = Pilote_.Genre() == GenreSource::kFichier ? Pilote_.AdresseEnService() : QString();
  const QString dossier =
      film.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::MoviesLocation) : QFileInfo(film).path();
  QFileDialog dialogue(this, texte(TexteDialogue::kChoisitFichier), DebutDeDialogue(dossier));
  dialogue.setObjectName(QStringLiteral("DialogueFichier"));
  dialogue.setOption(QFileDialog::DontUseNativeDialog);  // the desktop's own speaks the language of the session
  dialogue.setFileMode(QFileDialog::ExistingFile);
  dialogue.setNameFilters({texte(TexteDialogue::kFiltreVideo) +
                               QStringLiteral(" (*.avi *.mp4 *.mkv *.webm *.mov *.mpg *.mpeg *.ogv *.m4v *.ts *.wmv)"),
                           texte(TexteDialogue::kTousFichiers) + QStringLiteral(" (*)")});
  dialogue.setLabelText(QFileDialog::LookIn, texte(TexteDialogue::kDossier));
  dialogue.setLabelText(QFileDialog::FileName, texte(TexteDialogue::kNomFichier));
  dialogue.setLabelText(QFileDialog::FileType, texte(TexteDialogue::kGenreFichiers));
  dialogue.setLabelText(QFileDialog::Accept, texte(TexteDialogue::kOuvre));
  dialogue.setLabelText(QFileDialog::Reject, texte(TexteDialogue::kAnnule));
  if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty()) return;
  Adresse_->setText(dialogue.selectedFiles().constFirst());
  Sources_->setCurrentRow(Sources_->count() - 1);
}

QString DialogueSource::CompleteSaisie(const QString& saisie) const {
  if (saisie.contains(QLatin1String("://")) || saisie == kTest) return saisie;
  const GenreSource genre = ComprendSource(saisie).Genre;
  if (genre == GenreSource::kReseau || genre == GenreSource::kBureau) return saisie;
  QString chemin = saisie;
  if (chemin.startsWith(QLatin1String("~/"))) chemin.replace(0, 1, QDir::homePath());
  // Remembered, it must still lead there when the program is started from another folder.
  chemin = QFileInfo(chemin).absoluteFilePath();
  const QList<PeripheriqueVideo> peripheriques = Acces_.Peripheriques();
  for (const PeripheriqueVideo& p : peripheriques)
    if (p.Noeud == chemin) return p.NomStable;
  return chemin;
}

QString DialogueSource::SourceChoisie() {
  const QListWidgetItem* element = Sources_->currentItem();
  QString source = element == nullptr ? QString() : element->data(Qt::UserRole).toString();
  if (source != kSaisie) return source;
  const QString saisie = Adresse_->text().trimmed();
  if (saisie.isEmpty()) {
    Etat_->MontreErreur(TexteDe(TexteDialogue::kAdresseVide, Langue_));
    Adresse_->setFocus();
    return {};
  }
  if (!saisie.contains(MarqueMotDePasse())) return CompleteSaisie(saisie);
  // The field shows the remembered address without its password. Only that very address gets its password back: not
  // one where a letter was changed, which could hand it to another machine.
  if (saisie == MasqueAdresse(Memoire_.Source())) return Memoire_.Source();
  Etat_->MontreErreur(TexteDe(TexteDialogue::kMotDePasseMasque, Langue_));
  Adresse_->setFocus();
  return {};
}

// Seconds, for a camera that says nothing: until then the dialog can be closed, and nothing else.
bool DialogueSource::Essaie(const QString& source) {
  Etat_->MontreAttente(TexteDe(TexteDialogue::kEssaiSource, Langue_));
  const QPointer<QWidget> ou = focusWidget();
  const QScopedValueRollback<bool> essai(EnEssai_, true);
  const QList<QGroupBox*> groupes = findChildren<QGroupBox*>();
  for (QGroupBox* groupe : groupes) groupe->setEnabled(false);
  const bool fait = Pilote_.ChangeSource(source);
  for (QGroupBox* groupe : groupes) groupe->setEnabled(true);
  if (ou) ou->setFocus();
  return fait;
}

void DialogueSource::DitRefus(const QString& nom) {
  const auto texte = EnConnexion_ ? TexteDialogue::kSourceSansImage : TexteDialogue::kSourceRefusee;
  Etat_->MontreErreur(TexteDe(texte, Langue_).arg(nom, DitRaison(Pilote_.Pourquoi(), Langue_)));
}

void DialogueSource::Utilise() {
  QString source = SourceChoisie();
  if (source.isEmpty()) return;
  QString nom = Sources_->currentItem()->data(kRoleNom).toString();
  if (nom.isEmpty()) nom = MasqueAdresse(source);
  const bool fait = Essaie(source);
  if (Fermee_) return QDialog::done(QDialog::Rejected);
  if (!fait) return DitRefus(nom);
  // A host alone is remembered by the address that answered.
  if (EstHoteSeul(source)) source = Pilote_.AdresseEnService();
  const bool retenu = Memoire_.RetientSource(source);
  if (retenu && EnConnexion_) return accept();
  EnConnexion_ = false;
  // From now on the password of a typed address is known and need not stand on the screen.
  if (retenu && EstLieu(source)) Adresse_->setText(MasqueAdresse(source));
  RemplitSources();
  MontreReglages();
  const QString venue = NomPourGens(Acces_, Pilote_.NoeudPeripherique(), MasqueAdresse(Pilote_.DescriptionSource()));
  const FormatCamera format = Pilote_.FormatCourant();
  if (!retenu)
    Etat_->MontreErreur(TexteDe(TexteDialogue::kNonRetenu, Langue_));
  else if (EstReduit(format))
    Etat_->MontreReussite(TexteDe(TexteDialogue::kSourceReduite, Langue_)
                              .arg(venue, TexteTaille(format), TexteTaille(TailleRetenue(format))));
  else
    Etat_->MontreReussite(TexteDe(TexteDialogue::kSourceChangee, Langue_).arg(venue));
}

void DialogueSource::RemetDefauts() {
  if (Panneau_ == nullptr) return;
  if (Panneau_->RemetDefauts())
    Etat_->MontreReussite(TexteDe(TexteDialogue::kDefautsRemis, Langue_));
  else
    Etat_->MontreErreur(TexteDe(TexteDialogue::kDefautsRefuses, Langue_));
}

// The camera is opened anew, and finds in the memory what it is to listen to. The standards of another input are
// others.
void DialogueSource::ChangeEntree(quint32 numero, qint32 valeur) {
  const QString nom = Pilote_.NomStable();
  const EntreeCamera avant = Memoire_.Entree(nom);
  const EntreeCamera voulue =
      numero == kReglageEntree ? EntreeCamera{valeur, std::nullopt} : EntreeCamera{avant.Entree, valeur};
  const bool retenu = Memoire_.RetientEntree(nom, voulue);
  const bool fait = retenu && Essaie(nom);
  if (retenu && !fait) {
    Memoire_.RetientEntree(nom, avant);
    // One that gives no picture at the new one is tried for ever, and reads the memory each time; a camera that was
    // switched off meanwhile stays off.
    if (Pilote_.NomStable() == nom) Essaie(nom);
  }
  if (Fermee_) return QDialog::done(QDialog::Rejected);
  RemplitSources();
  MontreReglages();
  if (fait)
    Etat_->Efface();
  else if (!retenu)
    Etat_->MontreErreur(TexteDe(TexteDialogue::kNonRetenu, Langue_));
  else
    Etat_->MontreErreur(TexteDe(TexteDialogue::kReglageRefuse, Langue_).arg(NomReglage(numero, {}, Langue_)));
}

}  // namespace vaktor
