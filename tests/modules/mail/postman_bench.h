// SPDX-License-Identifier: GPL-3.0-or-later
// The bench of the outbox and its postman: folders of the test's own, virtual time, a server that is played by hand.
#pragma once

#include <QSet>
#include <algorithm>
#include <memory>

#include "modules/mail/drafts.h"
#include "modules/mail/mail_bench.h"
#include "modules/mail/postman.h"

namespace vaktor::essai {

inline constexpr qint64 kMinute = 60'000;
inline constexpr qint64 kHeure = 60 * kMinute;

inline CourrielEnAttente Nomme(const QString& nom, qint64 faitA) {
  CourrielEnAttente c;
  c.Nom = nom;
  c.Expediteur = "cam@exemple.fr";
  c.Destinataires = QStringList{"anna@exemple.fr"};
  c.FaitA = faitA;
  return c;
}

struct Sac : testing::Test {
  QTemporaryDir Temporaire;
  QString Dossier = Temporaire.filePath("courrier");
  SacPostal B{Dossier};
  LecteurPhotos Lecteur;
  qint64 Maintenant = 1'700'000'000'000;
  QStringList Mauvais;  // damaged ones that Noms() has put aside

  void Depose(const QString& nom, const QByteArray& message = "message", bool prioritaire = false,
              const QStringList& pour = {"anna@exemple.fr"}) {
    CourrielEnAttente courriel = Nomme(nom, Maintenant);
    courriel.Destinataires = pour;
    courriel.Prioritaire = prioritaire;
    ASSERT_EQ(B.PoseBrouillon(courriel, message), 0);
    ASSERT_TRUE(B.Publie(nom));
  }
  QString Fichiers() const { return QDir(Dossier).entryList(QDir::Files, QDir::Name).join(u'|'); }
  std::optional<qint64> PlusAncien() const {
    std::optional<qint64> faitA;
    EXPECT_EQ(B.LitPlusAncien(faitA), 0);
    return faitA;
  }
  QString Noms() {
    QStringList noms;
    for (const CourrielEnAttente& c : B.Liste(&Mauvais)) noms << c.Nom;
    return noms.join(u'|');
  }
};

/// A postman with a server that is played by hand.
struct Poste : Sac {
  PlafondHoraire Plafond;
  QStringList Recus;
  QStringList Demandes;  // whom each attempt was for
  QStringList Rapports;
  int Tentatives = 0;
  std::function<ResultatEnvoi(const QString&)> Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  std::unique_ptr<Facteur> F = Ouvre();

  std::unique_ptr<Facteur> Ouvre() {
    return std::make_unique<Facteur>(
        B, Plafond, [this] { return Maintenant; },
        [this](const CourrielEnAttente& c, const QByteArray&,
               const std::function<void(const QList<VerdictAdresse>&)>& surAccepte) {
          ++Tentatives;
          Demandes << c.Destinataires.join(u',') + (c.Sort.Allege ? " light" : "");
          ResultatEnvoi r = Serveur(c.Nom);
          if (r.Accepte) {
            Recus << c.Nom;
            surAccepte(r.Verdicts);
          }
          return r;
        },
        [this](const RapportEnvoi& r) {
          Rapports << r.Nom + (r.Resultat.Accepte ? " ok" : r.Resultat.Definitif ? " non" : " plus tard");
        });
  }
  /// Lets the postman work for so long.
  void Travaille(qint64 duree) {
    const qint64 fin = Maintenant + duree;
    const int avant = Tentatives;
    for (int tours = 0; Maintenant < fin; ++tours) {
      ASSERT_LT(tours, 20'000) << "it looks without a rest";
      ASSERT_LT(Tentatives - avant, 500) << "it tries without a rest";
      Maintenant += std::clamp<qint64>(F->Tour(), 1, fin - Maintenant);
    }
  }
};

}  // namespace vaktor::essai
