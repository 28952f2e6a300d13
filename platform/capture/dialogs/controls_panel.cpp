// SPDX-License-Identifier: GPL-3.0-or-later
// Builds one line for each control and keeps the lines true to the camera.
#include "platform/capture/dialogs/controls_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <algorithm>

#include "platform/capture/devices/device_access.h"
#include "platform/capture/dialogs/dialog_texts.h"
#include "texts/language.h"

namespace vaktor {
namespace {

constexpr int kAttenteRelecture = 150;   // ms: a drag of a slider is read back once, when it rests
constexpr qint64 kPositionsMax = 10000;  // of a slider; a range with more steps is gone through in larger ones

/// Steps of a slider over the control's range: the control's own steps, or as many of them at once as keep a wide range
/// within kPositionsMax.
struct Echelle {
  explicit Echelle(const ReglageCamera& r) : Minimum(r.Minimum), Maximum(std::max(r.Minimum, r.Maximum)) {
    const qint64 pas = std::max(1, r.Pas);
    const qint64 etendue = Maximum - Minimum;
    Saut = pas * std::max<qint64>(1, (etendue / pas + kPositionsMax - 1) / kPositionsMax);
    Positions = static_cast<int>((etendue + Saut - 1) / Saut);
  }
  qint32 Valeur(int position) const { return static_cast<qint32>(std::min(Maximum, Minimum + Saut * position)); }
  int Position(qint32 valeur) const { return static_cast<int>((valeur - Minimum + Saut / 2) / Saut); }

  qint64 Minimum;
  qint64 Maximum;
  qint64 Saut = 1;
  int Positions = 0;
};

QString NomControle(const char* sorte, quint32 numero) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(sorte)).arg(numero);
}

}  // namespace

PanneauReglages::PanneauReglages(QWidget* parent, Langue langue, AccesPeripheriques& acces, const QString& noeud)
    : QWidget(parent), Langue_(langue), Acces_(acces), Noeud_(noeud) {
  setObjectName(QStringLiteral("PanneauReglages"));
  if (!noeud.isEmpty()) Reglages_ = acces.Reglages(noeud);
  auto* lignes = new QFormLayout(this);
  lignes->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  lignes->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  lignes->setVerticalSpacing(6);
  for (const ReglageCamera& reglage : std::as_const(Reglages_)) AjouteLigne(*lignes, reglage);
  const QList<QWidget*> controles = findChildren<QWidget*>();
  for (QWidget* controle : controles) controle->installEventFilter(this);
  Relecture_.setSingleShot(true);
  Relecture_.setInterval(kAttenteRelecture);
  connect(&Relecture_, &QTimer::timeout, this, &PanneauReglages::Relit);
}

bool PanneauReglages::eventFilter(QObject* objet, QEvent* evenement) {
  const auto* controle = qobject_cast<QWidget*>(objet);
  if (evenement->type() != QEvent::Wheel || controle == nullptr || controle->hasFocus())
    return QWidget::eventFilter(objet, evenement);
  // Who scrolls through the lines must not turn every control that passes under the pointer.
  evenement->ignore();
  return true;
}

QString PanneauReglages::NomAffiche(const ReglageCamera& reglage) const {
  return NomReglage(reglage.Numero, reglage.Nom, Langue_);
}

void PanneauReglages::AjouteLigne(QFormLayout& lignes, const ReglageCamera& reglage) {
  switch (reglage.Genre) {
    case ReglageCamera::Sorte::kEntier:
      lignes.addRow(NomAffiche(reglage), FaitEntier(reglage));
      break;
    case ReglageCamera::Sorte::kBooleen:
      lignes.addRow(QString(), FaitBooleen(reglage));
      break;
    case ReglageCamera::Sorte::kMenu:
      lignes.addRow(NomAffiche(reglage), FaitMenu(reglage));
      break;
  }
  MontreValeur(reglage);
}

QWidget* PanneauReglages::FaitEntier(const ReglageCamera& reglage) {
  auto* boite = new QWidget(this);
  auto* rangee = new QHBoxLayout(boite);
  rangee->setContentsMargins(0, 0, 0, 0);
  auto* curseur = new QSlider(Qt::Horizontal, boite);
  auto* valeur = new QSpinBox(boite);
  curseur->setObjectName(NomControle("ReglageCurseur", reglage.Numero));
  valeur->setObjectName(NomControle("ReglageValeur", reglage.Numero));
  curseur->setAccessibleName(NomAffiche(reglage));
  valeur->setAccessibleName(NomAffiche(reglage));
  const Echelle echelle(reglage);
  curseur->setRange(0, echelle.Positions);
  curseur->setPageStep(std::max(1, echelle.Positions / 10));
  valeur->setRange(reglage.Minimum, reglage.Maximum);
  valeur->setSingleStep(reglage.Pas);
  valeur->setKeyboardTracking(false);  // a number that is being typed is no value yet
  curseur->setFocusPolicy(Qt::StrongFocus);
  valeur->setFocusPolicy(Qt::StrongFocus);
  curseur->setMinimumWidth(160);
  valeur->setMinimumWidth(90);
  rangee->addWidget(curseur, 1);
  rangee->addWidget(valeur);
  connect(curseur, &QSlider::valueChanged, valeur, [echelle, valeur](int p) { valeur->setValue(echelle.Valeur(p)); });
  connect(valeur, &QSpinBox::valueChanged, this, [this, echelle, curseur, numero = reglage.Numero](int v) {
    const QSignalBlocker silence(curseur);
    curseur->setValue(echelle.Position(v));
    Regle(numero, v);
  });
  Montres_.insert(reglage.Numero, [curseur, valeur](const ReglageCamera& lu) {
    curseur->setEnabled(lu.Actif);
    valeur->setEnabled(lu.Actif);
    // What is shown comes from the camera: it must not be sent back to it. The same in the lines of other kinds.
    const QSignalBlocker silence1(curseur), silence2(valeur);
    valeur->setValue(lu.Valeur);
    if (!curseur->isSliderDown()) curseur->setValue(Echelle(lu).Position(lu.Valeur));
  });
  return boite;
}

QWidget* PanneauReglages::FaitBooleen(const ReglageCamera& reglage) {
  auto* coche = new QCheckBox(NomAffiche(reglage), this);
  coche->setObjectName(NomControle("ReglageCoche", reglage.Numero));
  coche->setAccessibleName(NomAffiche(reglage));
  connect(coche, &QCheckBox::toggled, this, [this, numero = reglage.Numero](bool oui) { Regle(numero, oui ? 1 : 0); });
  Montres_.insert(reglage.Numero, [coche](const ReglageCamera& lu) {
    coche->setEnabled(lu.Actif);
    const QSignalBlocker silence(coche);
    coche->setChecked(lu.Valeur != 0);
  });
  return coche;
}

QWidget* PanneauReglages::FaitMenu(const ReglageCamera& reglage) {
  auto* menu = new QComboBox(this);
  menu->setObjectName(NomControle("ReglageMenu", reglage.Numero));
  menu->setAccessibleName(NomAffiche(reglage));
  menu->setFocusPolicy(Qt::StrongFocus);
  for (int valeur = 0; valeur < reglage.Choix.size(); ++valeur)
    if (!reglage.Choix.at(valeur).isEmpty()) menu->addItem(NomChoix(reglage.Choix.at(valeur), Langue_), valeur);
  connect(menu, &QComboBox::currentIndexChanged, this,
          [this, menu, numero = reglage.Numero](int) { Regle(numero, menu->currentData().toInt()); });
  Montres_.insert(reglage.Numero, [menu](const ReglageCamera& lu) {
    menu->setEnabled(lu.Actif);
    const QSignalBlocker silence(menu);
    menu->setCurrentIndex(menu->findData(lu.Valeur));
  });
  return menu;
}

void PanneauReglages::Regle(quint32 numero, qint32 valeur) {
  if (numero == kReglageEntree || numero == kReglageNorme) {
    // Out of the menu's own event: whoever hears it makes this panel anew.
    QTimer::singleShot(0, this, [this, numero, valeur] { Q_EMIT EntreeChoisie(numero, valeur); });
    return;
  }
  if (Acces_.Regle(Noeud_, numero, valeur)) {
    Q_EMIT RegleFait();
    Relecture_.start();
    return;
  }
  for (const ReglageCamera& reglage : std::as_const(Reglages_))
    if (reglage.Numero == numero) Q_EMIT RegleRefuse(NomAffiche(reglage));
  Relit();  // the line goes back to what holds
}

bool PanneauReglages::RemetSorte(bool entiers) {
  bool tous = true;
  for (const ReglageCamera& reglage : std::as_const(Reglages_)) {
    if (!reglage.Actif || (reglage.Genre == ReglageCamera::Sorte::kEntier) != entiers) continue;
    if (reglage.Valeur != reglage.Defaut) tous = Acces_.Regle(Noeud_, reglage.Numero, reglage.Defaut) && tous;
  }
  Relit();
  return tous;
}

bool PanneauReglages::RemetDefauts() {
  Relit();
  // Switches first: an automatic that is off by default sets numbers free, one that is on locks them.
  const bool choix = RemetSorte(false);
  const bool nombres = RemetSorte(true);
  return choix && nombres;
}

void PanneauReglages::Relit() {
  Relecture_.stop();
  const QList<ReglageCamera> lus = Acces_.Reglages(Noeud_);
  for (ReglageCamera& reglage : Reglages_) {
    const auto lu = std::find_if(lus.begin(), lus.end(), [&](const auto& r) { return r.Numero == reglage.Numero; });
    // Unplugged while the dialog is open: the line stays, but can do nothing.
    if (lu != lus.end())
      reglage = *lu;
    else
      reglage.Actif = false;
    MontreValeur(reglage);
  }
}

void PanneauReglages::MontreValeur(const ReglageCamera& reglage) {
  const auto montre = Montres_.constFind(reglage.Numero);
  if (montre != Montres_.cend()) (*montre)(reglage);
}

}  // namespace vaktor
