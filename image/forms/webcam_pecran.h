// SPDX-License-Identifier: GPL-3.0-or-later
// WebcamPecran: the enlarged view, one window that shows the frame of the tick before over a whole screen.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "engine/frame_surface.h"
#include "image/forms/surface_painter.h"

namespace vaktor {

/// Holds picture and outlines by reference and scales them only when it is painted, so a hidden view costs nothing.
class WebcamPecran : public QWidget {
  Q_OBJECT

 public:
  WebcamPecran();
  void CopieDepuis(const SurfaceImage& surface) { Copie_.Prend(surface); }
  const CopieSurface& Copie() const { return Copie_; }
  void MontreAgrandi();

 Q_SIGNALS:
  void Ferme();

 protected:
  void closeEvent(QCloseEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;  ///< Escape closes it
  void paintEvent(QPaintEvent* evenement) override;

 private:
  CopieSurface Copie_;
};

/// Owner of the form: closing unloads it, and the next use that touches it loads it again. User-interface thread.
class VueAgrandie {
 public:
  ~VueAgrandie();
  /// Called when the user closed the form, before it goes.
  void SurFermeture(std::function<void()> fonction) { SurFermeture_ = std::move(fonction); }
  void Copie(const SurfaceImage& surface);  ///< shown or not
  void Rafraichit();
  void Montre();
  void Cache();
  void Decharge();                                      ///< end of the program: nothing loads it again
  WebcamPecran* Forme() const { return Forme_.get(); }  ///< null while it is not loaded

 private:
  WebcamPecran* Charge();
  void Oublie();

  struct Differe {
    void operator()(WebcamPecran* forme) const;
  };
  std::unique_ptr<WebcamPecran, Differe> Forme_;
  std::function<void()> SurFermeture_;
  bool Dechargee_ = false;
};

}  // namespace vaktor
