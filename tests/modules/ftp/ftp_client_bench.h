// SPDX-License-Identifier: GPL-3.0-or-later
// The client for FTP beside a server of the test's own.
#pragma once

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <memory>

#include "modules/ftp/ftp_client.h"
#include "modules/ftp/ftp_test_server.h"

namespace vaktor::essai {

struct Client : testing::Test {
  ServeurEssai Serveur;
  QTemporaryDir Ici;
  OptionsClient Options{
      .DelaiConnexion = 10, .DelaiReponse = 2, .DelaiSilence = 2, .FichierAutorites = {}, .Cherche = {}};
  std::unique_ptr<ClientFtp> Ftp;
  AccesFtp Acces{"127.0.0.1", 0, "anna", "sesame", "/"};
  QStringList Etapes;

  void SetUp() override {
    Serveur.Demarre();
    Acces.Port = Serveur.Port();
    Ftp = std::make_unique<ClientFtp>(Options);
  }
  ResultatFtp Fait(TravailFtp travail) {
    travail.Acces = Acces;
    QElapsedTimer depuis;
    depuis.start();
    bool trop = false;
    ResultatFtp resultat = Ftp->Execute(
        travail, [this](EtapeFtp etape) { Etapes << (etape == EtapeFtp::kServeurTrouve ? "SerTR" : "Paswo"); },
        [&] { return trop = trop || depuis.hasExpired(25'000); });
    EXPECT_FALSE(trop) << "it would not have ended by itself";
    return resultat;
  }
  /// The connections of this process to the server that stand, by their descriptors.
  QList<int> Prises() const {
    QList<int> prises;
    for (int prise = 3; prise < 1024; ++prise) {
      sockaddr_storage bout{};
      socklen_t taille = sizeof bout;
      if (::getpeername(prise, reinterpret_cast<sockaddr*>(&bout), &taille) != 0) continue;
      if (bout.ss_family == AF_INET && ntohs(reinterpret_cast<sockaddr_in*>(&bout)->sin_port) == Acces.Port)
        prises << prise;
    }
    return prises;
  }
  ResultatFtp Connecte() {
    Etapes.clear();
    return Fait({.Genre = GenreTravail::kConnexion, .Acces = {}, .Source = {}, .Contenu = {}, .Nom = {}});
  }
  ResultatFtp Page(const QByteArray& contenu, const QString& nom = "live.html") {
    return Fait({.Genre = GenreTravail::kPage, .Acces = {}, .Source = {}, .Contenu = contenu, .Nom = nom});
  }
  ResultatFtp Image(const QByteArray& octets) {
    EcritOctets(Ici.filePath("Live.jpg"), octets);
    return Fait({.Genre = GenreTravail::kFichier,
                 .Acces = {},
                 .Source = Ici.filePath("Live.jpg"),
                 .Contenu = {},
                 .Nom = "live.jpg"});
  }
  ResultatFtp Signe() { return Fait({}); }
};

}  // namespace vaktor::essai
