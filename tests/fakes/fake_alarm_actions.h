// SPDX-License-Identifier: GPL-3.0-or-later
// The alarm's actions and the live page, counted instead of done.
#pragma once

#include <functional>

#include "base/failure.h"
#include "engine/ports/alarm_actions.h"
#include "fakes/journal.h"

namespace vaktor::faux {

class ActionsFausses : public ActionsAlarme {
 public:
  explicit ActionsFausses(Journal& journal) : Journal_(journal) {}

  void EnregistrePhoto() override {
    Journal_.Note([] { return QStringLiteral("EnregistrePhoto"); });
    ++Photos;
    if (PendantPhoto) PendantPhoto();
    if (PhotoEchoue) throw Echec(kAppelIncorrect, QStringLiteral("the photo cannot be written"));
  }
  void EnvoiMail() override {
    Journal_.Note([] { return QStringLiteral("EnvoiMail"); });
    ++Mails;
  }
  void EnvoiSon() override {
    Journal_.Note([] { return QStringLiteral("EnvoiSon"); });
    ++Sons;
  }

  void NoteIntrusion() noexcept override {
    Journal_.Note([] { return QStringLiteral("NoteIntrusion"); });
    ++Intrusions;
  }

  std::function<void()> PendantPhoto;  ///< takes a photo, or fails, in the recorder's place
  bool PhotoEchoue = false;
  qint32 Photos = 0, Mails = 0, Sons = 0, Intrusions = 0;

 private:
  Journal& Journal_;
};

class LiaisonLiveFausse : public LiaisonLive {
 public:
  explicit LiaisonLiveFausse(Journal& journal) : Journal_(journal) {}

  bool LiveActif() const override { return Actif; }
  bool VeutPhotos() const override { return Actif || Interrompu; }
  /// What the room above does when the camera has been switched off.
  void OublieLive() {
    Journal_.Note([] { return QStringLiteral("OublieLive"); });
    Actif = false;
  }
  void PublieLive(const ImageCamera& image) override {
    Publiee = image;
    Journal_.Note([] { return QStringLiteral("PublieLive"); });
    ++Publications;
    if (PublicationEchoue) throw Echec(kAppelIncorrect, QStringLiteral("the live image cannot be written"));
  }

  bool Actif = false;
  bool Interrompu = false;  ///< its companion is away, the page waits
  bool PublicationEchoue = false;
  qint32 Publications = 0;
  ImageCamera Publiee;  ///< the last one

 private:
  Journal& Journal_;
};

}  // namespace vaktor::faux
