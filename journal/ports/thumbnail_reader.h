// SPDX-License-Identifier: GPL-3.0-or-later
// Port: a small picture of a photo, decoded small, without holding up the window.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <functional>

#include "image/ports/photo_reader.h"

namespace vaktor {

struct Vignette {
  EtatPhoto Etat = EtatPhoto::kIllisible;
  QImage Image = {};   ///< kLue: as large as fits into what was asked for, never larger than the photo
  QSize Entiere = {};  ///< kLue: of the photo itself
};

/// User-interface thread.
class LecteurVignettes {
 public:
  using Recoit = std::function<void(const Vignette&)>;

  virtual ~LecteurVignettes() = default;
  /// `chemin`: stored form. Calls `recoit` from the event loop, later, once: kSansReponse after two seconds. One at a
  /// time: what was asked before is forgotten.
  virtual void LitVignette(const QString& chemin, const QSize& taille, Recoit recoit) = 0;
  virtual void Oublie() = 0;
};

}  // namespace vaktor
