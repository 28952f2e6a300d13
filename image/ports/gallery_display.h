// SPDX-License-Identifier: GPL-3.0-or-later
// What the gallery's rules show. FormVisuPhoto stands behind it; tests stand in for it.
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

namespace vaktor {

/// User-interface thread. None of these calls comes back into the rules.
class AffichageGalerie {
 public:
  virtual ~AffichageGalerie() = default;
  /// The entries of FilePhotoVisu and the selected one, -1 for none.
  virtual void MontreListe(const QStringList& entrees, int index) = 0;
  virtual void MontreIndex(int index) = 0;
  /// PictureVisu takes the picture in its own size; a null picture empties it.
  virtual void MontrePhoto(const QImage& photo) = 0;
  /// Words along the lower edge of the picture that is shown, until another takes its place; empty for none.
  virtual void MontreMention(const QString& mention) = 0;
  /// Words in the place of the picture, which goes.
  virtual void MontreAvis(const QString& avis) = 0;
  virtual void MontreTitre(const QString& titre) = 0;
  /// Fits the window around PictureVisu, unless it is minimised or maximised.
  virtual void AjusteAutourPhoto() = 0;
  virtual void MontreFenetre() = 0;
  /// FrmProgression: shown with the scale 0 to `dernier`; filled up to one step; unloaded.
  virtual void OuvreProgression(int dernier) = 0;
  virtual void AvanceProgression(int pas) = 0;
  virtual void FermeProgression() = 0;
};

}  // namespace vaktor
