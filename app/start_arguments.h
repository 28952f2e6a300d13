// SPDX-License-Identifier: GPL-3.0-or-later
// The start arguments.
#pragma once

#include <QString>
#include <QStringList>

#include "texts/language.h"

namespace vaktor {

struct ArgumentsDepart {
  QString Camera;         ///< WHERE of "/camera:WHERE"; empty: none named
  QString Dossier;        ///< PATH of "/dossier:PATH"; empty: none named
  QString LigneCommande;  ///< all the rest as one text, in which "/alarm" and "/surve" are looked for
  bool Aide = false;      ///< "--help"
  bool Version = false;   ///< "--version"
  bool Cameras = false;   ///< "--cameras"
};

/// What is switched on by itself (automatic_start.h).
struct ArgumentsAuto {
  bool Alarme = false;  ///< "/alarm"
  bool Live = false;    ///< "/surve"
};

/// Looks for both anywhere in `ligne`, in any case of letters.
ArgumentsAuto LitArgumentsAuto(const QString& ligne);

/// `arguments` without the program's own name: a program folder that happens to be called "alarm" arms nothing. Names
/// of arguments without regard to case. "/camera:" and "/dossier:" take the whole rest of their argument, blanks
/// included, and their text is not looked through for other arguments; of several the last counts.
ArgumentsDepart LitArgumentsDepart(const QStringList& arguments);

/// Those of `arguments` in which nothing is recognised. They are told and passed over: a detector that is started by a
/// machine must come up, whatever else stands in its command line.
QStringList TrouveInconnus(const QStringList& arguments);

/// What "--help" prints.
QString TexteAide(Langue langue);

}  // namespace vaktor
