// BoutonImage: one push button of the main window, 72 x 16 pixels.
#pragma once

#include <QAbstractButton>

namespace vaktor {

/// The two families: blue buttons of the top band, grey ones of the pages.
enum class FamilleBouton { kBleue, kGrise };

/// Shows its caption in plain look and reports clicks. Faces, hover and sounds of the family are a matter of this class
/// alone: whoever uses a button only knows its caption and its click.
class BoutonImage : public QAbstractButton {
  Q_OBJECT

 public:
  static constexpr QSize kTaille{72, 16};

  BoutonImage(QWidget* parent, const QString& nom, QPoint place, FamilleBouton famille);
  /// Writes the caption; accessibleName follows.
  void ChangeLibelle(const QString& libelle);
  QSize sizeHint() const override { return kTaille; }

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  FamilleBouton Famille_;
};

}  // namespace vaktor
