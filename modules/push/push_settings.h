// SPDX-License-Identifier: GPL-3.0-or-later
// Where a push goes, from what the user has typed.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "settings/parameters.h"

namespace vaktor {

struct ReglagesPush {
  QByteArray Adresse;  ///< encoded, http or https; empty: no push is wanted
  QByteArray Entete;   ///< "Name: value", or empty
  QString Autorites;   ///< PEM file of trusted authorities in the place of those of the system; may be empty
  QString Hote = {};   ///< for people: of the address this alone may be told, its path is often as good as a password
  bool operator==(const ReglagesPush&) const = default;
};

/// What keeps a push from being sent.
enum class ManquePush {
  kRien,
  kAdresse,  ///< no address of the web: another scheme, no host
  kEntete    ///< no "Name: value", or with a line break in it, which would become a header of somebody else's making
};

struct PushLu {
  ReglagesPush Reglages;
  ManquePush Manque = ManquePush::kRien;
};

PushLu LitPush(const Parametres& valeurs, const QString& autorites);

/// What must not stand in a log: the value of the header, and of the address what stands beside its host, whole and in
/// the pieces that a server quotes alone.
QStringList DonneSecretsPush(const ReglagesPush& reglages);

}  // namespace vaktor
