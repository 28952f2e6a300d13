// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/rehearsal.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <utility>

#include "base/photo_format.h"
#include "platform/base/bounded_log.h"

namespace vaktor {

namespace {

constexpr int kPremierRefus = 400;
constexpr int kSucces = 200;  // RFC 959: 2yz, the command is done; 1yz, it has begun
constexpr int kSuite = 300;

Parametres LitDemande(const QJsonObject& demande) {
  Parametres p;
  const auto texte = [&](const char* cle) { return demande.value(QLatin1String(cle)).toString(); };
  p.AdresseFtp = texte("ftp");
  p.UtilisateurFtp = texte("user");
  p.MotDePasseFtp = texte("pass");
  p.RepertoireFtp = texte("racine");
  p.LangueCourante = demande.value(QLatin1String("langue")).toInt(0);
  return p;
}

// Steps that say nothing to anybody are left out: a trial makes some forty lines otherwise. Refused, they are told.
bool EstMuet(const QByteArray& verbe) {
  for (const char* muet : {"PWD", "SYST", "FEAT", "TYPE", "PBSZ", "PROT", "NOOP"})
    if (verbe == muet) return true;
  return false;
}

}  // namespace

RepetitionFtp::RepetitionFtp(PortsRepetition ports)
    : Ports_(std::move(ports)),
      Nom_(QStringLiteral("vaktor-try-") + Ports_.Marque + kFinPhoto),
      Provisoire_(QStringLiteral("vaktor-try-") + Ports_.Marque + QStringLiteral(".part")) {}

FinRepetition RepetitionFtp::Joue(const QByteArray& demande) {
  const QJsonDocument document = QJsonDocument::fromJson(demande);
  if (!document.isObject()) {
    Ports_.Ecrit(QStringLiteral("JSON ?"));
    return FinRepetition::kDemandeIllisible;
  }
  const Parametres valeurs = LitDemande(document.object());
  const AccesLu lu = LitAcces(valeurs);
  Acces_ = lu.Acces;
  if (Ports_.Rappelle) Ports_.Rappelle(Acces_);
  CauseEssai cause = DonneCauseManque(lu.Manque);
  if (lu.Manque == ManqueAcces::kRien) {
    Dis(QStringLiteral("%1:%2").arg(Acces_.Hote, QString::number(Acces_.Port)));
    cause = Essaie();
  }
  const QStringList restes = EffaceTout();
  const bool reussi = cause == CauseEssai::kReussi;
  if (reussi && !restes.isEmpty()) cause = CauseEssai::kReste;
  Acces_.Dossier = Nettoie(Acces_.Dossier);  // in a sentence of ours only this is not our own
  Ports_.Ecrit(ComposePhraseEssai(cause, LangueParlee(valeurs.LangueCourante), {Acces_, restes}));
  return reussi ? FinRepetition::kAccepte : FinRepetition::kRefuse;
}

CauseEssai RepetitionFtp::Essaie() {
  const ResultatFtp connexion = Execute(GenreTravail::kConnexion, QString());
  if (connexion.Issue != IssueFtp::kReussi) return Echoue(connexion);
  Ports_.SurFichier(true);
  // Twice: the live image is replaced all the time, and some servers take the first one only.
  for (int i = 0; i < 2; ++i) {
    const ResultatFtp envoi = Execute(GenreTravail::kPage, Nom_);
    if (envoi.Issue != IssueFtp::kReussi) return Echoue(envoi);
  }
  // Not every server knows sizes. One that does may have kept less than it has acknowledged: a disk that is full.
  Execute(GenreTravail::kTaille, Nom_);
  if (Taille_ < 0 || Taille_ == kTailleImage) return CauseEssai::kReussi;
  Muette_ = true;
  return CauseEssai::kTaille;
}

ResultatFtp RepetitionFtp::Execute(GenreTravail genre, const QString& nom) {
  TravailFtp travail;
  travail.Genre = genre;
  travail.Acces = Acces_;
  travail.Nom = nom;
  travail.Provisoire = Provisoire_;
  if (genre == GenreTravail::kPage) travail.Contenu = CreeImageEssai();
  return Ports_.Execute(travail);
}

CauseEssai RepetitionFtp::Echoue(const ResultatFtp& resultat) {
  Muette_ = true;
  if (Ports_.EstInterrompue()) return CauseEssai::kInterrompu;
  // What a server said has been told as the step that it answered; what the system said has not.
  if (!resultat.Mots.isEmpty() && !Derniere_.endsWith(resultat.Mots)) Dis(resultat.Mots);
  return DonneCauseEchec(resultat, Refuse_, Salue_);
}

QStringList RepetitionFtp::EffaceTout() {
  QStringList restes;
  if (!Efface(Provisoire_, TraceProvisoire_)) restes.append(Provisoire_);
  if (!Efface(Nom_, TraceNom_)) restes.append(Nom_);
  Ports_.SurFichier(false);
  return restes;
}

bool RepetitionFtp::Efface(const QString& nom, Trace& trace) {
  if (trace == Trace::kAucune) return true;
  Refuse_.clear();
  Cible_ = &trace;
  const ResultatFtp resultat = Execute(GenreTravail::kEfface, nom);
  if (resultat.Issue == IssueFtp::kReussi) trace = Trace::kAucune;
  // A file that only may be there, and of which the server says that it cannot be deleted, is not there as a rule:
  // servers throw away themselves what they could not finish.
  return trace == Trace::kAucune || (trace == Trace::kPossible && Refuse_ == "DELE");
}

void RepetitionFtp::Entend(const QByteArray& verbe, const QByteArray& ligne) {
  const int code = ligne.left(3).toInt();
  const bool refus = code >= kPremierRefus;
  const bool fait = code >= kSucces && code < kSuite;
  if (verbe.isEmpty() && code == 220) Salue_ = true;
  if (refus) Refuse_ = verbe;
  if (verbe == "STOR" && !refus) TraceProvisoire_ = fait ? Trace::kSure : Trace::kPossible;
  if (verbe == "DELE" && fait) *Cible_ = Trace::kAucune;
  if (verbe == "RNTO" && fait) {
    TraceProvisoire_ = Trace::kAucune;
    TraceNom_ = Trace::kSure;
  }
  if (verbe == "SIZE" && code == 213) Taille_ = ligne.mid(4).trimmed().toLongLong();
  // Of an answer in several lines the last one counts, unless the others say why not (RFC 959, 4.2).
  const bool derniere = code == 0 || ligne.size() < 4 || ligne[3] != '-';
  if (Muette_ && !(fait && verbe == "DELE")) return;
  if (!refus && (!derniere || EstMuet(verbe))) return;
  const QString mots = QString::fromUtf8(ligne);
  Dis(verbe.isEmpty() ? mots : QString::fromLatin1(verbe) + QStringLiteral(": ") + mots);
}

void RepetitionFtp::Dis(const QString& ligne) {
  if (ligne == Derniere_) return;  // both forms of one command are refused alike
  Derniere_ = ligne;
  Ports_.Ecrit(Nettoie(ligne));
}

QString RepetitionFtp::Nettoie(const QString& ligne) const { return NettoieLigne(ligne, {Acces_.MotDePasse}); }

}  // namespace vaktor
