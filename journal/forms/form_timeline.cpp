// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/forms/form_timeline.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include "journal/timeline_words.h"

namespace vaktor {
namespace {

constexpr QSize kTaille{812, 728};  // two rows of three cards
constexpr int kMarge = 14;
constexpr int kRelectureMs = 1500;  // behind a new line: an intrusion has several

QLabel* CreeTexte(QWidget* parent, const char* nom, const QFont& police) {
  auto* texte = new QLabel(parent);
  texte->setObjectName(QLatin1String(nom));
  texte->setTextFormat(Qt::PlainText);
  texte->setFont(police);
  return texte;
}

}  // namespace

FrmFrise::FrmFrise(ServicesFrise services)
    : FenetreFrise("FrmFrise"),
      Services_(std::move(services)),
      LblJour_(CreeTexte(this, "LblJour", PoliceFrise(18, true))),
      LblJournee_(CreeTexte(this, "LblJournee", PoliceFrise(13))),
      CmdAvant_(CreeFleche("CmdAvant", Qt::LeftArrow)),
      CmdApres_(CreeFleche("CmdApres", Qt::RightArrow)),
      CmdAujourdhui_(CreeBouton("CmdAujourdhui")),
      Bande_(new BandeFrise(this)),
      Cartes_(new ListeCartes(this, Services_.Vignettes)),
      LblEtat_(CreeTexte(this, "LblEtat", PoliceFrise(12))),
      CmdRegarder_(CreeBouton("CmdRegarder")),
      CmdEnregistrer_(CreeBouton("CmdEnregistrer")),
      CmdSupprimer_(CreeBouton("CmdSupprimer")),
      CmdFermer_(CreeBouton("CmdFermerFrise")),
      Sauvegarde_(std::make_unique<SauvegardeFilm>(Services_.Films, Services_.Dialogue, Services_.Boites)) {
  setFont(PoliceFrise(12));
  Relecture_.setSingleShot(true);
  Relecture_.setInterval(kRelectureMs);
  connect(&Relecture_, &QTimer::timeout, this, &FrmFrise::Relit);
  LblEtat_->setWordWrap(true);
  Dispose();
  Branche();
  setMinimumSize(560, 420);
  resize(kTaille);
}

FrmFrise::~FrmFrise() { Services_.Chroniques.Oublie(); }

QToolButton* FrmFrise::CreeFleche(const char* nom, Qt::ArrowType sens) {
  auto* fleche = new QToolButton(this);
  fleche->setObjectName(QLatin1String(nom));
  fleche->setArrowType(sens);
  fleche->setFixedSize(30, 28);
  fleche->setFocusPolicy(Qt::StrongFocus);
  return fleche;
}

void FrmFrise::Dispose() {
  auto* tete = new QHBoxLayout;
  tete->setSpacing(6);
  tete->addWidget(CmdAvant_);
  tete->addWidget(CmdApres_);
  tete->addSpacing(8);
  tete->addWidget(LblJour_);
  tete->addStretch(1);
  tete->addWidget(LblJournee_);
  tete->addSpacing(8);
  tete->addWidget(CmdAujourdhui_);
  auto* pied = new QHBoxLayout;
  pied->setSpacing(8);
  pied->addWidget(CmdRegarder_);
  pied->addWidget(CmdEnregistrer_);
  pied->addWidget(CmdSupprimer_);
  pied->addWidget(LblEtat_, 1);
  pied->addWidget(CmdFermer_);
  auto* colonne = new QVBoxLayout(this);
  colonne->setContentsMargins(kMarge, kMarge, kMarge, kMarge);
  colonne->setSpacing(10);
  colonne->addLayout(tete);
  colonne->addWidget(Bande_);
  colonne->addWidget(Cartes_, 1);
  colonne->addLayout(pied);
  QWidget* avant = Cartes_;
  for (QWidget* controle : std::initializer_list<QWidget*>{CmdRegarder_, CmdEnregistrer_, CmdSupprimer_, CmdFermer_,
                                                           CmdAvant_, CmdApres_, CmdAujourdhui_, Bande_}) {
    setTabOrder(avant, controle);
    avant = controle;
  }
}

void FrmFrise::Branche() {
  connect(CmdAvant_, &QAbstractButton::clicked, this, [this] { MontreJour(Jour_.addDays(-1)); });
  connect(CmdApres_, &QAbstractButton::clicked, this, [this] { MontreJour(Jour_.addDays(1)); });
  connect(CmdAujourdhui_, &QAbstractButton::clicked, this, [this] { MontreJour(Services_.Aujourdhui()); });
  connect(CmdRegarder_, &QAbstractButton::clicked, this, &FrmFrise::Regarde);
  connect(CmdEnregistrer_, &QAbstractButton::clicked, this, &FrmFrise::Enregistre);
  connect(CmdSupprimer_, &QAbstractButton::clicked, this, &FrmFrise::Supprime);
  connect(CmdFermer_, &QAbstractButton::clicked, this, &QWidget::close);
  connect(Sauvegarde_.get(), &SauvegardeFilm::Change, this, &FrmFrise::EcritBoutons);
  connect(Cartes_, &ListeCartes::ChoixChange, this, [this](qsizetype intrusion) {
    Bande_->MontreChoix(intrusion);
    EcritBoutons();
  });
  connect(Cartes_, &ListeCartes::Ouverte, this, &FrmFrise::Regarde);
  connect(Cartes_, &ListeCartes::SuppressionDemandee, this, &FrmFrise::Supprime);
  connect(Bande_, &BandeFrise::IntrusionChoisie, this, &FrmFrise::Choisit);
  connect(Bande_, &BandeFrise::IntrusionOuverte, this, [this](qsizetype intrusion) {
    Choisit(intrusion);
    Regarde();
  });
}

void FrmFrise::Ouvre() {
  const bool nouvelle = !isVisible();
  if (nouvelle) {
    Habille();
    Cartes_->Vignettes().OublieEchecs();
    Relit();
  }
  show();
  raise();
  activateWindow();
  if (nouvelle) Cartes_->setFocus();
}

void FrmFrise::NoteChangement() {
  if (isVisible() && !Relecture_.isActive()) Relecture_.start();
}

void FrmFrise::Habille() {
  const Langue langue = DonneLangue();
  Revet(ChoisitAllure(Services_.Reglages.IndexSkin, devicePixelRatioF()),
        QStringLiteral("#ListeCartes{background:transparent;border:none;}"));
  Bande_->ChoisitAllure(Allure());
  Cartes_->ChoisitAllure(Allure());
  setWindowTitle(TitreFrise(langue));
  CmdRegarder_->setText(MotRegarder(langue));
  CmdEnregistrer_->setText(MotEnregistrer(langue));
  CmdSupprimer_->setText(MotSupprimer(langue));
  CmdFermer_->setText(MotFermerFrise(langue));
  CmdAujourdhui_->setText(MotAujourdhui(langue));
  if (Chronique_) MontreJour(Jour_);
}

void FrmFrise::Relit() {
  EcritBoutons();
  if (!Chronique_) Cartes_->MontreAvis(DitLecture(DonneLangue()));
  Services_.Chroniques.LitChronique(
      Services_.Reglages.RepertoirePhoto, Services_.Course,
      [this](std::shared_ptr<const Chronique> chronique) { Recoit(std::move(chronique)); });
}

void FrmFrise::Recoit(std::shared_ptr<const Chronique> chronique) {
  if (!chronique) {
    // What was read before stays; with nothing read the words stand in the place of the cards.
    LblEtat_->setText(DitSansReponse(DonneLangue()));
    if (!Chronique_) Cartes_->MontreAvis(DitSansReponse(DonneLangue()));
    return;
  }
  const bool premiere = !Chronique_;
  const IntrusionVue* choisie = Choisie();
  const QDateTime debut = choisie != nullptr ? choisie->Debut : QDateTime();
  Chronique_ = std::move(chronique);
  MontreJour(premiere ? ChoisitJour(*Chronique_, Services_.Aujourdhui()) : Jour_);
  // The chosen card is chosen again: its number may be another one now.
  for (const qsizetype i : ComposeJour(*Chronique_, Jour_).Intrusions)
    if (debut.isValid() && Chronique_->Intrusions.at(i).Debut == debut) Cartes_->MontreChoix(i);
}

void FrmFrise::MontreJour(const QDate& jour) {
  if (!Chronique_ || !jour.isValid()) return;
  const Langue langue = DonneLangue();
  const QDate aujourdhui = Services_.Aujourdhui();
  const int defilement = jour == Jour_ ? Cartes_->verticalScrollBar()->value() : 0;
  const qsizetype choix = jour == Jour_ ? Cartes_->Choix() : -1;
  Jour_ = jour;
  const JourVu vu = ComposeJour(*Chronique_, Jour_);
  const bool enVeille = !Chronique_->Armees.isEmpty() && Chronique_->Armees.constLast().EnCours;
  LblJour_->setText(DitJour(Jour_, langue));
  LblJournee_->setText(DitJournee(vu, langue));
  Bande_->MontreJour(Chronique_, vu, langue);
  Cartes_->MontreJour(Chronique_, vu, langue);
  Cartes_->MontreAvis(vu.Intrusions.isEmpty() ? DitNuitCalme(vu, enVeille && Jour_ == aujourdhui, langue) : QString());
  Cartes_->MontreChoix(choix);
  Cartes_->verticalScrollBar()->setValue(defilement);
  const QString avant = MotJourAvant(langue, CompteIntrusions(*Chronique_, Jour_.addDays(-1)));
  const QString apres = MotJourApres(langue, CompteIntrusions(*Chronique_, Jour_.addDays(1)));
  CmdAvant_->setToolTip(avant);
  CmdAvant_->setAccessibleName(avant);
  CmdApres_->setToolTip(apres);
  CmdApres_->setAccessibleName(apres);
  CmdApres_->setEnabled(Jour_ < aujourdhui);
  Permet(*CmdAujourdhui_, Jour_ != aujourdhui ? QString() : RaisonAujourdhui(langue));
  EcritBoutons();
}

void FrmFrise::Choisit(qsizetype intrusion) {
  Cartes_->MontreChoix(intrusion);
  Bande_->MontreChoix(intrusion);
}

const IntrusionVue* FrmFrise::Choisie() const {
  const qsizetype choix = Cartes_->Choix();
  return Chronique_ && choix >= 0 && choix < Chronique_->Intrusions.size() ? &Chronique_->Intrusions.at(choix)
                                                                           : nullptr;
}

// A button that is off says why.
void FrmFrise::Permet(QAbstractButton& bouton, const QString& raison) {
  bouton.setEnabled(raison.isEmpty());
  bouton.setToolTip(raison);
}

void FrmFrise::EcritBoutons() {
  const IntrusionVue* choisie = Choisie();
  const bool photos = choisie != nullptr && !choisie->Photos.isEmpty();
  const Langue langue = DonneLangue();
  const QString sansPhotos = photos ? QString() : RaisonSansPhotos(langue);
  Permet(*CmdRegarder_, sansPhotos);
  Permet(*CmdEnregistrer_, photos && Sauvegarde_->EstEnCours() ? MotFilmEnCours(langue) : sansPhotos);
  Permet(*CmdSupprimer_, photos && Suppression_ ? RaisonSuppression(langue) : sansPhotos);
  const int erreur = Services_.ErreurJournal();
  LblEtat_->setText(erreur != 0 ? DitJournalPerdu(erreur, DonneLangue()) : QString());
}

void FrmFrise::Regarde() {
  const IntrusionVue* choisie = Choisie();
  if (choisie == nullptr || choisie->Photos.isEmpty()) return;
  if (!Lecteur_) {
    Lecteur_ = std::make_unique<FrmLecture>(
        Services_.Photos, [this] { Sauvegarde_->Enregistre(Lecteur_.get(), Lecteur_->Intrusion(), DonneLangue()); });
  }
  Lecteur_->Ouvre(*choisie, DonneLangue(), Allure());
}

void FrmFrise::Enregistre() {
  const IntrusionVue* choisie = Choisie();
  if (choisie != nullptr) Sauvegarde_->Enregistre(this, IntrusionVue(*choisie), DonneLangue());
}

// One question and one deletion at a time; what stays behind the deletion the new list shows.
void FrmFrise::Supprime() {
  const IntrusionVue* choisie = Choisie();
  if (choisie == nullptr || choisie->Photos.isEmpty() || Suppression_) return;
  Suppression_ = true;
  EcritBoutons();
  const IntrusionVue vue = *choisie;
  Services_.Supprime(vue.Dossier, vue.Photos, QuestionSupprimer(vue, DonneLangue()), [this] {
    Suppression_ = false;
    Relit();
  });
}

void FrmFrise::Repose() {
  Relecture_.stop();
  Services_.Chroniques.Oublie();
  if (Lecteur_) Lecteur_->close();
}

void FrmFrise::keyPressEvent(QKeyEvent* evenement) {
  switch (evenement->key()) {
    case Qt::Key_PageUp:
      MontreJour(Jour_.addDays(-1));
      return;
    case Qt::Key_PageDown:
      if (CmdApres_->isEnabled()) MontreJour(Jour_.addDays(1));
      return;
    case Qt::Key_F5:
      Relit();
      return;
    default:
      FenetreFrise::keyPressEvent(evenement);
  }
}

}  // namespace vaktor
