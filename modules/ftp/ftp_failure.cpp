// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/ftp_failure.h"

#include <curl/curl.h>

namespace vaktor {

namespace {

// RFC 959, 4.2; 522 is RFC 4217 and what servers say that want the session of the control connection again.
PrecisionFtp PreciseRefus(const QByteArray& refus, int code) {
  switch (code) {
    case 421:
      return PrecisionFtp::kComplet;
    case 425:
    case 522:
      return PrecisionFtp::kDonnees;
    case 452:
    case 552:
      return PrecisionFtp::kPlace;
    case 530: {
      // Most servers use one code for a bad password and for one guest too many.
      const QByteArray mots = refus.toLower();
      return mots.contains("too many") || mots.contains("maximum") ? PrecisionFtp::kComplet : PrecisionFtp::kAucune;
    }
    default:
      return PrecisionFtp::kAucune;
  }
}

}  // namespace

PrecisionFtp PreciseEchec(int code, const DialogueFtp& dialogue) {
  const PrecisionFtp refus = PreciseRefus(dialogue.Refus(), dialogue.CodeRefus());
  if (refus != PrecisionFtp::kAucune) return refus;
  if (dialogue.EstEtranger()) return PrecisionFtp::kPasFtp;
  // The last command asked for a second connection, and none came about.
  const bool donnees = dialogue.Verbe() == "EPSV" || dialogue.Verbe() == "PASV";
  switch (code) {
    case CURLE_COULDNT_CONNECT:
      return donnees ? PrecisionFtp::kDonnees : PrecisionFtp::kPersonne;
    case CURLE_OPERATION_TIMEDOUT:
      return donnees ? PrecisionFtp::kDonnees : PrecisionFtp::kDelai;
    case CURLE_FTP_WEIRD_PASV_REPLY:
    case CURLE_FTP_WEIRD_227_FORMAT:
    case CURLE_FTP_CANT_GET_HOST:
      return PrecisionFtp::kDonnees;
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
      return PrecisionFtp::kCertificat;
    case CURLE_USE_SSL_FAILED:  // asked for only where the server has spoken it before
      return PrecisionFtp::kTlsPerdu;
    case CURLE_SSL_CONNECT_ERROR:
      return PrecisionFtp::kTls;
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
    case CURLE_GOT_NOTHING:
    case CURLE_PARTIAL_FILE:
      return PrecisionFtp::kCoupure;
    default:
      return PrecisionFtp::kAucune;
  }
}

}  // namespace vaktor
