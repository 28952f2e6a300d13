// SPDX-License-Identifier: GPL-3.0-or-later
// The end of the channel that talks: messages to handles, in order, without ever waiting for the other side.
#pragma once

#include <QBasicTimer>
#include <QByteArray>
#include <QList>
#include <QObject>
#include <functional>
#include <map>
#include <memory>

#include "companions/contract/command_words.h"
#include "platform/channel/channel_folder.h"
#include "platform/channel/sending_socket.h"

namespace vaktor {

/// Thread of its event loop. What a box does not take waits here and is offered again every kReprise milliseconds. A
/// handle that nobody answers to swallows what was meant for it.
class EmetteurLocal : public QObject {
 public:
  static constexpr int kReprise = 20;
  static constexpr int kMotsMax = 256;      ///< words that wait for one handle; the newest is dropped
  static constexpr int kCommandesMax = 32;  ///< commands that wait for one handle; the oldest of no weight is dropped

  /// `maintenant` counts milliseconds and never goes back.
  explicit EmetteurLocal(const DossierCanal& dossier, std::function<qint64()> maintenant = CompteMonotone);
  ~EmetteurLocal() override;
  EmetteurLocal(const EmetteurLocal&) = delete;
  EmetteurLocal& operator=(const EmetteurLocal&) = delete;

  /// A word: it goes as soon as the box has room, behind those before it. Never blocks, never fails. A message above
  /// kMessageMax bytes is dropped, and one for which there is no memory.
  void Poste(qint32 poignee, const QByteArray& message) noexcept { Poste(poignee, message, Genre::kMot); }
  /// A command: it goes when the one before it was taken, so that the kernel never keeps old commands for a reader that
  /// stands still. One that is equal to the last that waits is that one, posted now.
  void PosteCommande(qint32 poignee, const QByteArray& message, Tenue tenue) noexcept {
    Poste(poignee, message, static_cast<Genre>(tenue));
  }
  /// Messages that wait here for this handle.
  qsizetype EnAttente(qint32 poignee) const;
  /// True while something waits, here or in the box of the handle.
  bool Attend(qint32 poignee);
  /// Whether the handle's box has taken anything since this was asked last.
  bool APris(qint32 poignee);
  /// Drops what waits for this handle.
  void Oublie(qint32 poignee) noexcept { Destinataires_.erase(poignee); }

  static qint64 CompteMonotone();

 protected:
  void timerEvent(QTimerEvent* evenement) override;

 private:
  enum class Genre {
    kInstant = static_cast<int>(Tenue::kInstant),
    kOrdinaire = static_cast<int>(Tenue::kOrdinaire),
    kGardee = static_cast<int>(Tenue::kGardee),
    kDerniere = static_cast<int>(Tenue::kDerniere),
    kMot
  };
  struct Attendu {
    QByteArray Message;
    Genre Quoi;
    qint64 Poste;
  };
  struct Destinataire {
    explicit Destinataire(const DossierCanal& dossier, qint32 poignee) : Socket(dossier.DonneAdresse(poignee)) {}
    SocketEmission Socket;
    QList<Attendu> File;
  };
  using Issue = SocketEmission::Issue;

  void Poste(qint32 poignee, const QByteArray& message, Genre genre) noexcept;
  /// Throws for want of memory; what waits already stays as it was.
  void PosteOuEchoue(qint32 poignee, const QByteArray& message, Genre genre);
  Destinataire& DonneDestinataire(qint32 poignee);
  static bool PeutPartir(Destinataire& vers, Genre genre);
  void Range(Destinataire& chez, const QByteArray& message, Genre genre) const;
  static void GardeSeules(QList<Attendu>& file);
  static void Borne(QList<Attendu>& file);
  void RetirePerimes(QList<Attendu>& file) const;
  /// False when nobody is there.
  bool Offre(Destinataire& vers);

  DossierCanal Dossier_;
  std::function<qint64()> Maintenant_;
  std::map<qint32, std::unique_ptr<Destinataire>> Destinataires_;  // those spoken to, which are few
  QBasicTimer Reprise_;
};

}  // namespace vaktor
