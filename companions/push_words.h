// SPDX-License-Identifier: GPL-3.0-or-later
// The two fields of the push: what stands beside them, and what is wrong with what was typed.
#pragma once

#include <QString>

#include "texts/language.h"

namespace vaktor {

QString MotsPushAdresse(Langue langue);
QString AidePushAdresse(Langue langue);
QString MotsPushEntete(Langue langue);
QString AidePushEntete(Langue langue);

/// The button that tries it: for those who hear the form, and what it does. Its own word is that of every rehearsal.
QString NomEssaiPush(Langue langue);
QString AideEssaiPush(Langue langue);

/// Something was typed that is no address of the web. What the companion tells of it comes with the next alarm only.
bool EstPushAdresseMauvaise(const QString& adresse);
/// Something was typed that is no "Name: value".
bool EstPushEnteteMauvais(const QString& entete);

}  // namespace vaktor
