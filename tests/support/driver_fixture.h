// SPDX-License-Identifier: GPL-3.0-or-later
// A real driver over a source of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <memory>
#include <set>

#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/driver/gst_driver.h"
#include "support/next_frame.h"
#include "texts/language.h"

namespace vaktor {

class PiloteSurSource : public testing::Test {
 protected:
  bool Connecte(const QString& ou) {
    Pilote_ = std::make_unique<PiloteGStreamer>(
        ou, Memoire_, [] { return Langue::kAnglais; }, nullptr);
    return Pilote_->Connecte();
  }
  /// What was tried last was refused since nothing here decodes it.
  bool EstSansDecodeur() const { return Pilote_->Pourquoi().Quoi == Motif::kSansDecodeur; }
  bool ARefuseLaTaille() const { return Pilote_->Pourquoi().Quoi == Motif::kTropGrande; }
  QString Fichier(const char* nom) const { return Dossier_.filePath(QLatin1String(nom)); }

  /// Frames that come within this time, and the longest wait for one.
  struct Recolte {
    int Images = 0;
    qint64 PireAttente = 0;
    std::set<std::pair<int, int>> Tailles;
    std::set<const uchar*> Memoires;
  };
  Recolte Recueille(int duree) {
    Recolte recolte;
    QElapsedTimer depuis;
    depuis.start();
    qint64 derniere = 0;
    while (depuis.elapsed() < duree) {
      if (!SaisitProchaine(*Pilote_)) continue;
      ++recolte.Images;
      recolte.PireAttente = std::max(recolte.PireAttente, depuis.elapsed() - derniere);
      derniere = depuis.elapsed();
      const QImage image = Pilote_->CopieTrame().Entiere();
      recolte.Tailles.insert({image.width(), image.height()});
      recolte.Memoires.insert(image.constBits());
    }
    return recolte;
  }
  bool AttendSignalPerdu(bool perdu, int limite) {
    QElapsedTimer depuis;
    depuis.start();
    while (Pilote_->SignalPerdu() != perdu && depuis.elapsed() < limite) SaisitProchaine(*Pilote_);
    return Pilote_->SignalPerdu() == perdu;
  }
  static int Compte(const char* dossier) {
    return static_cast<int>(
        QDir(QLatin1String(dossier)).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size());
  }

  QTemporaryDir Dossier_;
  MemoireCapture Memoire_{Dossier_.filePath(QStringLiteral("capture.ini"))};
  std::unique_ptr<PiloteGStreamer> Pilote_;
};

}  // namespace vaktor
