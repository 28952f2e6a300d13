// SPDX-License-Identifier: GPL-3.0-or-later
// The mail companion's rules: when a mail is made, with which photos, and what the user is told.
#pragma once

#include <QMap>
#include <QStringList>

#include "modules/common/module_program.h"
#include "modules/mail/mail_maker.h"
#include "modules/mail/outbox.h"
#include "modules/mail/photo_source.h"
#include "modules/mail/sending_thread.h"
#include "modules/mail/watch_mails.h"

namespace vaktor {

struct PortsMail {
  QString DossierSac;
  QString DossierVeille;               ///< what the watch has to say of itself
  QString Marque;                      ///< of this process, part of each mail's name
  QString Autorites;                   ///< see ReglagesEnvoi::FichierAutorites
  std::function<qint64()> Maintenant;  ///< milliseconds since 1970
  std::function<std::unique_ptr<Poste>(const Facteur::Rapporteur& surRapport)> OuvrePoste;
};

/// "Intru" comes with every frame of an intrusion, thirty times a second. The first one starts a row of `nombremail`
/// mails, one after the other; then there is none for kPauseEntreSeries, whatever is reported.
///
/// What a mail is made of is on disk from the moment of its "Intru". It then waits for the photos that come, since an
/// intrusion begins with a single one: until it has its number, for five seconds, or until nothing was reported for
/// one, whichever is first. Only then is it composed and may leave. A mail that the disk does not take leaves from
/// memory, with its words alone.
///
/// What the watch has to say of itself goes its own way: a mail for each message, whatever row or pause there is.
class ModuleMail : public Module {
 public:
  static constexpr qint32 kRecolte = 200;           ///< milliseconds between two looks for more photos
  static constexpr quint32 kOuvertMax = 5000;       ///< milliseconds in which a mail gathers photos, at the most
  static constexpr quint32 kCalme = 1000;           ///< milliseconds without a report that end it sooner
  static constexpr int kRecoltesVives = 5;          ///< looks, of which each looks through the folder
  static constexpr qint32 kRepriseVeille = 60'000;  ///< until messages of the watch that could not be taken are tried
  static constexpr qint32 kRegardAttente = 10'000;  ///< between two looks for what waits
  static constexpr qint32 kFinMax = 15'000;         ///< milliseconds that a mail under way is given at our end

  ModuleMail(const ContexteModule& contexte, const PortsMail& ports);

  void PrendReglages(const ReglagesModule& reglages) override;
  void Enregistre(Inscription comment) override;
  void ExecuteCommande(Commande commande) override;
  void Termine() override;

 private:
  void CommenceSerie();
  void CommenceCourriel();
  RecetteCourriel DonneRecette() const;
  void Recolte();
  void AcheveCourriel();
  void PublieCourriel();
  void AcheveSerie();
  bool EstComble();
  quint32 DonneCompteur() const { return static_cast<quint32>(Contexte_.Temps.CompteTics()); }
  void ConfieSansPhotos();
  void Confie(const CourrielEnAttente& courriel, const QByteArray& message);
  void PrendVeille();
  void RegardeAttente();
  /// "waiting_since" of the status file: when the oldest mail that waits was made.
  void SuitAttente();
  void PrendRapport(const RapportEnvoi& rapport);
  void Signale(const ResultatEnvoi& resultat);
  void SignaleDisque(int erreur);
  void SignalePerte(const QString& nom);

  ContexteModule Contexte_;
  PortsMail Ports_;
  SacPostal Sac_;
  LecteurPhotos Photos_;
  BrouillonsEnRetard Retard_;
  CourriersVeille Veille_;  // before the post: see there
  ReglagesCourriel Reglages_;
  int ResteDeLaSerie_ = 0;  // mails of this row that are still to be made, with the one in the making
  int Fait_ = 0;            // mails made since the start, for their names
  qint64 DerniereIntrusion_ = 0;
  CourrielEnAttente EnCours_;  // the mail in the making
  int Recoltes_ = 0;
  quint32 Ouvert_ = 0;               // counter of the clock: when the mail in the making was begun,
  quint32 DernierRapport_ = 0;       // and when something was reported last, or it was begun
  QStringList PrisDeLaSerie_;        // photos that mails of this row have
  QMap<QString, qint64> EnMemoire_;  // mails that the disk did not take, with the time at which each was made
  bool ReglagesRecus_ = false;
  bool EnFin_ = false;
  bool SansAdresse_ = false;  // the row could not be made; the next settings may help
  std::unique_ptr<Minuterie> TimerRecolte_;
  std::unique_ptr<Minuterie> TimerPause_;
  qint64 Refuse_ = 0;  // when a server refused a mail for good, and none has been taken since; 0: not so
  std::unique_ptr<Minuterie> TimerVeille_;
  std::unique_ptr<Minuterie> TimerAttente_;
  std::unique_ptr<Minuterie> TimerFin_;
  std::unique_ptr<Poste> Poste_;  // last: its reports come to a whole module
};

}  // namespace vaktor
