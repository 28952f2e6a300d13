// SPDX-License-Identifier: GPL-3.0-or-later
// A settings store in memory that keeps a journal, for tests of rules.
#pragma once

#include <QMap>
#include <QStringList>

#include "base/failure.h"
#include "settings/ports/settings_store.h"

namespace vaktor {

/// What was written is readable at once, as in the real store; `Disque` is what other processes see.
class FauxMagasin : public MagasinReglages {
 public:
  QMap<QString, QString> Valeurs;  ///< by "section/key"
  QMap<QString, QString> Disque;   ///< Valeurs at the last Vide() that worked
  mutable QStringList Lus;         ///< "section/key" of each read, in order
  QStringList Ecrits;              ///< "section/key" of each write, in order; "*" for each Vide()
  AbimesMagasin Abime;             ///< Abimes
  bool RefuseEcriture = false;     ///< Vide() throws Echec(kAccesFichier, "disk full")

  QString LitReglage(const QString& section, const QString& cle, const QString& defaut) const override {
    Lus += section + u'/' + cle;
    return Valeurs.value(section + u'/' + cle, defaut);
  }
  void EcritReglage(const QString& section, const QString& cle, const QString& valeur) override {
    Ecrits += section + u'/' + cle;
    Valeurs.insert(section + u'/' + cle, valeur);
  }
  void Reprend(const QString& section, const QString& cle) override {
    const QString chemin = section + u'/' + cle;
    if (Disque.contains(chemin))
      Valeurs.insert(chemin, Disque.value(chemin));
    else
      Valeurs.remove(chemin);
  }
  void Vide() override {
    Ecrits += QStringLiteral("*");
    if (RefuseEcriture) throw Echec(kAccesFichier, QStringLiteral("disk full"));
    Disque = Valeurs;
  }
  AbimesMagasin Abimes() const override { return Abime; }
  QString Emplacement() const override { return QStringLiteral("/home/u/settings.ini"); }
};

}  // namespace vaktor
