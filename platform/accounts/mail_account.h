// One account of a mail program, as far as sending needs it.
#pragma once

#include <QByteArray>
#include <QList>

namespace vaktor {

/// Texts are UTF-8, as the mail program has them.
struct CompteMail {
  QByteArray Serveur;
  QByteArray Adresse;
  QByteArray Utilisateur;  ///< empty: the server wants no login
  qint64 Port = 0;         ///< as found; anything outside 1..65535 is no port

  bool operator==(const CompteMail&) const = default;
};

/// What the tree can carry and the rule above it can stand. See the sources for the reasons.
inline constexpr qsizetype kComptesMax = 21;
inline constexpr qint64 kPortMax = 32767;

/// Server and address are there, and each text can go to a server as it is: no control character (a line break in a
/// host name would end the command that it is put into) and short enough for the tree.
bool EstMontrable(const CompteMail& compte);

/// Accounts in the order in which they are shown. The first is the default one.
class ListeComptes {
 public:
  /// False when nothing more is taken. An account that cannot be shown or is there already is passed over.
  bool Ajoute(CompteMail compte);
  bool Pleine() const { return Comptes_.size() >= kComptesMax; }
  const QList<CompteMail>& Comptes() const { return Comptes_; }

 private:
  QList<CompteMail> Comptes_;
};

}  // namespace vaktor
