// SPDX-License-Identifier: GPL-3.0-or-later
// The line at the foot of a dialog that says how the last thing went. Empty it takes its room all the same, so that
// nothing jumps.
#pragma once

#include <QLabel>

namespace vaktor {

class BandeauMessage : public QLabel {
 public:
  explicit BandeauMessage(const QString& nom, QWidget* parent = nullptr);
  void MontreReussite(const QString& texte);
  void MontreErreur(const QString& texte);
  /// Shown at once, even when the event loop will not turn for a while.
  void MontreAttente(const QString& texte);
  void Efface();

 private:
  void Montre(const QString& texte, const QString& style);
};

}  // namespace vaktor
