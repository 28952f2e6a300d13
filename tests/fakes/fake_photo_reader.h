// SPDX-License-Identifier: GPL-3.0-or-later
// Photos that are read from nowhere: pictures by path, and what is wrong with the others. At once, or when the test
// lets them come.
#pragma once

#include <QHash>
#include <QStringList>
#include <exception>
#include <utility>

#include "image/ports/photo_reader.h"

namespace vaktor::faux {

/// A path that nobody has told of is a photo of 40 x 30. At once is within the call, which the real reader never does:
/// the rules must stand both.
class LecteurPhotosFaux : public LecteurPhotos {
 public:
  void LitPhoto(const QString& chemin, Recoit recoit) override {
    Lues += chemin;
    if (Jette) std::rethrow_exception(std::exchange(Jette, nullptr));
    Chemin_ = chemin;
    EnAttente_ = std::move(recoit);
    if (!Retient) Livre();
  }
  void Oublie() override { EnAttente_ = nullptr; }

  bool Attend() const { return EnAttente_ != nullptr; }
  /// The photo as it is now. Nothing when nobody waits any more.
  void Livre() {
    const Recoit recoit = std::exchange(EnAttente_, nullptr);
    if (recoit) recoit(Lue(Chemin_));
  }
  /// The disk lets its reader wait.
  void Tarde() {
    const Recoit recoit = EnAttente_;
    if (recoit) recoit({.Etat = EtatPhoto::kSansReponse});
  }

  QHash<QString, EtatPhoto> Etats;
  QHash<QString, Dommage> Defauts;
  QHash<QString, QSize> Tailles;
  QHash<QString, QRgb> Couleurs;
  bool Retient = false;      ///< photos wait for Livre()
  std::exception_ptr Jette;  ///< the next reading throws it, and is none
  QStringList Lues;          ///< paths as passed, in order

 private:
  PhotoLue Lue(const QString& chemin) const {
    const EtatPhoto etat = Etats.value(chemin, EtatPhoto::kLue);
    if (etat != EtatPhoto::kLue) return {.Etat = etat};
    QImage image(Tailles.value(chemin, QSize(40, 30)), QImage::Format_RGB32);
    image.fill(Couleurs.value(chemin, qRgb(200, 60, 20)));
    return {.Etat = EtatPhoto::kLue, .Image = image, .Defaut = Defauts.value(chemin, Dommage::kAucun)};
  }

  QString Chemin_;
  Recoit EnAttente_;
};

}  // namespace vaktor::faux
