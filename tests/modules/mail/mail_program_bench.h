// SPDX-License-Identifier: GPL-3.0-or-later
// The bench of the whole mail companion: the program itself, the main program's side of the channel, a real server.
#pragma once

#include "modules/mail/mail_bench.h"
#include "settings/password_scrambling.h"
#include "support/companion_program.h"
#include "support/tiny_jpeg.h"

namespace vaktor::essai {

inline constexpr const char* kPass = "s3cret&mot";

struct ProgrammeMail : ProgrammeCompagnon {
  ServeurMail Serveur;
  QStringList Arguments;

  void Regle(const QString& cle, const QString& valeur, const QString& section = "MAIL") {
    Magasin.EcritReglage(section, cle, valeur);
  }
  void SetUp() override {
    ASSERT_TRUE(Serveur.Demarre());
    QDir(Temporaire.path()).mkdir("photos");
    Regle("destination", "anna@exemple.fr");
    Regle("sujet", QString::fromUtf8("Intrusion détectée"));
    Regle("corp", QString::fromUtf8("Là\nmaintenant"));
    Regle("smtpserveur", "127.0.0.1");
    Regle("smtpfrom", "cam@exemple.fr");
    Regle("smtpport", QString::number(Serveur.Port()));
    Regle("smtpuser", "anna");
    Regle("pass", CryptePass(kPass));
    Regle("smtpactif", "True");
    Regle("smtpneedlogin", "False");
    Regle("repertoire", Temporaire.filePath("photos"), "PHOTO");
    Regle("actif", "1", "PHOTO");
    Magasin.Vide();
  }
  void Lance() {
    PrepareMilieu({{"PATH", "/pas/la"}});  // no notification of a test on the desktop of who runs it
    Etat.HandleMail = 0;
    Demarre(VAKTOR_MAIL, Arguments);
    ASSERT_TRUE(AttendQue([this] { return Etat.HandleMail != 0; })) << Programme.readAll().toStdString();
  }
  void Photo(const QString& nom) const {
    ASSERT_TRUE(EcritOctets(Temporaire.filePath("photos/" + nom), PetitJpeg(" image ")));
  }
  QString Courrier() const { return Temporaire.filePath("etat/courrier"); }
  QStringList EnAttente() const {
    return QDir(Courrier()).entryList({"*.mail", "*.draft", "*.refused"}, QDir::Files, QDir::Name);
  }
  QByteArray LitEtat(const QString& nom) const { return LitOctets(Temporaire.filePath("etat/" + nom)); }
};

}  // namespace vaktor::essai
