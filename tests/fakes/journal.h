// SPDX-License-Identifier: GPL-3.0-or-later
// One list that all fakes of a test write their calls into, so that a test can see the order of calls across ports.
#pragma once

#include <QString>
#include <QStringList>
#include <utility>

namespace vaktor::faux {

/// Off until a test wants it: a fake that is not listened to allocates nothing.
class Journal {
 public:
  void Ecoute() { Ecoute_ = true; }
  void Vide() { Lignes_.clear(); }
  /// `ligne` makes the text and is called only while somebody listens.
  template <typename Ligne>
  void Note(Ligne&& ligne) {
    if (Ecoute_) Lignes_.append(std::forward<Ligne>(ligne)());
  }
  const QStringList& Lignes() const { return Lignes_; }
  /// The position of a call, -1 when it was not made.
  qsizetype Rang(const QString& ligne) const { return Lignes_.indexOf(ligne); }

 private:
  bool Ecoute_ = false;
  QStringList Lignes_;
};

}  // namespace vaktor::faux
