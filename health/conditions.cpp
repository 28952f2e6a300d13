// SPDX-License-Identifier: GPL-3.0-or-later
#include "health/conditions.h"

#include <QLocale>
#include <array>

#include "engine/signal_loss.h"
#include "texts/phrase.h"

namespace vaktor {

namespace {

struct LigneCondition {
  Condition Quoi;
  Gravite Niveau;
  qint32 DureeMs;
  const char* Mot;
  Phrase Constat;  // without the full stop: a detail may follow
  Phrase Faire;
};

// What could not be written or sent is lost, or will be, at the first report. A companion that died is started again
// after a second: one that is not back by then counts.
constexpr qint32 kAusitot = 0;
constexpr qint32 kDetectionMs = 5000;
constexpr qint32 kCompagnonMs = 1000;

constexpr std::array<LigneCondition, kNombreConditions> kTable = {{
    {Condition::kSignalPerdu,
     Gravite::kAveugle,
     PerteSignal::kComptee,
     "signal-lost",
     {"La caméra ne donne plus d'images", "The camera gives no new pictures"},
     {"Vérifiez que la caméra est branchée et allumée et, pour une caméra du réseau, que le réseau marche. Vaktor "
      "réessaie de lui-même.",
      "See that the camera is plugged in and switched on and, for a network camera, that the network works. Vaktor "
      "keeps trying by itself."}},
    {Condition::kDetectionArretee,
     Gravite::kAveugle,
     kDetectionMs,
     "detection-stopped",
     {"Les images ne sont plus comparées : aucun mouvement n'est vu",
      "The pictures are not compared: no movement is seen"},
     {"Arrêtez la caméra et remettez-la en marche. Si cela ne suffit pas, fermez Vaktor et relancez-le.",
      "Switch the camera off and on again. If that does not help, close Vaktor and start it again."}},
    {Condition::kPhotosImpossibles,
     Gravite::kBoiteuse,
     kAusitot,
     "photos-not-written",
     {"Les photos ne peuvent pas être enregistrées", "Photos cannot be saved"},
     {"Vérifiez que le dossier des photos existe, que son disque est branché et qu'il y reste de la place. Le son et "
      "les "
      "courriels de l'alarme partent quand même.",
      "See that the photo folder is there, that its disk is connected and that there is room on it. Sound and mails of "
      "the alarm go out all the same."}},
    {Condition::kLimitePhotos,
     Gravite::kBoiteuse,
     kAusitot,
     "photo-limit",
     {"Le nombre maximum de photos est atteint : les suivantes ne sont pas gardées",
      "The maximum number of photos is reached: no more are kept"},
     {"Ouvrez la galerie (bouton Photo) et augmentez « Photos Max », ou fermez Vaktor et relancez-le.",
      "Open the gallery (button \"Pitures\") and raise \"Nbr Picture Max\", or close Vaktor and start it again."}},
    {Condition::kPeuDePlace,
     Gravite::kAvis,
     kAusitot,
     "little-space",
     {"Il reste moins de 500 Mo là où vont les photos", "There are less than 500 MB left where the photos go"},
     {"Faites de la place sur ce disque, ou choisissez un autre dossier dans la galerie.",
      "Make room on this disk, or choose another folder in the gallery."}},
    {Condition::kReglagesNonSauves,
     Gravite::kBoiteuse,
     kAusitot,
     "settings-not-saved",
     {"Les réglages ne peuvent pas être enregistrés", "The settings cannot be saved"},
     {"Faites de la place sur le disque et vérifiez que le fichier des réglages peut être écrit. Vaktor réessaie de "
      "lui-même ; d'ici là vos changements sont perdus à la fermeture, et l'envoi des courriels et de la page ne les "
      "connaît pas.",
      "Make room on the disk and see that the file of the settings can be written. Vaktor keeps trying by itself; "
      "until "
      "then your changes are lost when it closes, and mails and live page do not know of them."}},
    {Condition::kCompagnonFtp,
     Gravite::kBoiteuse,
     kCompagnonMs,
     "ftp-companion",
     {"Le programme qui envoie la page en direct (VAKTORftp) ne marche pas",
      "The program that sends the live page (VAKTORftp) does not work"},
     {"Vaktor le relance de lui-même. Si cela dure, fermez Vaktor et relancez-le.",
      "Vaktor starts it again by itself. If this lasts, close Vaktor and start it again."}},
    {Condition::kCompagnonMail,
     Gravite::kBoiteuse,
     kCompagnonMs,
     "mail-companion",
     {"Le programme qui envoie les courriels (VAKTORmail) ne marche pas",
      "The program that sends the mails (VAKTORmail) does not work"},
     {"Vaktor le relance de lui-même. Si cela dure, fermez Vaktor et relancez-le.",
      "Vaktor starts it again by itself. If this lasts, close Vaktor and start it again."}},
    {Condition::kCompagnonSon,
     Gravite::kBoiteuse,
     kCompagnonMs,
     "sound-companion",
     {"Le programme qui joue le son de l'alarme (VAKTORsound) ne marche pas",
      "The program that plays the alarm sound (VAKTORsound) does not work"},
     {"Vaktor le relance de lui-même. Si cela dure, fermez Vaktor et relancez-le.",
      "Vaktor starts it again by itself. If this lasts, close Vaktor and start it again."}},
    {Condition::kCasiersPerdus,
     Gravite::kBoiteuse,
     kAusitot,
     "another-copy",
     {"Une autre copie de Vaktor a été lancée : courriels, son et page n'obéissent plus à celle-ci",
      "Another copy of Vaktor was started: mails, sound and live page do not obey this one any more"},
     {"Fermez les deux copies, puis relancez Vaktor une seule fois.", "Close both copies, then start Vaktor once."}},
    {Condition::kCasiersNonEcrits,
     Gravite::kBoiteuse,
     kAusitot,
     "inboxes-not-written",
     {"Vaktor ne peut pas écrire dans les réglages où les programmes du courriel, du son et de la page le trouvent",
      "Vaktor cannot write into the settings where the programs of mails, sound and live page find it"},
     {"Faites de la place sur le disque et vérifiez que le fichier des réglages peut être écrit. Vaktor réessaie de "
      "lui-même ; d'ici là un de ces programmes qui s'arrête ne revient pas.",
      "Make room on the disk and see that the file of the settings can be written. Vaktor keeps trying by itself; "
      "until "
      "then one of these programs that ends does not come back."}},
    {Condition::kCourrielsEnAttente,
     Gravite::kBoiteuse,
     kAusitot,
     "mails-wait",
     {"Des courriels attendent depuis plus de cinq minutes", "Mails have been waiting for more than five minutes"},
     {"Vérifiez la connexion à Internet et les réglages du serveur (page eMail, bouton Avancé). Les courriels "
      "partiront "
      "dès que le serveur les prendra.",
      "Check the connection to the internet and the settings of the server (page eMail, button More). The mails leave "
      "as "
      "soon as the server takes them."}},
    {Condition::kPageAncienne,
     Gravite::kBoiteuse,
     kAusitot,
     "page-old",
     {"La page en direct montre une image ancienne", "The live page shows an old picture"},
     {"Vérifiez la connexion à Internet et les réglages de la page FTP.",
      "Check the connection to the internet and the settings of the page FTP."}},
    {Condition::kEnvoisInconnus,
     Gravite::kAvis,
     kAusitot,
     "sending-unknown",
     {"On ne sait pas si les courriels ou la page en direct partent : un programme ne donne plus de nouvelles",
      "Whether mails or the live page get through is not known: a program gives no news of its work"},
     {"Faites de la place sur le disque de votre dossier personnel et vérifiez que Vaktor peut y écrire. En attendant, "
      "regardez vous-même si les courriels et la page arrivent.",
      "Make room on the disk of your home folder and see that Vaktor can write there. Until then, see for yourself "
      "whether mails and page arrive."}},
    {Condition::kVeillePossible,
     Gravite::kAvis,
     kAusitot,
     "sleep-possible",
     {"L'ordinateur peut se mettre en veille pendant que la caméra marche",
      "The computer may go to sleep while the camera runs"},
     {"Désactivez la mise en veille automatique dans les réglages d'énergie de l'ordinateur.",
      "Switch off automatic sleep in the power settings of the computer."}},
    {Condition::kInterruption,
     Gravite::kAvis,
     kAusitot,
     "interruption",
     {"L'ordinateur s'est mis en veille, ou son heure a changé", "The computer slept, or its clock was changed"},
     {"Pendant la veille rien n'a été vu. Vérifiez que la mise en veille automatique est désactivée.",
      "Nothing was seen while it slept. See that automatic sleep is switched off."}},
    {Condition::kCameraAttendue,
     Gravite::kAveugle,
     PerteSignal::kComptee,
     "camera-awaited",
     {"Vaktor attend sa caméra pour commencer la surveillance", "Vaktor waits for its camera to begin the watch"},
     {"Vaktor réessaie de lui-même, et commencera dès que la caméra donnera une image. Pour en choisir une autre, "
      "cliquez sur Caméra on.",
      "Vaktor keeps trying by itself, and begins as soon as the camera gives a picture. To choose another one, click "
      "on "
      "Camera on."}},
    {Condition::kAutreCamera,
     Gravite::kAvis,
     kAusitot,
     "another-camera",
     {"La caméra choisie n'est pas branchée : Vaktor a pris la seule qui l'est",
      "The camera that was chosen is not plugged in: Vaktor took the only one that is"},
     {"Vérifiez qu'elle regarde au bon endroit. Pour revenir à l'autre, branchez-la, puis arrêtez la caméra et "
      "remettez-la en marche.",
      "See that it looks at the right place. To go back to the other one, plug it in, then switch the camera off and "
      "on "
      "again."}},
    {Condition::kPushEnAttente,
     Gravite::kBoiteuse,
     kAusitot,
     "pushes-wait",
     {"Des push attendent depuis plus de cinq minutes", "Pushes have been waiting for more than five minutes"},
     {"Vérifiez la connexion à Internet, et essayez le push (page eMail, bouton Avancé). Les push partiront dès que le "
      "serveur les prendra.",
      "Check the connection to the internet, and try the push (page eMail, button More). The pushes leave as soon as "
      "the server takes them."}},
    {Condition::kImageFigee,
     Gravite::kAveugle,
     kAusitot,
     "picture-frozen",
     {"L'image de la caméra n'a pas changé d'un seul point depuis plus de cinq minutes",
      "The camera's picture has not changed by a single pixel for more than five minutes"},
     {"La caméra est peut-être figée : arrêtez-la et remettez-la en marche, débranchez-la et rebranchez-la, ou coupez "
      "son courant un instant. Si elle montre une image fixe ou un écran, c'est normal. Ceci finit de soi-même dès que "
      "l'image change.",
      "The camera may be frozen: switch it off and on again, unplug it and plug it in, or cut its power for a moment. "
      "If it shows a still picture or a screen this is as it should be. It ends by itself as soon as the picture "
      "changes."}},
    // A room without light is no fault, and nobody is to be woken by a mail each night: a sign, and no more.
    {Condition::kImageNoire,
     Gravite::kAvis,
     kAusitot,
     "picture-black",
     {"L'image est noire, et n'a pas changé d'un seul point depuis plus de cinq minutes",
      "The picture is black and has not changed by a single pixel for more than five minutes"},
     {"Vérifiez que l'objectif n'est pas couvert. S'il fait nuit, la caméra ne voit que ce qui apporte de la lumière : "
      "laissez une lampe allumée.",
      "See that the lens is not covered. If it is night, the camera sees only what brings light with it: leave a lamp "
      "on."}},
    {Condition::kPageCoupee,
     Gravite::kBoiteuse,
     kAusitot,
     "page-off",
     {"La page en direct marchait, et une erreur l'a arrêtée", "The live page ran, and an error has switched it off"},
     {"Corrigez ce qui est écrit en rouge sur la page FTP et essayez (bouton Essayer), puis cliquez sur Surveillance.",
      "Correct what is written in red on the page FTP and try it (button Try), then click on Live Cam."}},
    {Condition::kReglagesAbimes,
     Gravite::kBoiteuse,
     kAusitot,
     "settings-damaged",
     {"Le fichier des réglages était abîmé : ce qui en manque a repris sa valeur de départ",
      "The file of the settings was damaged: what is missing of it has gone back to its start value"},
     {"Regardez les réglages et remettez-les comme ils étaient.", "Look at the settings and set them as they were."}},
    {Condition::kDossierRemplace,
     Gravite::kAvis,
     kAusitot,
     "photo-folder-replaced",
     {"Le dossier des photos n'existait plus au démarrage : un autre l'a remplacé",
      "The photo folder was not there at the start: another one has taken its place"},
     {"Pour y revenir, branchez le disque où il se trouve, puis choisissez ce dossier dans la galerie.",
      "To go back to it, connect the disk where it lies, then choose that folder in the gallery."}},
    {Condition::kSonMuet,
     Gravite::kBoiteuse,
     kAusitot,
     "sound-silent",
     {"Le dernier son de l'alarme n'a pas été entendu", "The last alarm sound was not heard"},
     {"Vérifiez les haut-parleurs, et le son choisi (page Options, bouton Sons). Ceci finit avec le prochain son de "
      "l'alarme qui est entendu.",
      "Check the loudspeakers, and the sound that is chosen (page Options, button Sounds). It ends with the next alarm "
      "sound that is heard."}},
}};

constexpr bool EstDansLOrdre() {
  for (std::size_t i = 0; i < kTable.size(); ++i)
    if (kTable.at(i).Quoi != static_cast<Condition>(i)) return false;
  return true;
}
static_assert(EstDansLOrdre(), "a condition is found by its number");

const LigneCondition& DonneLigne(Condition quoi) { return kTable.at(static_cast<std::size_t>(quoi)); }

}  // namespace

Gravite DonneGravite(Condition quoi) { return DonneLigne(quoi).Niveau; }

qint32 DonneDuree(Condition quoi) { return DonneLigne(quoi).DureeMs; }

bool EstEvenement(Condition quoi) {
  return quoi == Condition::kInterruption || quoi == Condition::kReglagesAbimes || quoi == Condition::kDossierRemplace;
}

QString MotCondition(Condition quoi) { return QString::fromLatin1(DonneLigne(quoi).Mot); }

QString PhraseQuoi(Condition quoi, const QString& detail, Langue langue) {
  const LigneCondition& ligne = DonneLigne(quoi);
  QString phrase = ligne.Constat.Dit(langue);
  // Another side's words may come in several lines, and end with a full stop of their own.
  QString suite = detail.simplified();
  while (suite.endsWith(u'.')) suite.chop(1);
  if (!suite.isEmpty()) phrase += QStringLiteral(" (") + suite + u')';
  return phrase + u'.';
}

QString PhraseFaire(Condition quoi, Langue langue) { return DonneLigne(quoi).Faire.Dit(langue); }

QString PhraseGravite(Gravite gravite, Langue langue) {
  switch (gravite) {
    case Gravite::kAveugle:
      return Phrase{"Vaktor ne voit rien", "Vaktor sees nothing"}.Dit(langue);
    case Gravite::kBoiteuse:
      return Phrase{"Vaktor ne fait pas tout", "Vaktor does not do everything"}.Dit(langue);
    case Gravite::kAvis:
      break;
  }
  return Phrase{"Vaktor : à savoir", "Vaktor: good to know"}.Dit(langue);
}

QString DitMoment(const QDateTime& moment, Langue langue) {
  const QString jour = DonneLocale(langue).toString(moment.date(), QStringLiteral("d MMMM yyyy"));
  return jour + Phrase{" à ", ", "}.Dit(langue) + moment.time().toString(QStringLiteral("HH:mm:ss"));
}

}  // namespace vaktor
