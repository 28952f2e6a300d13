// SPDX-License-Identifier: GPL-3.0-or-later
// The bench of the sender: a real server on loopback, one mail with a photo.
#pragma once

#include <QDateTime>
#include <QElapsedTimer>

#include "modules/mail/mail_bench.h"
#include "modules/mail/mime_message.h"
#include "modules/mail/smtp_sender.h"

namespace vaktor::essai {

inline const Certificats& BonsCertificats() {
  static const Certificats kCertificats(QStringLiteral("127.0.0.1"));
  return kCertificats;
}

struct Sender : testing::Test {
  ServeurMail Serveur;
  QStringList Etapes;
  int Acceptes = 0;
  bool Arret = false;
  ReglagesEnvoi Reglages;
  Enveloppe Adresses{"cam@exemple.fr", {"anna@exemple.fr"}};
  QByteArray Message = ComposeMessage({.Expediteur = "cam@exemple.fr",
                                       .Destinataires = {"anna@exemple.fr"},
                                       .Sujet = "Intrusion",
                                       .Corps = ".point\r\n.\r\nfin",
                                       .Date = QDateTime::currentDateTime(),
                                       .Identifiant = "abc",
                                       .Pieces = {{"a.jpg", QByteArray(300000, 'x')}}});

  void Regle(bool login = false) {
    Reglages.Serveur = "127.0.0.1";
    Reglages.Port = Serveur.Port();
    Reglages.AvecConnexion = login;
    Reglages.Utilisateur = "anna";
    Reglages.MotDePasse = "s3cret&mot";
  }
  /// We are asked to end a second after the data began to travel: by then the server has them.
  ResultatEnvoi EnvoieEtFinit() {
    QElapsedTimer depuis;
    return EnvoieCourriel(Reglages, Adresses, Message,
                          {[&] { return depuis.isValid() && depuis.hasExpired(1000); },
                           {},
                           [&](const QString&, const QString& r) {
                             if (r.startsWith("354")) depuis.start();
                           }});
  }
  ResultatEnvoi Envoie() {
    return EnvoieCourriel(Reglages, Adresses, Message,
                          {[this] { return Arret; }, [this](const QList<VerdictAdresse>&) { ++Acceptes; },
                           [this](const QString& c, const QString& r) { Etapes << c + ": " + r; }});
  }
};

}  // namespace vaktor::essai
