// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/frame_view.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>

#include "image/forms/surface_painter.h"

namespace vaktor {

namespace {

constexpr int kPas = 8;  // pixels an arrow; with Ctrl a single one
constexpr int kPasFin = 1;

QPoint DonneSens(int touche) {
  switch (touche) {
    case Qt::Key_Left:
      return {-1, 0};
    case Qt::Key_Right:
      return {1, 0};
    case Qt::Key_Up:
      return {0, -1};
    case Qt::Key_Down:
      return {0, 1};
    default:
      return {};
  }
}

}  // namespace

VueCadre::VueCadre(const SurfaceImage& surface, QWidget* parent) : VueAMenu(parent), Surface_(surface) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
}

void VueCadre::MontreAvis(const QString& avis) {
  // Told at each tick: only a change costs a repaint.
  if (avis == Avis_) return;
  Avis_ = avis;
  update();
  AnnonceParoles();
}

// Under Wayland no window knows where it lies. Two columns of a frame may share one colour: a part that began between
// them could not be converted by itself.
QRect VueCadre::PartVue() const {
  if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) return rect();
  QRect part = rect() & screen()->virtualGeometry().translated(-mapToGlobal(QPoint(0, 0)));
  part.setLeft(part.left() / 2 * 2);
  return part;
}

void VueCadre::paintEvent(QPaintEvent* evenement) {
  QPainter peintre(this);
  PeintSurface(peintre, Surface_, evenement->region());
  PeintAvis(peintre);
}

void VueCadre::PeintAvis(QPainter& peintre) const {
  if (Avis_.isEmpty()) return;
  QFont police(QStringLiteral("Arial"));  // as in all windows of the program: no other font is loaded for it
  police.setPixelSize(qBound(11, width() / 16, 40));
  police.setBold(true);
  peintre.setFont(police);
  const QRect mots = peintre.fontMetrics().boundingRect(Avis_).adjusted(-12, -6, 12, 6);
  const QRect plaque(rect().center() - QPoint(mots.width() / 2, mots.height() / 2), mots.size());
  peintre.fillRect(plaque, QColor(0, 0, 0, 170));
  peintre.setPen(Qt::white);
  peintre.drawText(plaque, Qt::AlignCenter, Avis_);
}

void VueCadre::mousePressEvent(QMouseEvent* evenement) {
  if (evenement->button() == Qt::LeftButton) {
    Dessine_ = true;
    Q_EMIT GaucheAppuye(evenement->position());
  }
  if (evenement->button() == Qt::RightButton) Q_EMIT DroitAppuye(evenement->position());
}

void VueCadre::mouseMoveEvent(QMouseEvent* evenement) {
  // The left button alone: a drag with a second button held draws nothing.
  if (evenement->buttons() == Qt::LeftButton) Q_EMIT GaucheDeplace(evenement->position());
}

void VueCadre::mouseReleaseEvent(QMouseEvent* evenement) {
  if (evenement->button() != Qt::LeftButton) return;
  Dessine_ = false;
  Q_EMIT GaucheRelache(evenement->position());
}

void VueCadre::keyPressEvent(QKeyEvent* evenement) {
  const QPoint sens = DonneSens(evenement->key());
  const bool remet = evenement->key() == Qt::Key_Home;
  if (sens.isNull() && !remet) return VueAMenu::keyPressEvent(evenement);
  if (Dessine_) return;  // a zone has one hand on it
  if (remet) {
    Q_EMIT ZoneRemise();
    return;
  }
  const QPoint pas = sens * (evenement->modifiers() & Qt::ControlModifier ? kPasFin : kPas);
  if (evenement->modifiers() & Qt::ShiftModifier) {
    Q_EMIT ZoneEtiree(pas);
  } else {
    Q_EMIT ZonePoussee(pas);
  }
}

}  // namespace vaktor
