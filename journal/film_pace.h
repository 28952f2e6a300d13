// SPDX-License-Identifier: GPL-3.0-or-later
// The photos of an intrusion as a film: when each is shown, and the playing of it.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace vaktor {

/// Milliseconds from the first photo on, as many as `noms`, each more than the one before. A name tells the second;
/// photos of one second are spread over it. Names that tell nothing follow each other at ten a second.
QList<qint64> PlaceFilm(const QStringList& noms);

/// Where the film stands. Time is told to it. User-interface thread.
class LectureFilm {
 public:
  explicit LectureFilm(QList<qint64> instants) : Instants_(std::move(instants)) {}

  qsizetype Nombre() const { return Instants_.size(); }
  qsizetype Index() const { return Index_; }  ///< of the photo that is shown; -1 of a film without one
  bool Joue() const { return Joue_; }
  double Vitesse() const { return Vitesse_; }

  /// From the end it begins anew.
  void Bascule();
  void ChoisitVitesse(double vitesse) { Vitesse_ = vitesse; }  ///< above 0
  void Va(qsizetype index);                                    ///< to a photo; the film goes on from there if it plays
  void Pas(qsizetype pas);                                     ///< so many photos on or back; it stops
  /// So many milliseconds have gone by. True when another photo is to be shown, or the film has come to its end.
  bool Avance(qint64 millisecondes);

 private:
  static constexpr qint64 kDerniereMs = 500;  // that the last photo is shown before the film counts as over

  QList<qint64> Instants_;
  qsizetype Index_ = Instants_.isEmpty() ? -1 : 0;
  double Position_ = 0;
  double Vitesse_ = 1;
  bool Joue_ = false;
};

}  // namespace vaktor
