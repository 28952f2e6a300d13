// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/choice/capture_reason.h"

#include <array>

#include "texts/phrase.h"

namespace vaktor {
namespace {

// In the order of Motif.
constexpr std::array<Phrase, 24> kPhrases = {{
    {"Aucune image n'est venue.", "No picture came."},
    {"La caméra refuse le nom ou le mot de passe : vérifiez-les dans son adresse.",
     "The camera refuses the name or the password: check them in its address."},
    {"La caméra interdit l'accès à cette adresse (403) : donnez-y droit à ce compte dans les pages de la caméra, ou "
     "attendez qu'elle se déverrouille.",
     "The camera forbids this address (403): give this account the right to it in the camera's own pages, or wait "
     "until "
     "it unlocks."},
    {"La caméra répond, mais ne connaît pas ce chemin (404) : cherchez l'adresse de l'image dans sa notice.",
     "The camera answers, but does not know this path (404): look for the address of its picture in its manual."},
    {"La caméra répond par l'erreur %1 : redémarrez-la, ou fermez les autres programmes qui la regardent.",
     "The camera answers with the error %1: restart it, or close the other programs that watch it."},
    {"Aucune machine ne porte ce nom : vérifiez l'adresse.", "No machine has this name: check the address."},
    {"Le réseau ne mène pas à cette adresse : vérifiez que la caméra est allumée, son câble ou son Wi-Fi, puis "
     "l'adresse.",
     "The network does not lead to this address: see that the camera is switched on, check its cable or Wi-Fi, then "
     "the "
     "address."},
    {"La machine est là, mais rien n'y répond sur ce port : vérifiez le port de l'adresse, et que la caméra a fini de "
     "démarrer.",
     "The machine is there, but nothing answers at this port: check the port in the address, and that the camera has "
     "finished starting."},
    {"Rien ne répond à cette adresse : vérifiez que la caméra est allumée et que l'adresse est la bonne.",
     "Nothing answers at this address: see that the camera is switched on and that the address is right."},
    {"Le certificat de la caméra n'est pas reconnu : prenez son adresse sans chiffrement (http:// ou rtsp://), ou "
     "faites "
     "reconnaître son certificat sur cet ordinateur.",
     "The certificate of the camera is not trusted: use its address without encryption (http:// or rtsp://), or have "
     "its certificate trusted on this computer."},
    {"La caméra accepte la connexion, mais n'envoie rien : redémarrez-la, ou fermez les autres programmes qui la "
     "regardent.",
     "The camera accepts the connection, but sends nothing: restart it, or close the other programs that watch it."},
    {"La caméra envoie, mais aucune image entière n'est venue : dans ses pages, choisissez un intervalle d'images clés "
     "de quelques secondes.",
     "The camera sends, but no whole picture came: in its own pages, choose an interval of key frames of a few "
     "seconds."},
    {"À cette adresse il n'y a ni image ni film : cherchez l'adresse de l'image dans la notice de la caméra.",
     "At this address there is neither a picture nor a film: look for the address of the picture in the camera's "
     "manual."},
    {"Aucun programme installé ici ne sait lire ce genre de film.",
     "Nothing installed here can read this kind of film."},
    {"Un autre programme utilise la caméra : fermez-le.", "Another program is using the camera: close it."},
    {"Vous n'avez pas le droit d'ouvrir la caméra : faites-vous ajouter au groupe %1, puis ouvrez une nouvelle "
     "session.",
     "You may not open the camera: have yourself added to the group %1, then log in again."},
    {"La caméra n'est pas branchée.", "The camera is not plugged in."},
    {"Ce fichier n'est plus là.", "This file is not there any more."},
    {"Le choix de la caméra ne peut pas être lu (%1) : rendez ce fichier lisible, ou choisissez-la de nouveau.",
     "Which camera was chosen cannot be read (%1): make this file readable, or choose it again."},
    {"Le bureau ne donne pas cette caméra en ce moment : branchez-la, ou vérifiez que PipeWire fonctionne dans votre "
     "session.",
     "The desktop does not hand out this camera at the moment: plug it in, or see that PipeWire runs in your session."},
    {"Il manque un programme pour cette caméra : installez le paquet %1.",
     "A program for this camera is missing: install the package %1."},
    {"Des images viennent, mais toutes sont abîmées : vérifiez le câble ou le Wi-Fi de la caméra, ou essayez un autre "
     "format.",
     "Pictures come, but all of them are damaged: check the cable or the Wi-Fi of the camera, or try another format."},
    {"La caméra est là, mais ne donne aucune image : vérifiez qu'aucun interrupteur ni touche ne l'éteint, ou "
     "rebranchez-la, sans rallonge ni concentrateur USB.",
     "The camera is there, but gives no picture: see that no switch or key turns it off, or plug it in again, without "
     "an extension cable or a USB hub."},
    {"Les images sont trop grandes, de plus de 64 millions de pixels ou de 32 767 sur un côté : choisissez-en de plus "
     "petites dans les réglages de la caméra.",
     "The pictures are too large, more than 64 million pixels or 32,767 along a side: choose smaller ones in the "
     "settings of the camera."},
}};
static_assert(kPhrases.size() == static_cast<std::size_t>(Motif::kTropGrande) + 1);

constexpr Phrase kSansGroupe{"Vous n'avez pas le droit de l'ouvrir.", "You may not open it."};

}  // namespace

QString DitRaison(const Raison& raison, Langue langue) {
  if (raison.Quoi == Motif::kSansPermission && raison.Detail.isEmpty()) return kSansGroupe.Dit(langue);
  const Phrase& phrase = kPhrases.at(static_cast<std::size_t>(raison.Quoi));
  return raison.Detail.isEmpty() ? phrase.Dit(langue) : phrase.Dit(langue, raison.Detail);
}

}  // namespace vaktor
