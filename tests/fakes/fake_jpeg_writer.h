// A JPEG writer that records what it is asked to save, and fails on demand.
#pragma once

#include <QList>

#include "base/failure.h"
#include "image/jpeg_writer.h"

namespace vaktor {

class FauxEcrivainJpeg : public EcrivainJpeg {
 public:
  struct Appel {
    QImage Image;
    QString Fichier;
    int Qualite = -1;
  };
  QList<Appel> Appels;   ///< in order, those that failed included
  int EchecsAVenir = 0;  ///< so many calls from now on fail, with the status below
  int StatutDesEchecs = 7;

  void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) override {
    Appels += {image, fichier, qualite};
    if (EchecsAVenir == 0) return;
    --EchecsAVenir;
    throw Echec(kAppelIncorrect, QStringLiteral("Cannot save the image. GDI+ Error:%1").arg(StatutDesEchecs));
  }
};

}  // namespace vaktor
