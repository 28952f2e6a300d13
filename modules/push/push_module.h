// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of the pushes: when one is made, with which picture, and what the user is told.
#pragma once

#include <QSet>

#include "modules/common/module_program.h"
#include "modules/mail/photo_source.h"
#include "modules/push/push_thread.h"
#include "modules/push/watch_pushes.h"

namespace vaktor {

struct PortsPush {
  QString DossierSac;
  QString DossierVeille;  ///< what the watch has to say of itself
  QString Marque;         ///< of this process, part of each push's name
  QString Autorites;      ///< see ReglagesPush::Autorites
  EtatModule& Etat;       ///< its own status file: what the mails say of themselves must not be wiped out by a push
  std::function<qint64()> Maintenant;  ///< milliseconds since 1970
  std::function<std::unique_ptr<PostePush>(const FacteurPush::Rapporteur& surRapport)> OuvrePoste;
};

/// "Intru" comes with each frame of an intrusion. Its first one makes a push, with the newest photo there is, and as
/// long as it goes on one a minute follows; it is over when none has come for kFinMs. So a push is as early as can be,
/// and no evening is a hundred of them.
class ModulePush : public Module {
 public:
  static constexpr qint64 kFinMs = 10'000;
  static constexpr qint64 kPauseMs = 60'000;
  static constexpr qint64 kPhotoMs = 120'000;  ///< older photos belong to another event

  ModulePush(const ContexteModule& contexte, const PortsPush& ports);

  static constexpr qint32 kRepriseVeille = 60'000;  ///< until messages of the watch that could not be taken are tried

  void PrendReglages(const ReglagesModule& reglages) override;
  void Enregistre(Inscription /*comment*/) override { PrendVeille(); }
  void ExecuteCommande(Commande commande) override;
  void Termine() override { Poste_.reset(); }
  /// Whether what the watch has to say of itself goes by push, since no mail can take it. From the next settings on.
  void FaitLaVeille(bool oui) { FaitVeille_ = oui; }

  /// An address is set: who wants pushes and gives no address for mails wants no mails.
  bool EstVoulu() const { return !Reglages_.Adresse.isEmpty(); }

 private:
  void NoteIntrusion();
  void PrendVeille();
  void SignaleSac(int erreur);
  MessagePush Compose(qint64 maintenant);
  void PrendRapport(const RapportPush& rapport);
  /// Since when one waits, and what the server said, into the status file of the mails, which the main program reads.
  void NoteAttente();

  ContexteModule Contexte_;
  PortsPush Ports_;
  SacPush Sac_;
  PushVeille Veille_;
  bool FaitVeille_ = false;
  std::unique_ptr<Minuterie> TimerVeille_;
  LecteurPhotos Photos_;
  ReglagesPush Reglages_;
  QString Titre_;
  QString DossierPhotos_;
  Langue Parlee_ = Langue::kFrancais;
  qint64 DerniereIntrusion_ = 0;  // 0: none so far
  qint64 DernierPush_ = 0;        // of this intrusion
  int Fait_ = 0;
  QSet<QString> Finis_;               // taken or given up, though the disk may keep their files
  QString MotsServeur_;               // why the last one waits
  std::unique_ptr<PostePush> Poste_;  // last: its reports come to a whole module
};

}  // namespace vaktor
