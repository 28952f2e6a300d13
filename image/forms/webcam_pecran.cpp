// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/webcam_pecran.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace vaktor {

WebcamPecran::WebcamPecran() : QWidget(nullptr) {
  setObjectName(QStringLiteral("WebcamPecran"));
  setWindowTitle(QStringLiteral("Moniteur"));  // fixed: no text table writes it
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void WebcamPecran::MontreAgrandi() {
  // The size is set as well as the state: without a window manager nobody else would do it.
  if (!isVisible()) setGeometry(screen()->availableGeometry());
  showMaximized();
}

void WebcamPecran::closeEvent(QCloseEvent* evenement) {
  evenement->accept();
  Q_EMIT Ferme();
}

void WebcamPecran::keyPressEvent(QKeyEvent* evenement) {
  if (evenement->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(evenement);
}

void WebcamPecran::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  if (Copie_.Image.EstNulle()) {
    peintre.fillRect(rect(), Qt::black);
    return;
  }
  // The whole frame over the whole window, each axis on its own.
  peintre.scale(double(width()) / Copie_.Taille.width(), double(height()) / Copie_.Taille.height());
  PeintSurface(peintre, Copie_);
}

// The form goes from inside its own close event.
void VueAgrandie::Differe::operator()(WebcamPecran* forme) const { forme->deleteLater(); }

VueAgrandie::~VueAgrandie() {
  // At the end there may be no event loop left to carry out a deferred deletion.
  delete Forme_.release();
}

WebcamPecran* VueAgrandie::Charge() {
  if (!Forme_ && !Dechargee_) {
    Forme_.reset(new WebcamPecran);
    QObject::connect(Forme_.get(), &WebcamPecran::Ferme, Forme_.get(), [this] { Oublie(); });
  }
  return Forme_.get();
}

void VueAgrandie::Oublie() {
  if (SurFermeture_) SurFermeture_();
  if (!Forme_) return;
  Forme_->disconnect();
  Forme_.reset();
}

void VueAgrandie::Copie(const SurfaceImage& surface) {
  if (WebcamPecran* forme = Charge()) forme->CopieDepuis(surface);
}

void VueAgrandie::Rafraichit() {
  if (WebcamPecran* forme = Charge()) forme->update();
}

void VueAgrandie::Montre() {
  if (WebcamPecran* forme = Charge()) forme->MontreAgrandi();
}

void VueAgrandie::Cache() {
  if (Forme_) Forme_->hide();
}

void VueAgrandie::Decharge() {
  Dechargee_ = true;
  SurFermeture_ = nullptr;
  if (!Forme_) return;
  Forme_->disconnect();
  Forme_->hide();
  Forme_.reset();
}

}  // namespace vaktor
