// SPDX-License-Identifier: GPL-3.0-or-later
// Why a camera of the network gives no picture, from the system's own word to the sentence: where the way ends, where
// nothing answers, who cannot prove who it is. None of it needs a network.
#include <QProcess>
#include <QRegularExpression>

#include "support/driver_fixture.h"
#include "support/full_port.h"

namespace vaktor {
namespace {

class RaisonReseau : public PiloteSurSource {
 protected:
  Motif Pourquoi(const QString& ou) {
    EXPECT_FALSE(Connecte(ou)) << qUtf8Printable(ou);
    EXPECT_EQ(Pilote_->Explication(), DitRaison(Pilote_->Pourquoi(), Langue::kAnglais)) << "as it is told";
    return Pilote_->Pourquoi().Quoi;
  }
};

// A server with a certificate that nobody has vouched for, as cameras have them from the factory.
class ServeurChiffre {
 public:
  explicit ServeurChiffre(const QString& dossier) {
    const QString cle = dossier + "/cle.pem";
    const QString certificat = dossier + "/certificat.pem";
    QProcess faiseur;
    faiseur.start("openssl", {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=127.0.0.1",
                              "-keyout", cle, "-out", certificat});
    EXPECT_TRUE(faiseur.waitForFinished() && faiseur.exitCode() == 0) << faiseur.readAllStandardError().toStdString();
    Serveur_.start("openssl", {"s_server", "-accept", "127.0.0.1:0", "-cert", certificat, "-key", cle});
    static const QRegularExpression kEcoute("ACCEPT .*:(\\d+)");
    QByteArray dit;
    while (Port_.isEmpty() && Serveur_.waitForReadyRead(10'000)) {
      dit += Serveur_.readAllStandardOutput();
      Port_ = kEcoute.match(QString::fromLatin1(dit)).captured(1);
    }
  }
  ~ServeurChiffre() {
    Serveur_.kill();
    Serveur_.waitForFinished();
  }
  ServeurChiffre(const ServeurChiffre&) = delete;
  ServeurChiffre& operator=(const ServeurChiffre&) = delete;
  const QString& Port() const { return Port_; }  ///< empty when it has not come up

 private:
  QProcess Serveur_;
  QString Port_;
};

TEST_F(RaisonReseau, ACertificateThatNobodyVouchesForIsNamed) {
  const ServeurChiffre serveur(Dossier_.path());
  ASSERT_FALSE(serveur.Port().isEmpty());
  for (const char* schema : {"https", "rtsps"}) {
    EXPECT_EQ(Pourquoi(QStringLiteral("%1://127.0.0.1:%2/x").arg(QLatin1String(schema), serveur.Port())),
              Motif::kCertificat)
        << schema;
  }
}

// The system finds no way for a connection to where all of a network hear, on a machine without any network too.
TEST_F(RaisonReseau, WhereTheNetworkDoesNotLeadIsNamed) {
  for (const char* schema : {"http", "rtsp", "https"}) {
    EXPECT_EQ(Pourquoi(QStringLiteral("%1://127.255.255.255:8080/x").arg(QLatin1String(schema))), Motif::kSansRoute)
        << schema;
  }
}

// All the time of a connection is waited for it, which costs no work.
TEST_F(RaisonReseau, AnAddressThatNeverAnswersIsNamed) {
  const essai::PortPlein plein;
  ASSERT_NE(plein.Port(), 0);
  EXPECT_EQ(Pourquoi(QStringLiteral("http://127.0.0.1:%1/x").arg(plein.Port())), Motif::kSansReponse);
}

}  // namespace
}  // namespace vaktor
