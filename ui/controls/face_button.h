// SPDX-License-Identifier: GPL-3.0-or-later
// BoutonImage: one push button of the main window, 72 x 16 pixels.
#pragma once

#include <QImage>
#include <functional>
#include <memory>

#include "engine/ports/interface_sounds.h"
#include "ui/controls/heard_button.h"
#include "ui/face/button_faces.h"

namespace vaktor {

/// The two families: blue buttons of the top band, grey ones of the pages.
enum class FamilleBouton { kBleue, kGrise };

/// What a button calls and reads. The references outlive the button.
struct LiensBouton {
  const FacesBoutons& Faces;
  SonsInterface& Sons;
  std::function<bool()> CameraActive;  ///< chooses the face set of Bouton(0)
};

/// Shows one printed face at a time and reports clicks. A button holds no state: its look is the face that was shown
/// last. Faces, hover and sounds of the family are a matter of this class alone: whoever uses a button only knows its
/// caption and its click.
class BoutonImage : public BoutonEntendu {
  Q_OBJECT

 public:
  static constexpr QSize kTaille = FacesBoutons::kTaille;

  /// `nom` ends in the button's number in its family: "Bouton(3)".
  BoutonImage(QWidget* parent, const QString& nom, QPoint place, FamilleBouton famille);
  /// For a button that is in no array: `rangee` is its row of faces, and what it is called when the pointer passes.
  BoutonImage(QWidget* parent, const QString& nom, QPoint place, FamilleBouton famille, int rangee);
  /// The caption for those who hear the window; the faces carry it for those who see it.
  void ChangeLibelle(const QString& libelle);
  /// The tooltip. While the button is disabled, `raison` stands behind it on a line of its own: a face shows nothing of
  /// that. Those who hear the window are told both.
  void ChangeAide(const QString& aide, const QString& raison);
  /// Before that the button is blank and silent.
  void Relie(const LiensBouton& liens);
  /// Blank and silent again: before the faces go.
  void Delie();
  /// Shows the face at rest of the button's own row, whatever the camera does.
  void MontreRepos();
  const QImage& Face() const { return Face_; }
  QSize sizeHint() const override { return kTaille; }

 protected:
  void changeEvent(QEvent* evenement) override;
  void enterEvent(QEnterEvent* evenement) override;
  bool eventFilter(QObject* objet, QEvent* evenement) override;
  void leaveEvent(QEvent* evenement) override;
  void mouseMoveEvent(QMouseEvent* evenement) override;
  void mousePressEvent(QMouseEvent* evenement) override;
  void mouseReleaseEvent(QMouseEvent* evenement) override;
  void paintEvent(QPaintEvent* evenement) override;

 private:
  const FaceBouton& Rangee(int i) const;
  int RangeeCourante() const;
  void MontreFace(const QImage& face);
  bool SuitPointeur(const QPoint& position);
  void MontreSortie();
  void Retient(bool retient);
  void EcritAide();
  void MontreInterdit();
  void Lache();
  bool Passe(const QMouseEvent& evenement);
  QWidget* ControleSous(const QPointF& global) const;

  FamilleBouton Famille_;
  int Index_;
  std::unique_ptr<LiensBouton> Liens_;
  QImage Face_;
  QString Aide_;
  QString Raison_;        // empty: the tooltip is set from outside
  bool Retient_ = false;  // the pointer has left the button but not yet its margin
  bool Sorti_ = true;     // the pointer, as it was last followed
  bool Lachee_ = false;   // the pointer has left with a mouse button held: what follows is not this button's
};

}  // namespace vaktor
