// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/timeline_words.h"

#include <QLocale>
#include <cstring>

#include "base/photo_name.h"
#include "health/conditions.h"
#include "texts/phrase.h"

namespace vaktor {
namespace {

QString DitHeure(const QDateTime& moment, bool secondes = false) {
  return moment.toLocalTime().toString(secondes ? QStringLiteral("HH:mm:ss") : QStringLiteral("HH:mm"));
}

QString DitNombre(qsizetype nombre, const Phrase& un, const Phrase& plusieurs, Langue langue) {
  return nombre == 1 ? un.Dit(langue) : plusieurs.Dit(langue, QString::number(nombre));
}

QString DitIntrusions(qsizetype nombre, Langue langue) {
  return DitNombre(nombre, {"1 intrusion", "1 intrusion"}, {"%1 intrusions", "%1 intrusions"}, langue);
}

QString DitDeA(const BandeTemps& bande, Langue langue) {
  const bool autreJour = bande.De.toLocalTime().date() != bande.A.toLocalTime().date();
  const QString de = autreJour ? DitMoment(bande.De.toLocalTime(), langue) : DitHeure(bande.De, true);
  if (bande.EnCours) return Phrase{"depuis %1", "since %1"}.Dit(langue, de);
  const QString a = autreJour ? DitMoment(bande.A.toLocalTime(), langue) : DitHeure(bande.A, true);
  return Phrase{"de %1 à %2", "from %1 to %2"}.Dit(langue, de, a);
}

bool Touche(const BandeTemps& bande, const JourVu& jour) { return bande.De < jour.A && bande.A >= jour.De; }

}  // namespace

QString TitreFrise(Langue langue) { return Phrase{"Frise", "Timeline"}.Dit(langue); }
QString MotRegarder(Langue langue) { return Phrase{"Regarder", "Play"}.Dit(langue); }
QString MotEnregistrer(Langue langue) { return Phrase{"Enregistrer", "Save"}.Dit(langue); }
QString MotSupprimer(Langue langue) { return Phrase{"Supprimer", "Erase"}.Dit(langue); }
QString MotFermerFrise(Langue langue) { return Phrase{"Fermer", "Close"}.Dit(langue); }
QString MotAujourdhui(Langue langue) { return Phrase{"Aujourd'hui", "Today"}.Dit(langue); }
QString RaisonSansPhotos(Langue langue) {
  return Phrase{"Choisissez d'abord une intrusion qui a des photos.", "First choose an intrusion that has pictures."}
      .Dit(langue);
}
QString RaisonSuppression(Langue langue) {
  return Phrase{"Une suppression est en cours.", "Pictures are being erased."}.Dit(langue);
}
QString RaisonAujourdhui(Langue langue) {
  return Phrase{"C'est le jour affiché.", "This is the day that is shown."}.Dit(langue);
}
QString MotJourAvant(Langue langue, qsizetype intrusions) {
  return Phrase{"Jour précédent : %1", "Day before: %1"}.Dit(langue, DitIntrusions(intrusions, langue));
}
QString MotJourApres(Langue langue, qsizetype intrusions) {
  return Phrase{"Jour suivant : %1", "Day after: %1"}.Dit(langue, DitIntrusions(intrusions, langue));
}
QString MotListeIntrusions(Langue langue) { return Phrase{"Intrusions du jour", "Intrusions of the day"}.Dit(langue); }
QString MotEnCours(Langue langue) { return Phrase{"en cours", "going on"}.Dit(langue); }
QString MotSansImage(bool illisible, Langue langue) {
  return illisible ? Phrase{"La photo ne peut pas être montrée.", "The picture cannot be shown."}.Dit(langue)
                   : Phrase{"Aucune photo", "No picture"}.Dit(langue);
}
QString MotBande(Langue langue) { return Phrase{"Frise de la journée", "Timeline of the day"}.Dit(langue); }
QString AideBande(Langue langue) {
  return Phrase{
      "Flèches : d'une intrusion à l'autre. + et - : agrandir, réduire. Ctrl et flèches : déplacer. Début : "
      "toute la journée.",
      "Arrows: from one intrusion to the next. + and -: closer, further. Ctrl and arrows: move. Home: the "
      "whole day."}
      .Dit(langue);
}

QString DitJour(const QDate& jour, Langue langue) {
  QString dit = DonneLocale(langue).toString(jour, QStringLiteral("dddd d MMMM yyyy"));
  if (!dit.isEmpty()) dit[0] = dit.at(0).toUpper();
  return dit;
}

QString DitDuree(qint64 millisecondes, Langue langue) {
  const qint64 secondes = (millisecondes + 500) / 1000;
  if (secondes < 60) return QStringLiteral("%1 s").arg(secondes);
  if (secondes < 3600)
    return secondes % 60 == 0 ? QStringLiteral("%1 min").arg(secondes / 60)
                              : QStringLiteral("%1 min %2 s").arg(secondes / 60).arg(secondes % 60);
  const qint64 minutes = secondes / 60;
  if (minutes % 60 == 0) return QStringLiteral("%1 h").arg(minutes / 60);
  return Phrase{"%1 h %2", "%1 h %2 min"}.Dit(langue, QString::number(minutes / 60),
                                              QStringLiteral("%1").arg(minutes % 60, 2, 10, QLatin1Char('0')));
}

QString DitPhotos(qsizetype nombre, Langue langue) {
  if (nombre == 0) return Phrase{"aucune photo", "no picture"}.Dit(langue);
  return DitNombre(nombre, {"1 photo", "1 picture"}, {"%1 photos", "%1 pictures"}, langue);
}

QString DitJournee(const JourVu& jour, Langue langue) {
  const QString intrusions = jour.Intrusions.isEmpty() ? Phrase{"Aucune intrusion", "No intrusion"}.Dit(langue)
                                                       : DitIntrusions(jour.Intrusions.size(), langue);
  const QString veille = jour.VeilleMs < 1000
                             ? Phrase{"alarme non armée", "alarm not armed"}.Dit(langue)
                             : Phrase{"%1 de veille", "watched for %1"}.Dit(langue, DitDuree(jour.VeilleMs, langue));
  return intrusions + QStringLiteral("  \u00b7  ") + veille;
}

QString DitNuitCalme(const JourVu& jour, bool enVeille, Langue langue) {
  if (jour.VeilleMs < 1000) {
    return Phrase{"Aucune intrusion : l'alarme n'était pas armée ce jour-là.",
                  "No intrusion: the alarm was not armed on this day."}
        .Dit(langue);
  }
  const QString duree = DitDuree(jour.VeilleMs, langue);
  if (enVeille)
    return Phrase{"Rien n'a bougé. L'alarme veille depuis %1.", "Nothing has moved. The alarm has watched for %1."}.Dit(
        langue, duree);
  return Phrase{"Rien n'a bougé. L'alarme a veillé pendant %1.", "Nothing moved. The alarm watched for %1."}.Dit(langue,
                                                                                                                 duree);
}

QString DitLecture(Langue langue) { return Phrase{"Lecture du journal...", "Reading the journal..."}.Dit(langue); }
QString DitSansReponse(Langue langue) {
  return Phrase{"Le disque du journal ou des photos ne répond pas encore.",
                "The disk of the journal or of the pictures does not answer yet."}
      .Dit(langue);
}
QString DitJournalPerdu(int erreur, Langue langue) {
  return Phrase{"Le journal ne peut pas être écrit : %1. La surveillance continue.",
                "The journal cannot be written: %1. The watch goes on."}
      .Dit(langue, QString::fromLocal8Bit(std::strerror(erreur)));
}

QString DitIntrusion(const IntrusionVue& vue, Langue langue) {
  QString dit = Phrase{"Intrusion à %1, %2, %3", "Intrusion at %1, %2, %3"}.Dit(
      langue, DitHeure(vue.Debut, true), DitDuree(vue.DureeMs, langue), DitPhotos(vue.Photos.size(), langue));
  const qsizetype parties = vue.Ecrites - vue.Photos.size();
  if (parties > 0 && !vue.EnCours)
    dit += Phrase{" (%1 ne sont plus là)", " (%1 are gone)"}.Dit(langue, QString::number(parties));
  if (vue.Points > 0)
    dit += Phrase{", %1 points au plus", ", %1 points at most"}.Dit(langue, QString::number(vue.Points));
  if (vue.EnCours) dit += Phrase{", en cours", ", going on"}.Dit(langue);
  return dit;
}

QString DitCondition(const BandeCondition& bande, Langue langue) {
  return PhraseQuoi(bande.Quoi, bande.Detail, langue) + u'\n' + DitDeA(bande, langue);
}
QString DitArmee(const BandeTemps& bande, Langue langue) {
  return Phrase{"Alarme armée %1", "Alarm armed %1"}.Dit(langue, DitDeA(bande, langue));
}
QString DitMarque(const MarqueTemps& marque, Langue langue) {
  const QString heure = DitHeure(marque.Quand, true);
  switch (marque.Quoi) {
    case Fait::kCourriel:
      return Phrase{"%1 : courriel pris par le serveur", "%1: the server has taken a mail"}.Dit(langue, heure);
    case Fait::kPageRetablie:
      return Phrase{"%1 : la page en direct est de nouveau à jour", "%1: the live page is fresh again"}.Dit(langue,
                                                                                                            heure);
    case Fait::kDemarre:
      return Phrase{"%1 : Vaktor est lancé", "%1: Vaktor was started"}.Dit(langue, heure);
    case Fait::kFini:
      return Phrase{"%1 : Vaktor est fermé", "%1: Vaktor was closed"}.Dit(langue, heure);
    default:
      return {};
  }
}

QString DitBande(const JourVu& jour, const Chronique& chronique, Langue langue) {
  QStringList lignes{DitJour(jour.Jour, langue), DitJournee(jour, langue)};
  for (const qsizetype i : jour.Intrusions) lignes += DitIntrusion(chronique.Intrusions.at(i), langue);
  for (const BandeTemps& bande : chronique.Armees)
    if (Touche(bande, jour)) lignes += DitArmee(bande, langue);
  for (const BandeCondition& bande : chronique.Conditions)
    if (Touche(bande, jour)) lignes += DitCondition(bande, langue);
  return lignes.join(u'\n');
}

QString QuestionSupprimer(const IntrusionVue& vue, Langue langue) {
  return Phrase{"Les %1 photos de cette intrusion (%2, %3) vont être supprimées. Etes vous sur ?",
                "The %1 pictures of this intrusion (%2, %3) will be erased. Are you sure?"}
      .Dit(langue, QString::number(vue.Photos.size()), DitJour(vue.Debut.toLocalTime().date(), langue),
           DitHeure(vue.Debut, true));
}

QString MotLecture(bool joue, Langue langue) {
  return joue ? Phrase{"Pause", "Pause"}.Dit(langue) : Phrase{"Lecture", "Play"}.Dit(langue);
}
QString MotCadre(Langue langue) { return Phrase{"Cadre du mouvement", "Box of the movement"}.Dit(langue); }
QString MotVitesse(double vitesse) {
  return vitesse < 1 ? QStringLiteral("\u00bd \u00d7") : QStringLiteral("%1 \u00d7").arg(vitesse);
}
QString AideVitesse(Langue langue) { return Phrase{"Vitesse", "Speed"}.Dit(langue); }
QString MotPosition(Langue langue) { return Phrase{"Photo montrée", "Picture shown"}.Dit(langue); }
QString DitPosition(qsizetype index, qsizetype nombre, const QString& photo, Langue langue) {
  const auto lu = LitNomPhoto(photo);
  const QString place =
      Phrase{"Photo %1 sur %2", "Picture %1 of %2"}.Dit(langue, QString::number(index + 1), QString::number(nombre));
  return lu ? lu->Heure.toString(QStringLiteral("HH:mm:ss")) + QStringLiteral("  \u00b7  ") + place : place;
}

QString NomFilm(const IntrusionVue& vue) {
  return QStringLiteral("Vaktor ") + vue.Debut.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"));
}
QString FiltreFilm(FormatFilm format, Langue langue) {
  return format == FormatFilm::kMatroska
             ? Phrase{"Matroska, les photos telles quelles (*.mkv)", "Matroska, the pictures as they are (*.mkv)"}.Dit(
                   langue)
             : Phrase{"MP4, plus petit (*.mp4)", "MP4, smaller (*.mp4)"}.Dit(langue);
}
QString MotFilmEnCours(Langue langue) { return Phrase{"Enregistrement du film", "Saving the film"}.Dit(langue); }
QString MotAnnuler(Langue langue) { return Phrase{"Annuler", "Cancel"}.Dit(langue); }

QString DitFilm(const FilmFait& fait, const QString& sortie, Langue langue) {
  switch (fait.Etat) {
    case EtatFilm::kAnnule:
      return {};
    case EtatFilm::kFait:
      if (fait.Manquantes == 0) return {};
      return Phrase{
          "Le film est enregistré, sans %1 photo(s) qui ne sont plus là, sont endommagées ou d'une autre "
          "taille :\n%2",
          "The film is saved, without %1 picture(s) that are gone, damaged or of another size:\n%2"}
          .Dit(langue, QString::number(fait.Manquantes), sortie);
    case EtatFilm::kSansPhoto:
      return Phrase{"Le film n'est pas enregistré : aucune de ses photos ne peut être lue.",
                    "The film is not saved: none of its pictures can be read."}
          .Dit(langue);
    case EtatFilm::kDisque:
      return Phrase{"Le film n'est pas enregistré, et rien n'en reste : %1.\n%2",
                    "The film is not saved, and nothing of it is left: %1.\n%2"}
          .Dit(langue, QString::fromLocal8Bit(std::strerror(fait.Erreur)), sortie);
    case EtatFilm::kSansMoyens:
      break;
  }
  return Phrase{"Le film n'est pas enregistré, et rien n'en reste : cet ordinateur n'a pas pu le faire.\n%1",
                "The film is not saved, and nothing of it is left: this computer could not make it.\n%1"}
      .Dit(langue, fait.Mots);
}

}  // namespace vaktor
