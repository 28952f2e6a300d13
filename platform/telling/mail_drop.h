// SPDX-License-Identifier: GPL-3.0-or-later
// The folder "veille" beside the store, in which mails about the watch itself wait for the mail companion.
#pragma once

#include <QByteArray>
#include <memory>

#include "health/ports/mail_drop.h"
#include "image/ports/jpeg_encoder.h"
#include "platform/folders/bounded_work.h"
#include "platform/folders/disk_question.h"
#include "platform/folders/event_loop_relay.h"

namespace vaktor {

/// One mail is one file "MS-N.json" (milliseconds since 1970, a number), its picture "MS-N.jpg" is there before it;
/// both are whole and on the disk when they have these names, and their owner's alone. docs/companions.md has the
/// fields. The day of the last mail of a kind that wants it noted is the text of the file ".WORD". The picture is
/// encoded at once, on the thread of the caller, who owns the encoder; threads of their own write. Needs a
/// QCoreApplication.
class DepotCourrielsFichiers : public DepotCourriels {
 public:
  /// `dossier` is made when the first mail comes, its parent must be there by then.
  DepotCourrielsFichiers(QString dossier, EncodeurJpeg& encodeur) : Dossier_(std::move(dossier)), Encodeur_(encodeur) {}
  ~DepotCourrielsFichiers() override { Relais_->Coupe(); }
  DepotCourrielsFichiers(const DepotCourrielsFichiers&) = delete;
  DepotCourrielsFichiers& operator=(const DepotCourrielsFichiers&) = delete;

  void Depose(const CourrielVeille& courriel, const QImage& image, Fini fini) override;
  void ChercheDernierJour(const QString& mot, std::function<void(const QDate& jour)> recoit) override;

 private:
  QByteArray Encode(const QImage& image);

  const QString Dossier_;
  EncodeurJpeg& Encodeur_;
  qint64 Numero_ = 0;
  TravauxBornes Travaux_;
  QuestionDisque<QDate> Question_;
  std::shared_ptr<RelaisBoucle> Relais_ = std::make_shared<RelaisBoucle>();
};

}  // namespace vaktor
