// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/face_button.h"

#include <QCoreApplication>
#include <QCursor>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace vaktor {

namespace {

constexpr int kDernierMuet = 2;         // Bouton(0) to (2) make no sound when released
constexpr int kRangeeCameraMarche = 7;  // second face set of Bouton(0)

int LitIndex(const QString& nom) {
  const auto debut = nom.indexOf(QLatin1Char('(')) + 1;
  return nom.mid(debut, nom.indexOf(QLatin1Char(')')) - debut).toInt();
}

}  // namespace

BoutonImage::BoutonImage(QWidget* parent, const QString& nom, QPoint place, FamilleBouton famille)
    : BoutonImage(parent, nom, place, famille, LitIndex(nom)) {}

BoutonImage::BoutonImage(QWidget* parent, const QString& nom, QPoint place, FamilleBouton famille, int rangee)
    : BoutonEntendu(parent), Famille_(famille), Index_(rangee) {
  setObjectName(nom);
  setGeometry(QRect(place, kTaille));
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
}

void BoutonImage::ChangeLibelle(const QString& libelle) {
  setText(libelle);
  setAccessibleName(libelle);
}

void BoutonImage::ChangeAide(const QString& aide, const QString& raison) {
  Aide_ = aide;
  Raison_ = raison;
  EcritAide();
}

void BoutonImage::EcritAide() {
  if (Raison_.isEmpty()) return;
  QStringList lignes;
  if (!Aide_.isEmpty()) lignes += Aide_;
  if (!isEnabled()) lignes += Raison_;
  setToolTip(lignes.join(u'\n'));
}

void BoutonImage::changeEvent(QEvent* evenement) {
  BoutonEntendu::changeEvent(evenement);
  if (evenement->type() != QEvent::EnabledChange) return;
  EcritAide();
  if (underMouse()) MontreInterdit();
}

void BoutonImage::enterEvent(QEnterEvent* evenement) {
  BoutonEntendu::enterEvent(evenement);
  MontreInterdit();
}

// The toolkit shows no cursor of a control that is disabled; it shows the window's instead.
void BoutonImage::MontreInterdit() {
  if (underMouse() && !isEnabled()) {
    window()->setCursor(Qt::ForbiddenCursor);
  } else {
    window()->unsetCursor();
  }
}

void BoutonImage::Relie(const LiensBouton& liens) { Liens_ = std::make_unique<LiensBouton>(liens); }

void BoutonImage::Delie() {
  Retient(false);
  Liens_.reset();
}

const FaceBouton& BoutonImage::Rangee(int i) const {
  return Famille_ == FamilleBouton::kBleue ? Liens_->Faces.FacesBouton(i) : Liens_->Faces.FacesBoutonGris(i);
}

int BoutonImage::RangeeCourante() const {
  const bool camera = Famille_ == FamilleBouton::kBleue && Index_ == 0 && Liens_->CameraActive();
  return camera ? kRangeeCameraMarche : Index_;
}

void BoutonImage::MontreRepos() {
  if (Liens_) MontreFace(Rangee(Index_).FaceRepos);
}

void BoutonImage::MontreFace(const QImage& face) {
  // Asked for at each move of the mouse: the same face again costs no repaint.
  if (face.cacheKey() == Face_.cacheKey()) return;
  Face_ = face;
  update();
}

// Any mouse button shows the press, always with the button's own row: with the camera running Bouton(0) briefly reads
// as if it were off.
void BoutonImage::mousePressEvent(QMouseEvent* evenement) {
  if (Passe(*evenement)) return;
  Sorti_ = false;  // also without a move before: the window may have come up under the pointer
  if (Liens_ && Famille_ == FamilleBouton::kBleue) MontreFace(Rangee(Index_).FaceEnfoncee);
  BoutonEntendu::mousePressEvent(evenement);
}

// The press lasts to the next move only, also with the mouse button still held.
void BoutonImage::mouseMoveEvent(QMouseEvent* evenement) {
  if (Passe(*evenement)) return;
  const bool sort = !SuitPointeur(evenement->position().toPoint());
  BoutonEntendu::mouseMoveEvent(evenement);
  if (sort && Liens_ && evenement->buttons() != Qt::NoButton) Lache();
}

// The move that takes the pointer out is the button's last one, with whatever mouse button held. The press is over with
// it: coming back makes no click any more. The toolkit forgets a press when it sees it released beside the button.
void BoutonImage::Lache() {
  Lachee_ = true;
  const QPointF dehors(-1, -1);
  QMouseEvent fin(QEvent::MouseButtonRelease, dehors, mapToGlobal(dehors), Qt::LeftButton, Qt::NoButton,
                  Qt::NoModifier);
  BoutonEntendu::mouseReleaseEvent(&fin);
}

// As long as a mouse button is held, the toolkit sends everything to the control that was pressed. After the button has
// let go it hands that on to what lies under the pointer: a page is dragged by it. True: it was somebody else's.
bool BoutonImage::Passe(const QMouseEvent& evenement) {
  const bool relache = evenement.type() == QEvent::MouseButtonRelease;
  const bool appuie = evenement.type() == QEvent::MouseButtonPress;
  const auto autres = appuie ? evenement.buttons() & ~evenement.button() : evenement.buttons();
  QWidget* cible = Lachee_ && (relache || autres != Qt::NoButton) ? ControleSous(evenement.globalPosition()) : this;
  if (cible == this || evenement.buttons() == Qt::NoButton) Lachee_ = false;
  if (cible == this) return false;
  // A field would take the move for the end of a selection that nobody has begun.
  if (cible == nullptr || qobject_cast<QLineEdit*>(cible) != nullptr) return true;
  QMouseEvent passe(evenement.type(), cible->mapFromGlobal(evenement.globalPosition()), evenement.scenePosition(),
                    evenement.globalPosition(), evenement.button(), evenement.buttons(), evenement.modifiers(),
                    evenement.pointingDevice());
  QCoreApplication::sendEvent(cible, &passe);
  return true;
}

// Null beside the window: what lies there is not ours to tell.
QWidget* BoutonImage::ControleSous(const QPointF& global) const {
  const QPoint place = window()->mapFromGlobal(global).toPoint();
  if (!window()->rect().contains(place)) return nullptr;
  QWidget* controle = window()->childAt(place);
  return controle != nullptr ? controle : window();
}

// True while the pointer counts as inside. The right and the lower edge are one pixel further out than the button.
bool BoutonImage::SuitPointeur(const QPoint& position) {
  if (!Liens_) return false;
  const bool dehors = position.x() < 0 || position.y() < 0 || position.x() > width() || position.y() > height();
  if (dehors) {
    MontreSortie();
    return false;
  }
  Sorti_ = false;
  MontreFace(Rangee(RangeeCourante()).FaceSurvol);
  Liens_->Sons.SurvolSon(Index_);
  return true;
}

void BoutonImage::MontreSortie() {
  Sorti_ = true;
  MontreFace(Rangee(RangeeCourante()).FaceRepos);
}

void BoutonImage::leaveEvent(QEvent* evenement) {
  BoutonEntendu::leaveEvent(evenement);
  MontreInterdit();
  Retient(SuitPointeur(mapFromGlobal(QCursor::pos())));
}

// On the margin the button keeps the mouse, as far as its look goes: it watches the moves of the other controls.
void BoutonImage::Retient(bool retient) {
  if (retient == Retient_) return;
  Retient_ = retient;
  if (retient) {
    QCoreApplication::instance()->installEventFilter(this);
  } else {
    QCoreApplication::instance()->removeEventFilter(this);
  }
}

bool BoutonImage::eventFilter(QObject* objet, QEvent* evenement) {
  if (!objet->isWidgetType() || objet == this) return false;
  if (evenement->type() == QEvent::MouseMove) {
    Retient(SuitPointeur(mapFromGlobal(static_cast<QMouseEvent*>(evenement)->globalPosition().toPoint())));
    return Retient_;
  }
  if (objet == window() && (evenement->type() == QEvent::Leave || evenement->type() == QEvent::WindowDeactivate)) {
    Retient(false);
    MontreSortie();
  }
  return false;
}

// The sound comes before the click, and also for a press that began elsewhere and ends here.
void BoutonImage::mouseReleaseEvent(QMouseEvent* evenement) {
  if (Passe(*evenement)) return;
  if (Liens_ && (Famille_ == FamilleBouton::kGrise || Index_ > kDernierMuet)) Liens_->Sons.JoueSon(SonsInterface::kTic);
  const bool dedans = !Sorti_;
  const QPointer<BoutonImage> ceci(this);
  BoutonEntendu::mouseReleaseEvent(evenement);
  // A camera takes its time to connect, the window lives on in that click, and the pointer may leave in the middle of
  // it: the face at rest that it left behind knew nothing of what the click brought, and would say so for hours.
  if (ceci && dedans && Sorti_ && Liens_) MontreSortie();
}

void BoutonImage::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.drawImage(QPointF(0, 0), Face_);
  if (!FocusMontre()) return;
  peintre.setPen(QPen(QColor(0x30, 0x30, 0x30), 1, Qt::DotLine));
  peintre.drawRect(rect().adjusted(2, 2, -3, -3));
}

}  // namespace vaktor
