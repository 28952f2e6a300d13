#include "app/registry_texts.h"

#include "settings/ansi_code_page.h"

namespace vaktor {

namespace {

constexpr quint32 kChaine = 1;
constexpr quint32 kOctets = 3;

QString JointCle(const QString& cle, const QString& sousCle) { return cle + QLatin1Char('\\') + sousCle; }

QByteArray OctetsAnsi(const QString& texte) {
  QByteArray octets;
  for (const QChar caractere : texte) octets.append(static_cast<char>(CodeAnsi(caractere).value_or('?')));
  return octets;
}

QString PremierMot16(const QByteArray& octets) {
  if (octets.size() < 2) return {};
  const auto bas = static_cast<quint8>(octets.at(0));
  const auto haut = static_cast<quint8>(octets.at(1));
  return QString::number(static_cast<qint16>(static_cast<quint16>(bas | (haut << 8))));
}

}  // namespace

QString TexteValeur(const std::optional<ValeurRegistre>& valeur) {
  if (!valeur) return {};
  if (valeur->Type == kOctets) return PremierMot16(valeur->Octets);
  if (valeur->Type != kChaine) return {};
  const qsizetype nul = valeur->Octets.indexOf('\0');
  return TexteAnsi(nul < 0 ? valeur->Octets : valeur->Octets.left(nul));
}

QString LitRegistreUtilisateur(const RegistreSysteme& registre, const QString& cle, const QString& sousCle,
                               const QString& nom, const QString& defaut) {
  const QString texte = TexteValeur(registre.LitValeur(RacineRegistre::kUtilisateur, JointCle(cle, sousCle), nom));
  return texte.isEmpty() ? defaut : texte;
}

void EcritRegistreUtilisateur(RegistreSysteme& registre, const QString& cle, const QString& sousCle, const QString& nom,
                              const QString& donnee) {
  registre.EcritValeur(JointCle(cle, sousCle), nom, {.Type = kChaine, .Octets = OctetsAnsi(donnee)});
}

}  // namespace vaktor
