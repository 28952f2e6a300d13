// A tree of mail accounts in memory, with steps that fail, and a count of the keys that are open.
#pragma once

#include <QList>
#include <QMap>
#include <QStringList>

#include "companions/ports/mail_registry.h"

namespace vaktor::faux {

inline const QString kRacineComptes = QStringLiteral("Software\\Microsoft\\Internet Account Manager");

class RegistreFaux : public RegistreComptes {
 public:
  struct Valeur {
    QString Nom;
    QByteArray Donnee;
    long Resultat = kSucces;  ///< any other: the step fails and hands nothing over
  };
  struct Dossier {
    QStringList Cles;
    QList<Valeur> Valeurs;
  };

  /// A text value as it is stored: with its closing NUL.
  static QByteArray Texte(const QString& texte) { return texte.toUtf8() + '\0'; }
  /// A number as it is stored: four bytes, low one first.
  static QByteArray Nombre(quint32 n) {
    QByteArray octets;
    for (int i = 0; i < 4; ++i) octets.append(static_cast<char>(n >> (8 * i) & 0xff));
    return octets;
  }

  /// The key of the accounts is there, with no account in it.
  void CreeRacine() {
    Arbre[kRacineComptes];
    Arbre[kRacineComptes + QStringLiteral("\\Accounts")];
  }
  /// One account; an empty server, address or user is not stored.
  void AjouteCompte(const QString& cle, const QString& serveur, const QString& adresse, const QString& user = {},
                    quint32 port = 25) {
    CreeRacine();
    Arbre[kRacineComptes + QStringLiteral("\\Accounts")].Cles.append(cle);
    Dossier& compte = Compte(cle);
    const auto texte = [&](const char* nom, const QString& valeur) {
      if (!valeur.isEmpty()) compte.Valeurs.append({QLatin1String(nom), Texte(valeur)});
    };
    texte("SMTP Server", serveur);
    texte("SMTP Email Address", adresse);
    texte("SMTP User Name", user);
    compte.Valeurs.append({QStringLiteral("SMTP Port"), Nombre(port)});
  }
  Dossier& Compte(const QString& cle) { return Arbre[kRacineComptes + QStringLiteral("\\Accounts\\") + cle]; }
  void NommeDefaut(const QString& cle) {
    CreeRacine();
    Arbre[kRacineComptes].Valeurs = {{QStringLiteral("Default Mail Account"), Texte(cle)}};
  }
  void Efface() { Arbre.clear(); }

  Cle OuvreCle(const QString& chemin) override {
    if (!Arbre.contains(chemin)) return 0;
    Ouvertes.insert(++Derniere_, chemin);
    Lues.append(chemin);
    return Derniere_;
  }
  long EnumereCle(Cle cle, quint32 index, QString& nom) override {
    const QStringList& cles = Arbre[Ouvertes.value(cle)].Cles;
    if (index >= cles.size()) return kPlusDElements;
    if (cles.at(index) == QStringLiteral("!")) return kErreur;
    nom = cles.at(index);
    return kSucces;
  }
  long EnumereValeur(Cle cle, quint32 index, QString& nom, QByteArray& donnee) override {
    const QList<Valeur>& valeurs = Arbre[Ouvertes.value(cle)].Valeurs;
    if (index >= valeurs.size()) return kPlusDElements;
    ++Pas;
    if (valeurs.at(index).Resultat == kSucces || valeurs.at(index).Resultat == kTropLong) {
      nom = valeurs.at(index).Nom;
      donnee = valeurs.at(index).Donnee;
    }
    return valeurs.at(index).Resultat;
  }
  void FermeCle(Cle cle) override { Ouvertes.remove(cle); }

  static constexpr long kErreur = 5;
  static constexpr long kTropLong = 234;  ///< a result that is no success and hands something over all the same

  QMap<QString, Dossier> Arbre;
  QMap<Cle, QString> Ouvertes;
  QStringList Lues;  ///< keys in the order in which they were opened
  qint32 Pas = 0;    ///< steps over values

 private:
  Cle Derniere_ = 0;
};

}  // namespace vaktor::faux
