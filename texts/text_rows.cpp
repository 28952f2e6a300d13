// SPDX-License-Identifier: GPL-3.0-or-later
#include "texts/text_rows.h"

#include <algorithm>
#include <array>

// Spelling that looks odd ("Pitures", "Can not fin repertory", "sofware", double blanks) is what users know and what
// searches and manuals quote: it stays. Rows stand by rising number, those of the buttons by the button's index.
// Addresses in examples lie in a domain that is reserved for that.

namespace vaktor {
namespace {

// clang-format off
constexpr auto kLibelle = std::to_array<LigneTexte<Libelle>>({
    {Libelle::kPhotosParMail, {"Photos par mail", "Pictures on each email"}},
    {Libelle::kEMail, {"EMail", "EMail"}},
    {Libelle::kSujet, {"Sujet", "Subject"}},
    {Libelle::kTexteMail, {"Texte du mail:", "Text of email:"}},
    {Libelle::kPhotosMax, {"Photos Max", "Nbr Picture Max"}},
    {Libelle::kEnvoieMail, {"Envoyer eMail", "Send eMail"}},
    {Libelle::kPrendPhoto, {"Prendre photo", "Record picture"}},
    {Libelle::kAlarmeSonore, {"Alarme sonore", "Acoustic alarm"}},
    {Libelle::kMoniteur, {"Moniteur", "Monitor"}},
    {Libelle::kNombreMails, {"Nombre de mails", "Number of emails"}},
    {Libelle::kSurveillanceActive, {"Surveillance Active", "Monitoring: Active"}},
    {Libelle::kSurveillanceInactive, {"Surveillance Inactive", "Monitoring: Not active"}},
    {Libelle::kFtpConnecte, {"FTP Connecté", "FTP connected"}},
    {Libelle::kUploadTermine, {"Upload terminé", "Upload success"}},
    {Libelle::kAccesIncorrect, {"Nom ou mot de passe incorrect", "Login or Pass incorrect"}},
    {Libelle::kEchecFtp, {"Echec connection ftp", "FTP Connection failed"}},
    {Libelle::kInfosManquent, {"Veillez remplir vos infos ci-dessus", "Please complete your parameters"}},
    {Libelle::kEnCreation, {"En cour de création", "Processing"}},
    {Libelle::kAdresseFtp, {"Adresse ftp", "FTP address"}},
    {Libelle::kAdresseHtml, {"Adresse html", "HTML address"}},
    {Libelle::kUtilisateurFtp, {"Nom utilisateur", "User name"}},
    {Libelle::kMotDePasseFtp, {"Mot de passe", "Password"}},
    {Libelle::kIntervalle, {"Fréquence d'envoi (sec)", "Upload frequency (sec)"}},
    {Libelle::kQualiteImages, {"Qualité des images", "Pictures quality"}},
    {Libelle::kDeconnecte, {"Déconnecté", "Disconnected"}},
    {Libelle::kQualiteMax, {"Max", "Max"}},
    {Libelle::kQualiteHaute, {"Haute", "High"}},
    {Libelle::kQualiteMoyenne, {"Moyenne", "Normal"}},
    {Libelle::kQualiteBasse, {"Basse", "Low"}},
    {Libelle::kCouleur, {"Couleur", "Color"}},
    {Libelle::kRouge, {"Rouge", "Red"}},
    {Libelle::kVert, {"Vert", "Green"}},
    {Libelle::kBleu, {"Bleu", "Blue"}},
    {Libelle::kGris, {"Gris", "Gray"}},
    {Libelle::kMarron, {"Marron", "Brown"}},
    {Libelle::kJaune, {"Jaune", "Yellow"}},
    {Libelle::kBlanc, {"Blanc", "White"}},
    {Libelle::kVaktorPasConnecte, {"Vaktor n'est pas connecté", "Vaktor is not connected"}},
    {Libelle::kEnConnexion, {"En cour de connection", "Connecting"}},
    {Libelle::kEnUpload, {"En cour d'upload", "Uploading"}},
    {Libelle::kServeurIntrouvable, {"Serveur FTP introuvable", "Can not find FTP server"}},
    {Libelle::kRepertoireInexistant, {"Répertoire inexistant", "Can not fin repertory"}},
    {Libelle::kAlarme, {"Alarme", "Alarm"}},
    {Libelle::kDepartDans, {"Départ dans ", "Start in "}},
    {Libelle::kVoitRepertoire, {"Voir Répertoire", "Show Repertory"}},
    {Libelle::kChoisitRepertoire, {"Choisir Répertoire", "Choose Repertory"}},
    {Libelle::kRafraichit, {"Rafraîchir", "Refresh"}},
    {Libelle::kEffacePhotos, {"Effacer les photos", "Erase pictures"}},
    {Libelle::kPhotos, {" Photo(s)", " Picture(s)"}},
    {Libelle::kLogicielMessagerie, {"Utiliser le logiciel de messagerie de mon ordinateur", "Use my eMail software (Outlook...)"}},
    {Libelle::kAdresseSmtp, {"Adresse SMTP", "SMTP address"}},
    {Libelle::kAdresseEMail, {"Adresse eMail", "eMail address"}},
    {Libelle::kUtilisateurSmtp, {"Nom d'utilisateur", "User name"}},
    {Libelle::kMotDePasseSmtp, {"Mot de passe", "Password"}},
    {Libelle::kSensibilite, {"Sensibilité", "Sensibility"}},
    {Libelle::kRetard, {"Retard", "Delay"}},
    {Libelle::kNombrePhotosPage, {"Nombre de photos sur la page html", "Number of picture on the web page"}},
    {Libelle::kCouleurPage, {"Couleur de la page", "Colour of the web page"}},
    {Libelle::kAlarmeInactive, {"Alarme inactive", "Alarm: Not active"}},
    {Libelle::kAlarmeActive, {"Alarme active", "Alarm: Active"}},
    {Libelle::kInternetImpossible, {"Connexion internet impossible", "No web connection"}},
    {Libelle::kMailDestination, {"eMail de destination", "Destination eMail"}},
    {Libelle::kPleinEcran, {"Plein écran", "Full screen"}},
    {Libelle::kSupprime, {"Supprimer", "Erase"}},
    {Libelle::kSmtpAvecMotDePasse, {"Mon serveur SMTP nécessite un mot de passe", "My SMTP server need a password"}},
    {Libelle::kChoisitCompte, {"Choisissez un compte Email.", "Choose a mailbox."}},
    {Libelle::kSensibiliteAuto, {"Sensibilité automatique", "Automatic sensibility"}},
    {Libelle::kPortSmtp, {"Port SMTP", "SMTP port"}},
    {Libelle::kRepertoire, {"Répertoire", "Repertory"}},
});

constexpr auto kAide = std::to_array<LigneTexte<Aide>>({
    {Aide::kCamera, {"[Démarre/Arrête] la camera", "[Start/Stop] camera"}},
    {Aide::kAlarme, {"[Démarre/Arrête] la détection", "[Start/Stop] detection"}},
    {Aide::kRetard, {"Temporisation, avant la mise en route de l'alarme. (En secondes)", "Delay before detection. (In seconds)"}},
    {Aide::kZone, {"Cliquez et déplacez la souris pour définir une zone de détection",
     "Click and move mouse to define a detection zone"}},
    {Aide::kPoints, {"[Pts]nombre de pixels en mouvement", "[Pts]number of moving pixels"}},
    {Aide::kPhotosParMail, {"Indiquez ici le nombre de photos, envoyées dans chaque mail",
     "Enter here the number of pictures you want to be joined in each mail"}},
    {Aide::kNombreMails, {"Indiquez ici le nombre de mails, qui seront envoyés consécutivement. (Par intervalle de 5 minutes)",
     "Enter here the number of mail to be sent"}},
    {Aide::kMailDestination, {"Indiquez ici l'adresse mail ou seront envoyées les alertes", "Enter email destination address"}},
    {Aide::kSujet, {"Ceci apparaîtra dans le sujet du mail", "Enter a subject for the mails"}},
    {Aide::kTexteMail, {"Ceci apparaîtra dans le texte du mail", "Enter a text for the mail"}},
    {Aide::kChoisitRepertoire, {"Choisissez un autre répertoire pour stocker les photos",
     "Choose the path where the pictures will be stored"}},
    {Aide::kPhotosMax, {"Nombre maximum de photo qui seront stockées sur le disque",
     "Choose the number of pictures that will be stored on your hard drive"}},
    {Aide::kEnvoieMail, {"[Active/Désactive] l'envoi de mails", "[Activate/Stop] the email function"}},
    {Aide::kPrendPhoto, {"[Active/Désactive] l'enregistrement des photos sur disque",
     "[Activate/Stop] recording pictures on hard drive"}},
    {Aide::kAlarmeSonore, {"[Active/Désactive] l'alarme sonore", "[Activate/Stop] Acoustic alarm"}},
    {Aide::kJauge, {"[Représentation/Réglage]  du niveau du seuil de détection", "[View/Set]  threshold sensitivity"}},
    {Aide::kPleinEcran, {"Affiche l'image en plein écran.", "Full screen monitor."}},
    {Aide::kDureeAnalyse, {"[ms]Temps passé pour analyser chaque image", "[ms]Duration of analysis"}},
    {Aide::kFormatVideo, {"Réglages vidéo.", "Set video."}},
    {Aide::kSourceVideo, {"Réglages vidéo.", "Set video."}},
    {Aide::kMiseAJour, {"Mise à jours", "Updates"}},
    {Aide::kNotice, {"Mode d'emploi en ligne", "Online faq"}},
    {Aide::kAdresseFtp, {"Indiquez ici l'adresse ftp de votre site. Celle-ci vous est fournie par votre hébergeur de site ou page perso. (Exemple : ftp.example.org)",
     "Enter your FTP address here. (Example: ftp.example.org)"}},
    {Aide::kAdresseHtml, {"Indiquez ici l'adresse http de votre site (Exemple : http://www.example.org)",
     "Enter your HTTP address here. (Example: http://www.example.org)"}},
    {Aide::kUtilisateurFtp, {"Indiquez ici votre nom d'utilisateur. (Celui-ci vous est fourni par votre hebergeur de site ou page perso)",
     "Enter your username here."}},
    {Aide::kMotDePasseFtp, {"Indiquez ici votre mot de passe. (Celui-ci vous est fourni par votre hebergeur de site ou page perso)",
     "Enter your password here."}},
    {Aide::kIntervalle, {"Indiquez ici l'intervalle de temps(en secondes), entre chaque image.",
     "Enter refresh rate of the web page. (seconds)"}},
    {Aide::kQualiteImages, {"Sélection de la qualité des photo mises en ligne sur votre site ou page perso",
     "Picture quality selection"}},
    {Aide::kCreePage, {"Création et mise en ligne de la page web", "To make web page and to send it."}},
    {Aide::kTestePage, {"Permet de vérifier que la création et l'envoi de la page ce sont bien passé",
     "To verify the web page online"}},
    {Aide::kListeCouleurs, {"Choix de la couleur de la page html de surveillance", "Choose a color for the web page"}},
    {Aide::kLogicielMessagerie, {"Utiliser le logiciel de messagerie, de mon ordinateur, pour envoyer les eMails",
     "Use my eMail sofware (Outlook...)"}},
    {Aide::kAdresseSmtp, {"Adresse du serveur SMTP, de votre compte de messagerie. [Exemple : smtp.example.org]",
     "The SMTP address of your mailbox. [Example: smtp.example.org]"}},
    {Aide::kAdresseEMail, {"Votre adresse eMail. [Exemple : mon.nom@example.org]",
     "Your eMail address. [Example: my.name@example.org]"}},
    {Aide::kNombrePhotosPage, {"Nombre de photos sur la page html", "Number of pictures on the web page"}},
    {Aide::kCouleurPage, {"Couleur de la page", "Color of the web page"}},
    {Aide::kSensibiliteAuto, {"Ajustement automatique de la sensibilité", "Automatic threshold adjustment (for sensibility)"}},
    {Aide::kPortSmtp, {"Numéro de port a utiliser pour le SMTP", "Number of the SMTP port"}},
});

constexpr auto kMessages = std::to_array<LigneTexte<Message>>({
    {Message::kAdresseManque, {"Il est impératif d'entrer une adresse Email, pour activer cette option.", "You must hit your email before."}},
    {Message::kTitreManque, {"Attention", "Caution"}},
    {Message::kPeuDePlace, {"Espace disque < 500 Mo. ", "Disk space <500 Mo."}},
    {Message::kTitre, {"Attention", "Be careful"}},
    {Message::kCameraInactive, {"La camera n'est pas active.\r\nVous n'avez pas cliqué sur :           \r\n[Caméra on]",
     "Camera is off.\r\nPlease click on [Camera on] before."}},
    {Message::kSiteIncomplet, {"Veuillez remplir les paramètres de votre site web", "Please complete your parameters."}},
    {Message::kEffaceTout, {"Toutes les photos vont être supprimées de ce répertoire. Etes vous sur ?",
     "All pictures will be erased from this repertory. Are you sure?"}},
    {Message::kTitreEffaceTout, {"Attention", "Are you sure?"}},
    {Message::kCameraIntrouvable, {"Vaktor ne trouve pas de caméra.", "Camera not found."}},
    {Message::kEffacePhoto, {"Etes vous sur de vouloir supprimer la photo:", "Are you sure, you want to erase the picture:"}},
    {Message::kMessagerieManque, {"Vous n'avez pas indiqué les paramètres de votre messagerie.\r\nPréférez vous que Vaktor envoie les emails avec le logiciel de messagerie déjà présent dans votre PC?",
     "Your parameters are missing.\r\nDo you want Vaktor use the eMail software of your computer?"}},
    {Message::kAccesIncomplet, {"Vos paramètres d'identification, sont incomplets.\r\nVoulez vous les compléter?",
     "Your login and/or password are missing.\r\nDo you want to type them?"}},
});

constexpr auto kLibelleBouton = std::to_array<Phrase>({
    {"Caméra on", "Camera on"},
    {"Alarme", "Alarm"},
    {"Surveillance", "Live Cam"},
    {"Moniteur", "Monitor"},
    {"Options", "Options"},
    {"eMail", "eMail"},
    {"FTP", "FTP"},
    {"Caméra off", "Camera off"},
});

constexpr auto kLibelleBoutonGris = std::to_array<Phrase>({
    {"Photo", "Pitures"},
    {"Mise à jour", "Update"},
    {"Création page", "Send page"},
    {"Test page", "Test page"},
    {"Format vidéo", "Video format"},
    {"Source vidéo", "Video source"},
    {"Sons", "Sounds"},
    {"Notice", "Help"},
    {"Avancé", "More"},
});

// clang-format on

// Two rows of one number do not compile either.
template <typename Table>
constexpr bool EstCroissante(const Table& table) {
  return std::ranges::adjacent_find(
             table, [](const auto& une, const auto& autre) { return une.Lequel >= autre.Lequel; }) == table.end();
}
static_assert(EstCroissante(kLibelle) && EstCroissante(kAide) && EstCroissante(kMessages),
              "a row is looked up by its number");

}  // namespace

std::span<const LigneTexte<Libelle>> LignesDe(Libelle) { return kLibelle; }
std::span<const LigneTexte<Aide>> LignesDe(Aide) { return kAide; }
std::span<const LigneTexte<Message>> LignesDe(Message) { return kMessages; }
std::span<const Phrase> LignesLibelleBouton() { return kLibelleBouton; }
std::span<const Phrase> LignesLibelleBoutonGris() { return kLibelleBoutonGris; }

}  // namespace vaktor
