// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/ftp_dialogue.h"

#include <QList>
#include <algorithm>
#include <array>

namespace vaktor {

namespace {

constexpr qsizetype kMotsMax = 300;
constexpr int kPremierRefus = 400;
constexpr int kPret = 220;
constexpr std::array<const char*, 7> kFacultatifs = {"AUTH", "PBSZ", "PROT", "EPSV", "SYST", "FEAT", "DELE"};

}  // namespace

void DialogueFtp::NoteCommande(const QByteArray& ligne) {
  const qsizetype fin = std::min(ligne.indexOf(' '), ligne.indexOf('\r'));
  const QByteArray verbe = ligne.left(fin < 0 ? 4 : fin).trimmed().toUpper();
  Croise_ = !Repondu_ && Verbe_ == "STOR" && verbe == "PASV";
  if (!Croise_) Verbe_ = verbe;
  Repondu_ = false;
  if (Verbe_ == "USER" && Etape_) Etape_(EtapeFtp::kIdentification);
}

void DialogueFtp::NoteCle(const QString& cle) {
  Salue_ = true;
  if (Replique_) Replique_({}, "220 SFTP, " + cle.toLatin1());
  if (!Etape_) return;
  Etape_(EtapeFtp::kServeurTrouve);
  Etape_(EtapeFtp::kIdentification);
}

void DialogueFtp::NoteReponse(const QByteArray& lignes) {
  for (const QByteArray& ligne : lignes.split('\n')) NoteLigne(ligne.trimmed().left(kMotsMax));
}

void DialogueFtp::NoteLigne(const QByteArray& ligne) {
  if (ligne.isEmpty()) return;
  bool nombre = false;
  const int code = ligne.left(3).toInt(&nombre);
  const bool propre = nombre && ligne.size() >= 3;
  if (!propre && !Salue_) Etranger_ = true;
  if (Replique_ && (propre || Etranger_)) Replique_(Verbe_, ligne);
  if (!propre) return;
  Repondu_ = true;
  if (code == kPret && !Salue_) {
    Salue_ = true;
    if (Etape_) Etape_(EtapeFtp::kServeurTrouve);
  }
  const bool facultatif =
      std::any_of(kFacultatifs.begin(), kFacultatifs.end(), [this](const char* verbe) { return Verbe_ == verbe; });
  if (code >= kPremierRefus && !facultatif) Refus_ = ligne;
}

}  // namespace vaktor
