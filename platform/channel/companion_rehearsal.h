// SPDX-License-Identifier: GPL-3.0-or-later
// A rehearsal by the companion whose work it is: "VAKTORmail --try" or "VAKTORftp --try", started once for it.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <memory>

#include "companions/ports/rehearsal.h"

namespace vaktor {

/// User-interface thread; all goes through the event loop. The request, and with it the password, is written into the
/// standard input of the companion: it stands in no command line, environment or file.
class EssaiParCompagnon : public EssaiReglages {
 public:
  static constexpr int kDureeMax = 90'000;  ///< milliseconds; then it is ended
  /// Milliseconds from the request to end to the end by force. A rehearsal of the live page deletes meanwhile what it
  /// has put on the server.
  static constexpr int kGrace = 10'000;

  /// `arguments` go in front of "--try"; for tests.
  explicit EssaiParCompagnon(QString programme, QString dossierPrive = {}, QStringList arguments = {},
                             int dureeMax = kDureeMax);
  ~EssaiParCompagnon() override;
  EssaiParCompagnon(const EssaiParCompagnon&) = delete;
  EssaiParCompagnon& operator=(const EssaiParCompagnon&) = delete;

  void Lance(const QByteArray& demande, const RappelsEssai& rappels) override;
  void Annule() override;

 private:
  void LitLignes();
  void Termine(FinEssai fin);
  void Abandonne();

  const QString Programme_;
  const QString DossierPrive_;
  const QStringList Arguments_;
  RappelsEssai Rappels_;
  QTimer Limite_;
  std::unique_ptr<QProcess> Processus_;
};

}  // namespace vaktor
