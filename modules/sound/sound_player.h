// SPDX-License-Identifier: GPL-3.0-or-later
// Plays one sound file at a time, through GStreamer.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

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
};

/// The real player. Thread of its event loop.
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

 private:
  class Chaine;
  QString Sortie_;
  std::unique_ptr<Chaine> Chaine_;  // of the sound that plays, or of the last one until the next begins
  bool EnCours_ = false;
  QObject Contexte_;
};

}  // namespace vaktor
