// SPDX-License-Identifier: GPL-3.0-or-later
// One mail as text on the wire: header fields, a text part and JPEG attachments.
// Sources: RFC 5322 (message), RFC 2045/2046 (MIME, multipart/mixed), RFC 2047 (encoded words), RFC 2183 and RFC 2231
// (attachment names).
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

namespace vaktor {

struct PieceJointe {
  QString Nom;         ///< file name as the reader sees it
  QByteArray Contenu;  ///< the whole file
};

struct Courriel {
  QString Expediteur;         ///< one address; empty: no such field
  QStringList Destinataires;  ///< one address or more
  QString Sujet;
  QString Corps;  ///< lines end in CR LF, LF or CR: all become CR LF
  QDateTime Date;
  QString Identifiant;  ///< left part of the Message-ID; unique; letters, digits and "-", at most 60
  QList<PieceJointe> Pieces;
};

/// A message of ComposeMessage without its photos, `mots` behind its text in a paragraph of their own. Nothing for what
/// is no such message, and for one that has no photos.
QByteArray RetirePieces(const QByteArray& message, const QString& mots);

/// A message of ComposeMessage with this sender, in the place of its own or where it has none. Without `expediteur` it
/// comes back as it is.
QByteArray MetExpediteur(const QByteArray& message, const QString& expediteur);

/// The message with CR LF line ends, lines of at most 998 bytes, ready for SMTP DATA (dots not doubled: libcurl does).
/// Text in UTF-8, base64. CR and LF inside subject or names become blanks.
QByteArray ComposeMessage(const Courriel& courriel);

}  // namespace vaktor
