// SPDX-License-Identifier: GPL-3.0-or-later
// Everything that the program remembers, once. Nothing that is kept between two runs lives anywhere else.
#pragma once

#include <QString>

namespace vaktor {

/// The parameters of the user. Owner: app/ makes one for the whole run; rules and forms hold a reference.
/// User-interface thread only. The start values are those of a first run; texts that the program only passes on
/// (counts, port, interval) are kept as texts because they are stored and sent as typed.
struct Parametres {
  // general
  qint32 Retard = 10;         ///< arming delay, seconds, 0 and up
  qint32 LangueCourante = 0;  ///< 0 French, 1 English; any other value fills no text
  bool SeuilAuto = true;      ///< the tolerance finds its place by itself; shown by ChkSeuilAuto
  qint32 SeuilDetection = 0;  ///< tolerance on the colour difference; 1 to 7000000 once the gauge was drawn
  qint32 IndexSkin = 0;       ///< list index of CombSkin, 0 to 2; -1 for no selection

  // PHOTO
  qint32 NombrePhotoMax = 10000;  ///< the user's copies of one run stop below this count
  QString RepertoirePhoto;        ///< photo folder, stored form, no separator at its end
  bool PhotoActif = false;        ///< record photos on alarm; shown by CheckPPhot

  // SON
  qint32 IndexSon = 0;   ///< 0 to 2 built-in sound, 3 the file below
  bool SonActif = true;  ///< alarm sound on; shown by CheckSon
  QString FichierSon;    ///< path of the user's wave file, may be empty

  // MAIL
  bool MailActif = false;                           ///< mail on alarm; shown by CheckMail
  QString MailDestination;                          ///< shown by TextEMail
  QString MailSujet = QStringLiteral("Intrusion");  ///< shown by TextSujet
  QString MailCorps = QStringLiteral("Intrusion");  ///< shown by TextTexte, several lines
  QString MailNombrePhoto = QStringLiteral("10");   ///< photos in each mail, decimal text; shown by TxtNbrPhoto
  QString MailNombreMail = QStringLiteral("1");     ///< mails in a row, decimal text; shown by TextNbrMail
  QString SmtpServeur;
  QString SmtpFrom;
  QString SmtpPort = QStringLiteral("25");  ///< decimal text
  QString SmtpUser;
  bool SmtpActif = true;  ///< true: the mail companion talks SMTP itself; false: the system's mail program
  bool SmtpNeedLogin = true;
  bool SmtpSansChiffrement = false;  ///< the password may go to the server in clear
  QString SmtpJeton;                 ///< program that prints a token for an OAuth2 login, its arguments behind blanks
  qint32 HeureSigneDeVie = -1;       ///< hour of the daily mail "all is well", 0 to 23; -1: none
  QString PushAdresse;               ///< where a push goes, http or https; empty: none is sent
  QString PushEntete;                ///< one header of each push, "Name: value"; may hold a password: as SmtpPass
  QString SmtpPass;                  ///< in clear in memory, scrambled in the store; never in a log

  // FTP
  QString AdresseHtml;  ///< public web address, shown by TxtHtml
  QString AdresseFtp;   ///< server, shown by TxtFtp
  QString UtilisateurFtp;
  QString RepertoireFtp = QStringLiteral("/");   ///< folder on the server, shown by TxtFTPracine
  QString IntervalleFtp = QStringLiteral("10");  ///< seconds between two live images, decimal comma allowed
  quint8 IndexQualite = 2;                       ///< 0 to 3, list index of CombQualit
  qint32 IndexCouleurPage = 3;                   ///< 0 red, 1 green, 2 blue, 3 gray, 4 brown, 5 yellow, 6 white
  qint32 NbrPhotosPage = 50;                     ///< photos on the web page, 1 and up; shown by TextNbrPhotoFTP
  qint32 PlaceFichiers = 2000;                   ///< photos kept on the site, the oldest goes; 0 and less: no bound
  qint32 PlaceMo = 200;                          ///< their size together, millions of bytes; 0 and less: no bound
  QString MotDePasseFtp;                         ///< in clear in memory, scrambled in the store; never in a log

  // Derived or of the running program only, never stored.
  quint8 QualiteJpeg = 0;    ///< JPEG quality of live images; follows IndexQualite through DeduitQualiteJpeg
  QString CouleurPage = {};  ///< English word of the page's colour, as last picked in CombCouleur; read by nobody
  bool ParametresModifies = false;  ///< something differs from the store; cleared by SauveParametres only
};

/// Sets QualiteJpeg by IndexQualite: 0, 1, 2, 3 give 100, 50, 20, 10. Any other index leaves it as it was, which
/// after a start is 0: that is wanted, the writer takes 0 as it comes.
void DeduitQualiteJpeg(Parametres& parametres);

}  // namespace vaktor
