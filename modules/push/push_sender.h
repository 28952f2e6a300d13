// SPDX-License-Identifier: GPL-3.0-or-later
// One push: one HTTP POST. Blocks: lives on a thread of its own. Sources: RFC 9110 (HTTP), RFC 2047 (words in headers).
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

#include "modules/push/push_settings.h"

namespace vaktor {

/// The picture is the body and the words stand in headers, as servers for pushes and webhooks want it: "Title",
/// "Message", "Filename". Without a picture the words are the body.
struct MessagePush {
  QString Titre;
  QString Texte;
  QString NomImage;
  QByteArray Image;
  bool operator==(const MessagePush&) const = default;
};

enum class IssuePush {
  kPris,
  kTropGrand,   ///< 413: the same without its picture may pass
  kRefuse,      ///< another 4xx: this one will never be taken
  kAcces,       ///< 401 or 403: the header lets nobody in
  kAdresse,     ///< 404, 405, 410, or a redirection, which is not followed: the header would go to somebody else
  kCertificat,  ///< the server's certificate is not to be trusted
  kPanne,       ///< nobody answers, 5xx, 408, 425, 429: later
  kInterrompu   ///< our own end
};

struct ResultatPush {
  IssuePush Issue = IssuePush::kPanne;
  int Code = 0;  ///< of HTTP; 0 for none
  QString Mots;  ///< the first of what the server said, else the library's words; one line, at most 300 characters
  /// No answer, and it went wrong when the body was on its way: what a path cannot carry, or a watcher on it cuts off.
  /// Another push may well pass.
  bool Coupe = false;
};

struct DelaisPush {
  long Connexion = 20;  ///< seconds
  long Silence = 30;    ///< seconds without a byte, in either direction
  long Tout = 300;      ///< seconds for all of it
};

/// `arret` is asked about once a second; true ends it.
ResultatPush EnvoiePush(const ReglagesPush& reglages, const MessagePush& message, const std::function<bool()>& arret,
                        const DelaisPush& delais = {});

/// A text as the value of a header: ASCII as it stands, all else as encoded words; line breaks become blanks.
QByteArray CodeEntete(const QString& texte);

}  // namespace vaktor
