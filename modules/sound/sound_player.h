// SPDX-License-Identifier: GPL-3.0-or-later
// Plays one sound file at a time, through GStreamer.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

#include "modules/sound/sound_thread.h"

namespace vaktor {

/// How a sound ended.
enum class FinSon {
  kJoue,            ///< played to its end
  kFichierMauvais,  ///< not there, not readable, or no sound
  kSansAppareil     ///< no device that takes sound
};

/// The port of the sound companion.
class JoueurSon {
 public:
  virtual ~JoueurSon() = default;
  /// Starts the file, native path. `fini` is called once, from the event loop, with what became of it and the words
  /// of the system for a failure. Not while one plays.
  virtual void Joue(const QString& fichier, std::function<void(FinSon fin, const QString& mots)> fini) = 0;
  /// Stops what plays, if anything; its `fini` is not called.
  virtual void Arrete() = 0;
  virtual bool EnCours() const = 0;  ///< something plays
  /// Grows while the device takes sound; stands still when it hangs.
  virtual quint64 Progres() const = 0;
};

/// The real player. Thread of its event loop, which it never holds up: devices are opened and closed on a thread of
/// their own. While one hangs there, the next sound has no device.
class JoueurGStreamer : public JoueurSon {
 public:
  /// `sortie`: GStreamer's description of where the sound goes.
  explicit JoueurGStreamer(const QString& sortie = QStringLiteral("autoaudiosink"));
  ~JoueurGStreamer() override;
  JoueurGStreamer(const JoueurGStreamer&) = delete;
  JoueurGStreamer& operator=(const JoueurGStreamer&) = delete;

  void Joue(const QString& fichier, std::function<void(FinSon fin, const QString& mots)> fini) override;
  void Arrete() override;
  bool EnCours() const override;
  quint64 Progres() const override;

 private:
  class Chaine;
  void Echoue(std::function<void(FinSon fin, const QString& mots)> fini, const QString& mots);
  QString Sortie_;
  FilSon Fil_;
  std::unique_ptr<Chaine> Chaine_;  // of the sound that plays, or of the last one until the next begins
  bool EnCours_ = false;
  QObject Contexte_;
};

}  // namespace vaktor
