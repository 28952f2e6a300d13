// SPDX-License-Identifier: GPL-3.0-or-later
// The addresses of a field as a person types or pastes them. One reading for who sends the mails and for who shows the
// field, so that what is told beside it is what happens.
#pragma once

#include <QString>
#include <QStringList>

namespace vaktor {

struct AdressesLues {
  QStringList Bonnes;     ///< each once, in their order
  QStringList Mauvaises;  ///< what stands in the field and is no address, as it stands there
  bool operator==(const AdressesLues&) const = default;
};

/// "," and ";" part the addresses, but not within quotes or "<>"; blanks around them go. Of `"Name, First" <a@b>` the
/// address counts. What holds a blank, a control character (CR and LF among them) or "<>" is none, nor what a mail
/// program of the system would take for an option, a file or a command: so no address can add a header or a command.
/// `locales`: a name without "@" is an address too, that of a user of this machine.
AdressesLues LitAdresses(const QString& champ, bool locales = false);

}  // namespace vaktor
