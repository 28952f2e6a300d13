#include "ui/window/window_mouse.h"

#include <QMouseEvent>
#include <QWidget>

#include "ui/controls/control_factory.h"
#include "ui/controls/flag_button.h"

namespace vaktor {

namespace {

struct NumeroSurvol {
  const char* Controle;
  qint32 Id;
};

// Buttons tell their own numbers. CheckMail has that of the fifth button of both families, and so it stays.
constexpr NumeroSurvol kNumeros[] = {{"CheckMail", 5},  {"CheckSon", 6},      {"CheckPPhot", 7},    {"Image4(0)", 11},
                                     {"Image4(1)", 12}, {"ChkSeuilAuto", 15}, {"LblSeuilAuto", 15}, {"Text1", 17}};

// These labels drag the window besides the free surfaces; the other labels do not.
constexpr const char* kEtiquettesPoignees[] = {"LabelMaildest", "LabelMailSujet", "LabelMailTexte", "LabelNbrMail",
                                               "LabelSeuil",    "LabelVague",     "LblDebugAlarm",  "LblDebugftp"};

}  // namespace

SourisFenetre::SourisFenetre(QWidget& fenetre, SonsInterface& sons) : Fenetre_(fenetre), Sons_(sons) {
  Fonds_.insert(&fenetre);
  EcouteControle(&fenetre);
  for (int i = 0; i < 4; ++i) {
    auto* page = fenetre.findChild<QWidget*>(NomIndexe("PictPage", i));
    if (page == nullptr) continue;
    Fonds_.insert(page);
    EcouteControle(page);
  }
  Poignees_ = Fonds_;
  // A move over a control is no move over the page below it, also where the control does nothing with it.
  for (QObject* fond : std::as_const(Fonds_)) {
    for (auto* controle : fond->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      controle->setAttribute(Qt::WA_NoMousePropagation);
    }
  }
  InscritControles();
}

void SourisFenetre::InscritControles() {
  for (const NumeroSurvol& numero : kNumeros) {
    auto* controle = Fenetre_.findChild<QWidget*>(QLatin1String(numero.Controle));
    if (controle == nullptr) continue;
    Numeros_.insert(controle, numero.Id);
    EcouteControle(controle);
  }
  for (const char* nom : kEtiquettesPoignees) {
    auto* etiquette = Fenetre_.findChild<QWidget*>(QLatin1String(nom));
    if (etiquette == nullptr) continue;
    Poignees_.insert(etiquette);
    EcouteControle(etiquette);
  }
  Francais_ = Fenetre_.findChild<DrapeauLangue*>(NomIndexe("Image4", 0));
  Anglais_ = Fenetre_.findChild<DrapeauLangue*>(NomIndexe("Image4", 1));
}

void SourisFenetre::EcouteControle(QWidget* controle) {
  controle->setMouseTracking(true);
  controle->installEventFilter(this);
}

void SourisFenetre::Passe(qint32 id) {
  DernierSurvol_ = id;
  Sons_.SurvolSon(id);
}

bool SourisFenetre::eventFilter(QObject* objet, QEvent* evenement) {
  if (evenement->type() != QEvent::MouseMove) return false;
  const auto numero = Numeros_.constFind(objet);
  if (numero != Numeros_.constEnd()) Passe(*numero);
  if (Fonds_.contains(objet) && DernierSurvol_ != kAucunSurvol) Passe(kAucunSurvol);
  SuitDrapeaux(objet);
  // Any other button held besides the left one means something else than a drag.
  if (Poignees_.contains(objet) && static_cast<QMouseEvent*>(evenement)->buttons() == Qt::LeftButton) {
    Q_EMIT DeplacementDemande();
  }
  return false;
}

// The flag under the pointer loses its frame and the other has one; over a page both have theirs.
void SourisFenetre::SuitDrapeaux(QObject* objet) {
  if (Francais_ == nullptr || Anglais_ == nullptr) return;
  const bool surPage = Fonds_.contains(objet) && objet != &Fenetre_;
  if (objet != Francais_ && objet != Anglais_ && !surPage) return;
  Francais_->Encadre(objet != Francais_);
  Anglais_->Encadre(objet != Anglais_);
}

}  // namespace vaktor
