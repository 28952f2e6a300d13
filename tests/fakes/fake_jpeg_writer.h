// SPDX-License-Identifier: GPL-3.0-or-later
// A JPEG writer that records what it is asked to save, and fails on demand.
#pragma once

#include <QList>
#include <QMap>
#include <new>

#include "base/failure.h"
#include "image/jpeg_writer.h"

namespace vaktor {

class FauxEcrivainJpeg : public EcrivainJpeg {
 public:
  struct Appel {
    QImage Image;
    QString Fichier;
    int Qualite = -1;
    bool Nouveau = false;  ///< must replace nothing
  };
  QList<Appel> Appels;   ///< in order, those that failed included
  int EchecsAVenir = 0;  ///< so many calls from now on fail, with the status below
  int StatutDesEchecs = 7;
  QString DejaPris = {};          ///< the name of each new file is taken: it ends so in place of ".jpg"
  bool SansMemoire = false;       ///< each call finds no memory
  QMap<QString, int> ErreursPar;  ///< folders in which every call fails, with the system's error number

  void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) override {
    Note({image, fichier, qualite, false});
  }
  QString EnregistreNouveauJPEG(const QImage& image, const QString& fichier, quint8 qualite) override {
    Note({image, fichier, qualite, true});
    QString ecrit = QString(fichier).replace(u'\\', u'/');
    return DejaPris.isEmpty() ? ecrit : ecrit.replace(QStringLiteral(".jpg"), DejaPris);
  }

 private:
  void Note(const Appel& appel) {
    Appels += appel;
    if (SansMemoire) throw std::bad_alloc();
    if (ErreursPar.contains(appel.Fichier.section(u'/', 0, -2))) {
      const int erreur = ErreursPar.value(appel.Fichier.section(u'/', 0, -2));
      throw EchecJpeg(EcrivainJpegFichier::StatutEcriture(erreur), erreur);
    }
    if (EchecsAVenir == 0) return;
    --EchecsAVenir;
    throw EchecJpeg(static_cast<StatutJpeg>(StatutDesEchecs), 0);
  }
};

}  // namespace vaktor
