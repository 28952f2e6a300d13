// SPDX-License-Identifier: GPL-3.0-or-later
// Words of the timeline and of its player.
#pragma once

#include <QString>

#include "journal/day_view.h"
#include "journal/ports/film_writer.h"
#include "texts/language.h"

namespace vaktor {

QString TitreFrise(Langue langue);
QString MotRegarder(Langue langue);
QString MotEnregistrer(Langue langue);
QString MotSupprimer(Langue langue);
QString MotFermerFrise(Langue langue);
QString MotAujourdhui(Langue langue);
QString MotJourAvant(Langue langue, qsizetype intrusions);
QString MotJourApres(Langue langue, qsizetype intrusions);
/// Why a button is off.
QString RaisonSansPhotos(Langue langue);
QString RaisonSuppression(Langue langue);
QString RaisonAujourdhui(Langue langue);
QString MotListeIntrusions(Langue langue);
QString MotEnCours(Langue langue);                    ///< an intrusion goes on
QString MotSansImage(bool illisible, Langue langue);  ///< on a card without a picture
QString MotBande(Langue langue);                      ///< the strip, for who does not see it
QString AideBande(Langue langue);

/// "Sunday 22 November 2026".
QString DitJour(const QDate& jour, Langue langue);
/// "8 h 12 min", "14 s", "1 min 5 s".
QString DitDuree(qint64 millisecondes, Langue langue);
QString DitPhotos(qsizetype nombre, Langue langue);
/// What happened that day, one line: how many intrusions, how long it watched.
QString DitJournee(const JourVu& jour, Langue langue);
/// In the place of the cards of a day without one.
QString DitNuitCalme(const JourVu& jour, bool enVeille, Langue langue);
QString DitLecture(Langue langue);      ///< the journal is being read
QString DitSansReponse(Langue langue);  ///< its disk lets everybody wait
QString DitJournalPerdu(int erreur, Langue langue);
QString DitIntrusion(const IntrusionVue& vue, Langue langue);      ///< tip, and for who hears the card
QString DitCondition(const BandeCondition& bande, Langue langue);  ///< tip
QString DitArmee(const BandeTemps& bande, Langue langue);          ///< tip
QString DitMarque(const MarqueTemps& marque, Langue langue);       ///< tip; empty for what has none
/// The strip in words: the day, its intrusions, when armed, what was wrong.
QString DitBande(const JourVu& jour, const Chronique& chronique, Langue langue);

QString QuestionSupprimer(const IntrusionVue& vue, Langue langue);

QString MotLecture(bool joue, Langue langue);
QString MotCadre(Langue langue);
QString MotVitesse(double vitesse);
QString AideVitesse(Langue langue);
QString MotPosition(Langue langue);
QString DitPosition(qsizetype index, qsizetype nombre, const QString& photo, Langue langue);
QString NomFilm(const IntrusionVue& vue);  ///< without an ending
QString FiltreFilm(FormatFilm format, Langue langue);
QString MotFilmEnCours(Langue langue);
QString MotAnnuler(Langue langue);
/// What became of a film; empty when there is nothing to say.
QString DitFilm(const FilmFait& fait, const QString& sortie, Langue langue);

}  // namespace vaktor
