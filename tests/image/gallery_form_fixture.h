// SPDX-License-Identifier: GPL-3.0-or-later
// FormVisuPhoto under mouse and keys, over a gallery on fakes.
#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>

#include "image/forms/form_visu_photo.h"
#include "image/gallery_bench.h"

namespace vaktor {

class Galerie : public testing::Test, protected faux::BancGalerie {
 protected:
  void Ouvre(const QStringList& photos = {QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")}) {
    AjoutePhotos(photos);
    Forme.ChargeMots();
    Forme.OuvreGalerie();
    Lecteur.Lues.clear();
  }
  template <typename T>
  T* Trouve(const char* nom) {
    return Forme.findChild<T*>(QLatin1String(nom));
  }
  QPoint Place(int entree) { return Liste->visualRect(Liste->model()->index(entree, 0)).center(); }
  void Clique(int entree) { QTest::mouseClick(Liste->viewport(), Qt::LeftButton, {}, Place(entree)); }
  void Touche(Qt::Key touche) { QTest::keyClick(Liste, touche); }
  void Bouton(const char* nom) { QTest::mouseClick(Trouve<QPushButton>(nom), Qt::LeftButton); }
  void Bouge(const QPoint& ou, Qt::MouseButtons boutons) {
    QMouseEvent bouge(QEvent::MouseMove, ou, Liste->viewport()->mapToGlobal(ou), Qt::NoButton, boutons, Qt::NoModifier);
    QCoreApplication::sendEvent(Liste->viewport(), &bouge);
  }
  static QStringList Suite(int nombre) {
    QStringList noms;
    for (int i = 0; i < nombre; ++i) noms += QStringLiteral("%1.jpg").arg(i, 3, 10, QLatin1Char('0'));
    return noms;
  }
  QString Lu(int i = 0) const { return Lecteur.Lues.value(i); }

  FormVisuPhoto Forme{BancGalerie::Galerie, Reglages, Textes};
  ListePhotos* Liste = Trouve<ListePhotos>("FilePhotoVisu");
  PlacePhoto* Photo = Trouve<PlacePhoto>("PictureVisu");
  QLineEdit* Limite = Trouve<QLineEdit>("TxtNbrPhotDisk");
  QMenu* Menu = Trouve<QMenu>("Mnu_file");
};

}  // namespace vaktor
