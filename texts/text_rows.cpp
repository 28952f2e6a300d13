#include "texts/text_rows.h"

#include <array>

// Spelling that looks odd ("Pitures", "Can not fin repertory", "sofware", double blanks) is what users know and what
// searches and manuals quote: it stays. Rows stand by rising number, the lookup relies on it.
// Addresses in examples lie in a domain that is reserved for that.

namespace vaktor {
namespace {

// clang-format off
constexpr std::array<LigneTexte, 69> kTexte = {{
    {5, u"Photos par mail", u"Pictures on each email"},
    {6, u"EMail", u"EMail"},
    {7, u"Sujet", u"Subject"},
    {8, u"Texte du mail:", u"Text of email:"},
    {10, u"Photos Max", u"Nbr Picture Max"},
    {11, u"Envoyer eMail", u"Send eMail"},
    {13, u"Prendre photo", u"Record picture"},
    {14, u"Alarme sonore", u"Acoustic alarm"},
    {17, u"Moniteur", u"Monitor"},
    {18, u"Nombre de mails", u"Number of emails"},
    {33, u"Surveillance Active", u"Monitoring: Active"},
    {34, u"Surveillance Inactive", u"Monitoring: Not active"},
    {36, u"FTP Connecté", u"FTP connected"},
    {37, u"Upload terminé", u"Upload success"},
    {38, u"Nom ou mot de passe incorrect", u"Login or Pass incorrect"},
    {39, u"Echec connection ftp", u"FTP Connection failed"},
    {40, u"Veillez remplir vos infos ci-dessus", u"Please complete your parameters"},
    {42, u"En cour de création", u"Processing"},
    {46, u"Adresse ftp", u"FTP address"},
    {47, u"Adresse html", u"HTML address"},
    {48, u"Nom utilisateur", u"User name"},
    {49, u"Mot de passe", u"Password"},
    {50, u"Fréquence d'envoi (sec)", u"Upload frequency (sec)"},
    {51, u"Qualité des images", u"Pictures quality"},
    {52, u"Déconnecté", u"Disconnected"},
    {54, u"Max", u"Max"},
    {55, u"Haute", u"High"},
    {56, u"Moyenne", u"Normal"},
    {57, u"Basse", u"Low"},
    {58, u"Couleur", u"Color"},
    {59, u"Rouge", u"Red"},
    {60, u"Vert", u"Green"},
    {61, u"Bleu", u"Blue"},
    {62, u"Gris", u"Gray"},
    {63, u"Marron", u"Brown"},
    {64, u"Jaune", u"Yellow"},
    {65, u"Blanc", u"White"},
    {67, u"Vaktor n'est pas connecté", u"Vaktor is not connected"},
    {69, u"En cour de connection", u"Connecting"},
    {70, u"En cour d'upload", u"Uploading"},
    {71, u"Serveur FTP introuvable", u"Can not find FTP server"},
    {72, u"Répertoire inexistant", u"Can not fin repertory"},
    {79, u"Alarme", u"Alarm"},
    {89, u"Départ dans ", u"Start in "},
    {99, u"Voir Répertoire", u"Show Repertory"},
    {100, u"Choisir Répertoire", u"Choose Repertory"},
    {101, u"Rafraîchir", u"Refresh"},
    {102, u"Effacer les photos", u"Erase pictures"},
    {103, u" Photo(s)", u" Picture(s)"},
    {149, u"Utiliser le logiciel de messagerie de mon ordinateur", u"Use my eMail software (Outlook...)"},
    {150, u"Adresse SMTP", u"SMTP address"},
    {151, u"Adresse eMail", u"eMail address"},
    {153, u"Nom d'utilisateur", u"User name"},
    {154, u"Mot de passe", u"Password"},
    {159, u"Sensibilité", u"Sensibility"},
    {160, u"Retard", u"Delay"},
    {164, u"Nombre de photos sur la page html", u"Number of picture on the web page"},
    {165, u"Couleur de la page", u"Colour of the web page"},
    {169, u"Alarme inactive", u"Alarm: Not active"},
    {170, u"Alarme active", u"Alarm: Active"},
    {174, u"Connexion internet impossible", u"No web connection"},
    {189, u"eMail de destination", u"Destination eMail"},
    {194, u"Plein écran", u"Full screen"},
    {199, u"Supprimer", u"Erase"},
    {209, u"Mon serveur SMTP nécessite un mot de passe", u"My SMTP server need a password"},
    {210, u"Choisissez un compte Email.", u"Choose a mailbox."},
    {219, u"Sensibilité automatique", u"Automatic sensibility"},
    {229, u"Port SMTP", u"SMTP port"},
    {230, u"Répertoire", u"Repertory"},
}};

constexpr std::array<LigneTexte, 38> kAide = {{
    {0, u"[Démarre/Arrête] la camera", u"[Start/Stop] camera"},
    {1, u"[Démarre/Arrête] la détection", u"[Start/Stop] detection"},
    {2, u"Temporisation, avant la mise en route de l'alarme. (En secondes)", u"Delay before detection. (In seconds)"},
    {4, u"Cliquez et déplacez la souris pour définir une zone de détection",
     u"Click and move mouse to define a detection zone"},
    {6, u"[Pts]nombre de pixels en mouvement", u"[Pts]number of moving pixels"},
    {7, u"Indiquez ici le nombre de photos, envoyées dans chaque mail",
     u"Enter here the number of pictures you want to be joined in each mail"},
    {8, u"Indiquez ici le nombre de mails, qui seront envoyés consécutivement. (Par intervalle de 5 minutes)",
     u"Enter here the number of mail to be sent"},
    {9, u"Indiquez ici l'adresse mail ou seront envoyées les alertes", u"Enter email destination address"},
    {10, u"Ceci apparaîtra dans le sujet du mail", u"Enter a subject for the mails"},
    {11, u"Ceci apparaîtra dans le texte du mail", u"Enter a text for the mail"},
    {13, u"Choisissez un autre répertoire pour stocker les photos",
     u"Choose the path where the pictures will be stored"},
    {14, u"Nombre maximum de photo qui seront stockées sur le disque",
     u"Choose the number of pictures that will be stored on your hard drive"},
    {17, u"[Active/Désactive] l'envoi de mails", u"[Activate/Stop] the email function"},
    {19, u"[Active/Désactive] l'enregistrement des photos sur disque",
     u"[Activate/Stop] recording pictures on hard drive"},
    {20, u"[Active/Désactive] l'alarme sonore", u"[Activate/Stop] Acoustic alarm"},
    {21, u"[Représentation/Réglage]  du niveau du seuil de détection", u"[View/Set]  threshold sensitivity"},
    {23, u"Affiche l'image en plein écran.", u"Full screen monitor."},
    {24, u"[ms]Temps passé pour analyser chaque image", u"[ms]Duration of analysis"},
    {25, u"Réglages vidéo.", u"Set video."},
    {26, u"Réglages vidéo.", u"Set video."},
    {33, u"Mise à jours", u"Updates"},
    {34, u"Mode d'emploi en ligne", u"Online faq"},
    {40, u"Indiquez ici l'adresse ftp de votre site. Celle-ci vous est fournie par votre hébergeur de site ou page perso. (Exemple : ftp.example.org)",
     u"Enter your FTP address here. (Example: ftp.example.org)"},
    {41, u"Indiquez ici l'adresse http de votre site (Exemple : http://www.example.org)",
     u"Enter your HTTP address here. (Example: http://www.example.org)"},
    {42, u"Indiquez ici votre nom d'utilisateur. (Celui-ci vous est fourni par votre hebergeur de site ou page perso)",
     u"Enter your username here."},
    {43, u"Indiquez ici votre mot de passe. (Celui-ci vous est fourni par votre hebergeur de site ou page perso)",
     u"Enter your password here."},
    {44, u"Indiquez ici l'intervalle de temps(en secondes), entre chaque image.",
     u"Enter refresh rate of the web page. (seconds)"},
    {45, u"Sélection de la qualité des photo mises en ligne sur votre site ou page perso",
     u"Picture quality selection"},
    {46, u"Création et mise en ligne de la page web", u"To make web page and to send it."},
    {47, u"Permet de vérifier que la création et l'envoi de la page ce sont bien passé",
     u"To verify the web page online"},
    {54, u"Choix de la couleur de la page html de surveillance", u"Choose a color for the web page"},
    {149, u"Utiliser le logiciel de messagerie, de mon ordinateur, pour envoyer les eMails",
     u"Use my eMail sofware (Outlook...)"},
    {150, u"Adresse du serveur SMTP, de votre compte de messagerie. [Exemple : smtp.example.org]",
     u"The SMTP address of your mailbox. [Example: smtp.example.org]"},
    {151, u"Votre adresse eMail. [Exemple : mon.nom@example.org]",
     u"Your eMail address. [Example: my.name@example.org]"},
    {159, u"Nombre de photos sur la page html", u"Number of pictures on the web page"},
    {160, u"Couleur de la page", u"Color of the web page"},
    {199, u"Ajustement automatique de la sensibilité", u"Automatic threshold adjustment (for sensibility)"},
    {229, u"Numéro de port a utiliser pour le SMTP", u"Number of the SMTP port"},
}};

constexpr std::array<LigneTexte, 12> kMessages = {{
    {1, u"Il est impératif d'entrer une adresse Email, pour activer cette option.", u"You must hit your email before."},
    {2, u"Attention", u"Caution"},
    {3, u"Espace disque < 500 Mo. ", u"Disk space <500 Mo."},
    {4, u"Attention", u"Be careful"},
    {8, u"La camera n'est pas active.\r\nVous n'avez pas cliqué sur :           \r\n[Caméra on]",
     u"Camera is off.\r\nPlease click on [Camera on] before."},
    {9, u"Veuillez remplir les paramètres de votre site web", u"Please complete your parameters."},
    {14, u"Toutes les photos vont être supprimées de ce répertoire. Etes vous sur ?",
     u"All pictures will be erased from this repertory. Are you sure?"},
    {15, u"Attention", u"Are you sure?"},
    {16, u"Vaktor ne trouve pas de caméra.", u"Camera not found."},
    {22, u"Etes vous sur de vouloir supprimer la photo:", u"Are you sure, you want to erase the picture:"},
    {24, u"Vous n'avez pas indiqué les paramètres de votre messagerie.\r\nPréférez vous que Vaktor envoie les emails avec le logiciel de messagerie déjà présent dans votre PC?",
     u"Your parameters are missing.\r\nDo you want Vaktor use the eMail software of your computer?"},
    {25, u"Vos paramètres d'identification, sont incomplets.\r\nVoulez vous les compléter?",
     u"Your login and/or password are missing.\r\nDo you want to type them?"},
}};

constexpr std::array<LigneTexte, 8> kLibelleBouton = {{
    {0, u"Caméra on", u"Camera on"},
    {1, u"Alarme", u"Alarm"},
    {2, u"Surveillance", u"Live Cam"},
    {3, u"Moniteur", u"Monitor"},
    {4, u"Options", u"Options"},
    {5, u"eMail", u"eMail"},
    {6, u"FTP", u"FTP"},
    {7, u"Caméra off", u"Camera off"},
}};

constexpr std::array<LigneTexte, 9> kLibelleBoutonGris = {{
    {0, u"Photo", u"Pitures"},
    {1, u"Mise à jour", u"Update"},
    {2, u"Création page", u"Send page"},
    {3, u"Test page", u"Test page"},
    {4, u"Format vidéo", u"Video format"},
    {5, u"Source vidéo", u"Video source"},
    {6, u"Sons", u"Sounds"},
    {7, u"Notice", u"Help"},
    {8, u"Avancé", u"More"},
}};

// clang-format on

}  // namespace

std::span<const LigneTexte> LignesTexte() { return kTexte; }
std::span<const LigneTexte> LignesAide() { return kAide; }
std::span<const LigneTexte> LignesMessages() { return kMessages; }
std::span<const LigneTexte> LignesLibelleBouton() { return kLibelleBouton; }
std::span<const LigneTexte> LignesLibelleBoutonGris() { return kLibelleBoutonGris; }

}  // namespace vaktor
