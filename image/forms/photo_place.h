// SPDX-License-Identifier: GPL-3.0-or-later
// PictureVisu: the place of the photo in the gallery.
#pragma once

#include <QImage>
#include <QWidget>

namespace vaktor {

/// Takes the size of its picture, pixel for pixel, or room enough for words that stand for one.
class PlacePhoto : public QWidget {
  Q_OBJECT

 public:
  explicit PlacePhoto(QWidget* parent);
  void MontrePhoto(const QImage& photo);       ///< a null picture empties the place, which keeps its size
  void MontreMention(const QString& mention);  ///< words on the lower edge of the picture, until the next one
  void MontreAvis(const QString& avis);
  const QImage& Photo() const { return Photo_; }
  const QString& Mention() const { return Mention_; }
  const QString& Avis() const { return Avis_; }

 Q_SIGNALS:
  void TailleChangee();

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  void DessineMention(QPainter& peintre) const;
  void PrendTaille(const QSize& taille);

  QImage Photo_;
  QString Mention_;
  QString Avis_;
};

}  // namespace vaktor
