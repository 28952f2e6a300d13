// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_table.h"

#include <QLatin1StringView>
#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "base/failure.h"
#include "base/numbers.h"
#include "settings/password_scrambling.h"

namespace vaktor {
namespace {

using enum FormeStockee;
using P = Parametres;

constexpr const char* kGeneral = "general";
constexpr const char* kPhoto = "PHOTO";
constexpr const char* kSon = "SON";
constexpr const char* kMail = "MAIL";
constexpr const char* kFtp = "FTP";

// The mail password stands out: it is read with its section and saved behind the FTP block. What came later than these
// 35 keys stands, and is saved, behind all of them.
constexpr auto kTable = std::to_array<LigneReglage>({
    // clang-format off
    // section, key, form, default, variable, range
    {kGeneral, "retard", Entier, "10", &P::Retard},
    {kGeneral, "langue", Entier, "0", &P::LangueCourante},
    {kGeneral, "seuilauto", Drapeau, "1", &P::SeuilAuto},
    {kGeneral, "seuil", Entier, "0", &P::SeuilDetection},
    {kGeneral, "skin", Entier, "0", &P::IndexSkin, -1, 2},
    {kPhoto, "nombrephoto", Entier, "10000", &P::NombrePhotoMax},
    {.Section = kPhoto, .Cle = "repertoire", .Forme = Texte, .Defaut = "",
     .Champ = &P::RepertoirePhoto, .EstDossierPhotos = true},
    {kPhoto, "actif", Drapeau, "0", &P::PhotoActif},
    {kSon, "index", Entier, "0", &P::IndexSon},
    {kSon, "actif", Drapeau, "1", &P::SonActif},
    {kSon, "Repertoire", Texte, "", &P::FichierSon},
    {kMail, "actif", Drapeau, "0", &P::MailActif},
    {kMail, "destination", Texte, "", &P::MailDestination},
    {kMail, "sujet", Texte, "Intrusion", &P::MailSujet},
    {kMail, "corp", Texte, "Intrusion", &P::MailCorps},
    {kMail, "nombrephoto", Texte, "10", &P::MailNombrePhoto},
    {kMail, "nombremail", Texte, "1", &P::MailNombreMail},
    {kMail, "smtpserveur", Texte, "", &P::SmtpServeur},
    {kMail, "smtpfrom", Texte, "", &P::SmtpFrom},
    {kMail, "smtpport", Texte, "25", &P::SmtpPort},
    {kMail, "smtpuser", Texte, "", &P::SmtpUser},
    {kMail, "smtpactif", Booleen, "1", &P::SmtpActif},
    {kMail, "smtpneedlogin", Booleen, "1", &P::SmtpNeedLogin},
    {.Section = kMail, .Cle = "pass", .Forme = Brouille, .Defaut = "", .Champ = &P::SmtpPass, .EcritEnDernier = true},
    {kFtp, "html", Texte, "", &P::AdresseHtml},
    {kFtp, "ftp", Texte, "", &P::AdresseFtp},
    {kFtp, "user", Texte, "", &P::UtilisateurFtp},
    {kFtp, "racine", Texte, "/", &P::RepertoireFtp},
    {kFtp, "refresh", Texte, "10", &P::IntervalleFtp},
    {kFtp, "qualitephoto", Entier, "2", &P::IndexQualite, 0, 3},
    {kFtp, "couleur", Entier, "3", &P::IndexCouleurPage},
    {kFtp, "width", Mesure, "", {}},
    {kFtp, "height", Mesure, "", {}},
    {kFtp, "rapportnombrephoto", Entier, "50", &P::NbrPhotosPage},
    {kFtp, "pass", Brouille, "", &P::MotDePasseFtp},
    {.Section = kMail, .Cle = "smtpsanschiffrement", .Forme = Drapeau, .Defaut = "0", .Champ = &P::SmtpSansChiffrement,
     .EcritEnDernier = true},
    {.Section = kMail, .Cle = "smtpjeton", .Forme = Texte, .Defaut = "", .Champ = &P::SmtpJeton,
     .EcritEnDernier = true},
    {.Section = kMail, .Cle = "signedevie", .Forme = Entier, .Defaut = "-1", .Champ = &P::HeureSigneDeVie,
     .Minimum = -1, .Maximum = 23, .EcritEnDernier = true},
    {.Section = kMail, .Cle = "pushadresse", .Forme = Texte, .Defaut = "", .Champ = &P::PushAdresse,
     .EcritEnDernier = true},
    {.Section = kMail, .Cle = "pushentete", .Forme = Secret, .Defaut = "", .Champ = &P::PushEntete,
     .EcritEnDernier = true},
    {.Section = kFtp, .Cle = "placefichiers", .Forme = Entier, .Defaut = "2000", .Champ = &P::PlaceFichiers,
     .EcritEnDernier = true},
    {.Section = kFtp, .Cle = "placemo", .Forme = Entier, .Defaut = "200", .Champ = &P::PlaceMo,
     .EcritEnDernier = true},
    // clang-format on
});

// What a new row may get wrong without a word of the compiler: a form that does not fit its variable, and a key or a
// variable that an earlier row has already.
constexpr bool EstDuType(const LigneReglage& ligne) {
  switch (ligne.Forme) {
    case Entier:
      return std::holds_alternative<qint32 P::*>(ligne.Champ) || std::holds_alternative<quint8 P::*>(ligne.Champ);
    case Texte:
    case Brouille:
    case Secret:
      return std::holds_alternative<QString P::*>(ligne.Champ);
    case Drapeau:
    case Booleen:
      return std::holds_alternative<bool P::*>(ligne.Champ);
    case Mesure:
      return std::holds_alternative<std::monostate>(ligne.Champ);
  }
  return false;
}

constexpr bool SeGenent(const LigneReglage& a, const LigneReglage& b) {
  const bool memeCle = std::string_view(a.Section) == b.Section && std::string_view(a.Cle) == b.Cle;
  return memeCle || (EstLue(a) && a.Champ == b.Champ);
}

constexpr bool EstEnOrdre() {
  for (std::size_t i = 0; i < kTable.size(); ++i) {
    if (!EstDuType(kTable.at(i))) return false;
    for (std::size_t j = 0; j < i; ++j) {
      if (SeGenent(kTable.at(i), kTable.at(j))) return false;
    }
  }
  return true;
}
static_assert(EstEnOrdre());

constexpr std::array<const LigneReglage*, kTable.size()> RangeSauvegarde() {
  std::array<const LigneReglage*, kTable.size()> ordre{};
  std::size_t rang = 0;
  for (const bool dernier : {false, true}) {
    for (const LigneReglage& ligne : kTable) {
      if (ligne.EcritEnDernier == dernier) ordre.at(rang++) = &ligne;
    }
  }
  return ordre;
}

constexpr std::array<const LigneReglage*, kTable.size()> kOrdreSauvegarde = RangeSauvegarde();

qint32 LitEntier(const LigneReglage& ligne, const QString& texte) {
  const qint32 valeur = TexteEnEntier(texte);
  if (valeur < ligne.Minimum || valeur > ligne.Maximum) {
    throw Echec(kIndiceHorsPlage, QStringLiteral("Subscript out of range"));
  }
  return valeur;
}

// Not by TexteEnEntier: 0.4 is another number than 0 and so true, and there is no number too large to be true.
bool LitBooleen(const QString& texte) {
  const QString mot = texte.trimmed();
  if (mot.compare(QLatin1StringView("True"), Qt::CaseInsensitive) == 0) return true;
  if (mot.compare(QLatin1StringView("False"), Qt::CaseInsensitive) == 0) return false;
  bool lisible = false;
  const double valeur = mot.toDouble(&lisible);
  if (!lisible || !std::isfinite(valeur)) throw Echec(kTypeIncompatible, QStringLiteral("Type mismatch"));
  return valeur != 0.0;
}

QString TexteBooleen(bool valeur, FormeStockee forme) {
  if (forme == Drapeau) return valeur ? QStringLiteral("1") : QStringLiteral("0");
  return valeur ? QStringLiteral("True") : QStringLiteral("False");
}

constexpr bool EstBrouillee(FormeStockee forme) { return forme == Brouille || forme == Secret; }

QString BrouilleTexte(FormeStockee forme, const QString& clair) {
  if (!EstBrouillee(forme)) return clair;
  const QString brouille = CryptePass(clair);
  return forme == Secret && DecryptePass(brouille) != clair ? clair : brouille;
}

}  // namespace

std::span<const LigneReglage> TableReglages() { return kTable; }
std::span<const LigneReglage* const> OrdreSauvegarde() { return kOrdreSauvegarde; }

QString NomReglage(const LigneReglage& ligne) {
  return QLatin1StringView(ligne.Section) + u'/' + QLatin1StringView(ligne.Cle);
}

QString DefautReglage(const LigneReglage& ligne, const QString& dossierPhotos) {
  return ligne.EstDossierPhotos ? dossierPhotos : QLatin1StringView(ligne.Defaut);
}

void LitValeur(const LigneReglage& ligne, const QString& texte, Parametres& parametres) {
  if (const auto* entier = std::get_if<qint32 P::*>(&ligne.Champ)) {
    parametres.*(*entier) = LitEntier(ligne, texte);
  } else if (const auto* octet = std::get_if<quint8 P::*>(&ligne.Champ)) {
    parametres.*(*octet) = static_cast<quint8>(LitEntier(ligne, texte));
  } else if (const auto* drapeau = std::get_if<bool P::*>(&ligne.Champ)) {
    parametres.*(*drapeau) = LitBooleen(texte);
  } else if (const auto* chaine = std::get_if<QString P::*>(&ligne.Champ)) {
    parametres.*(*chaine) = EstBrouillee(ligne.Forme) ? DecryptePass(texte) : texte;
  }
}

QString TexteValeur(const LigneReglage& ligne, const Parametres& parametres) {
  if (const auto* entier = std::get_if<qint32 P::*>(&ligne.Champ)) return QString::number(parametres.*(*entier));
  if (const auto* octet = std::get_if<quint8 P::*>(&ligne.Champ)) return QString::number(parametres.*(*octet));
  if (const auto* drapeau = std::get_if<bool P::*>(&ligne.Champ)) {
    return TexteBooleen(parametres.*(*drapeau), ligne.Forme);
  }
  if (const auto* chaine = std::get_if<QString P::*>(&ligne.Champ)) {
    return BrouilleTexte(ligne.Forme, parametres.*(*chaine));
  }
  return {};
}

}  // namespace vaktor
