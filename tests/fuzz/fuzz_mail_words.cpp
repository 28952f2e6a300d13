// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as a field of addresses, any bytes as what a mail server says and as a mail that waits.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "base/mail_addresses.h"
#include "modules/mail/mime_message.h"
#include "modules/mail/smtp_dialogue.h"

namespace vaktor {
namespace {

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

// Whatever is taken for an address adds neither a header nor a command, nor an option to a mail program.
void EssaieAdresses(const QString& champ) {
  for (const bool locales : {false, true}) {
    const AdressesLues lues = LitAdresses(champ, locales);
    for (const QString& adresse : lues.Bonnes) {
      Exige(!adresse.isEmpty() && !adresse.startsWith(u'-') && !adresse.startsWith(u'|'));
      Exige(std::ranges::none_of(adresse,
                                 [](QChar c) { return c.isSpace() || c.unicode() < 0x20 || c == u'<' || c == u'>'; }));
      Exige(locales || adresse.contains(u'@'));
    }
    Exige(lues.Bonnes.size() + lues.Mauvaises.size() <= champ.size() + 1);
  }
}

// Lines of the server, and between them the commands that libcurl would send.
void EssaieServeur(const QByteArray& octets) {
  int acceptes = 0;
  RappelsEnvoi rappels;
  rappels.SurAccepte = [&acceptes](const QList<VerdictAdresse>&) { ++acceptes; };
  rappels.Suivi = [](const QString&, const QString& reponse) { Exige(reponse.size() <= 300); };
  DialogueSmtp dialogue(rappels, {QStringLiteral("a@b"), QStringLiteral("c@d")});
  static constexpr const char* kCommandes[] = {
      "EHLO x", "AUTH PLAIN eA==", "MAIL FROM:<a@b>", "RCPT TO:<a@b>", "RCPT TO:<c@d>", "DATA", "QUIT"};
  std::size_t commande = 0;
  for (const QByteArray& ligne : octets.split('\n')) {
    dialogue.NoteLigne(ligne);
    if (!ligne.contains('-') && commande < std::size(kCommandes)) dialogue.NoteCommande(kCommandes[commande++]);
  }
  Exige(dialogue.Verdicts().size() <= 2);
  Exige(acceptes <= 1 && (acceptes == 1) == dialogue.EstAccepte());
  if (dialogue.ARefuse()) Exige(dialogue.CauseRefus() != CauseEchec::kAucune);
}

void EssaieCourriel(const QByteArray& octets) {
  const QByteArray leger = RetirePieces(octets, QStringLiteral("mots"));
  Exige(leger.isEmpty() || leger.contains("\r\n\r\n"));
  Exige(MetExpediteur(octets, QString()) == octets);
  Exige(MetExpediteur(octets, QStringLiteral("moi@b")).contains("From: <moi@b>\r\n"));
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const QByteArray octets(reinterpret_cast<const char*>(donnees), static_cast<qsizetype>(taille));
  vaktor::EssaieAdresses(QString::fromUtf8(octets));
  vaktor::EssaieServeur(octets);
  vaktor::EssaieCourriel(octets);
  return 0;
}
