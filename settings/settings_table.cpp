#include "settings/settings_table.h"

#include <QLatin1StringView>
#include <algorithm>
#include <array>
#include <cmath>

#include "base/failure.h"
#include "base/numbers.h"
#include "settings/password_scrambling.h"

namespace vaktor {
namespace {

using enum FormeStockee;
using P = Parametres;
using C = ControleParametre;

constexpr const char* kGeneral = "general";
constexpr const char* kPhoto = "PHOTO";
constexpr const char* kSon = "SON";
constexpr const char* kMail = "MAIL";
constexpr const char* kFtp = "FTP";

// Three things stand out. The box CheckMail is filled at the end of the MAIL block only, so it hangs on the last row of
// it. The fields of the FTP page wait for the end of the load, see persistent_settings.cpp. The mail password is the
// last value of a save, behind the FTP block.
constexpr std::array<LigneReglage, kNombreCles> kTable = {{
    // clang-format off
    // section, key, form, default, load, save, variable, control, range
    {kGeneral, "retard", Entier, "10", 1, 1, &P::Retard},
    {kGeneral, "langue", Entier, "0", 2, 2, &P::LangueCourante},
    {kGeneral, "seuilauto", Drapeau, "1", 3, 3, &P::SeuilAuto, C::ChkSeuilAuto},
    {kGeneral, "seuil", Entier, "0", 4, 4, &P::SeuilDetection},
    {kGeneral, "skin", Entier, "0", 5, 5, &P::IndexSkin, C::CombSkin, -1, 2},
    {kPhoto, "nombrephoto", Entier, "10000", 6, 6, &P::NombrePhotoMax},
    {.Section = kPhoto, .Cle = "repertoire", .Forme = Texte, .Defaut = "\\intrus", .RangChargement = 7,
     .RangSauvegarde = 7, .Champ = &P::RepertoirePhoto, .SousDossier = true},
    {kPhoto, "actif", Drapeau, "0", 8, 8, &P::PhotoActif, C::CheckPPhot},
    {kSon, "index", Entier, "0", 9, 9, &P::IndexSon},
    {kSon, "actif", Drapeau, "1", 10, 10, &P::SonActif, C::CheckSon},
    {kSon, "Repertoire", Texte, "", 11, 11, &P::FichierSon},
    {kMail, "actif", Drapeau, "0", 12, 12, &P::MailActif},
    {kMail, "destination", Texte, "", 13, 13, &P::MailDestination, C::TextEMail},
    {kMail, "sujet", Texte, "Intrusion", 14, 14, &P::MailSujet, C::TextSujet},
    {kMail, "corp", Texte, "Intrusion", 15, 15, &P::MailCorps, C::TextTexte},
    {kMail, "nombrephoto", Texte, "10", 16, 16, &P::MailNombrePhoto, C::TxtNbrPhoto},
    {kMail, "nombremail", Texte, "1", 17, 17, &P::MailNombreMail, C::TextNbrMail},
    {kMail, "smtpserveur", Texte, "", 18, 18, &P::SmtpServeur},
    {kMail, "smtpfrom", Texte, "", 19, 19, &P::SmtpFrom},
    {kMail, "smtpport", Texte, "25", 20, 20, &P::SmtpPort},
    {kMail, "smtpuser", Texte, "", 21, 21, &P::SmtpUser},
    {kMail, "smtpactif", Booleen, "1", 22, 22, &P::SmtpActif},
    {kMail, "smtpneedlogin", Booleen, "1", 23, 23, &P::SmtpNeedLogin},
    {kMail, "pass", Brouille, "", 24, 35, &P::SmtpPass, C::CheckMail},
    {kFtp, "html", Texte, "", 25, 24, &P::AdresseHtml},
    {kFtp, "ftp", Texte, "", 26, 25, &P::AdresseFtp},
    {kFtp, "user", Texte, "", 27, 26, &P::UtilisateurFtp},
    {kFtp, "racine", Texte, "/", 28, 27, &P::RepertoireFtp},
    {kFtp, "refresh", Texte, "10", 29, 28, &P::IntervalleFtp},
    {kFtp, "qualitephoto", Entier, "2", 30, 29, &P::IndexQualite, {}, 0, 3},
    {kFtp, "couleur", Entier, "3", 31, 30, &P::IndexCouleurPage},
    {kFtp, "rapportnombrephoto", Entier, "50", 32, 33, &P::NbrPhotosPage},
    {kFtp, "pass", Brouille, "", 33, 34, &P::MotDePasseFtp},
    {kFtp, "width", Mesure, "", 0, 31, {}},
    {kFtp, "height", Mesure, "", 0, 32, {}},
    // clang-format on
}};

constexpr std::array<const LigneReglage*, kNombreCles> RangeSauvegarde() {
  std::array<const LigneReglage*, kNombreCles> ordre{};
  for (const LigneReglage& ligne : kTable) ordre[static_cast<std::size_t>(ligne.RangSauvegarde - 1)] = &ligne;
  return ordre;
}

constexpr std::array<const LigneReglage*, kNombreCles> kOrdreSauvegarde = RangeSauvegarde();

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

}  // namespace

std::span<const LigneReglage> TableReglages() { return kTable; }
std::span<const LigneReglage* const> OrdreSauvegarde() { return kOrdreSauvegarde; }

QString NomReglage(const LigneReglage& ligne) {
  return QLatin1StringView(ligne.Section) + u'/' + QLatin1StringView(ligne.Cle);
}

QString DefautReglage(const LigneReglage& ligne, const QString& dossierProgramme) {
  const QLatin1StringView defaut(ligne.Defaut);
  return ligne.SousDossier ? dossierProgramme + defaut : QString(defaut);
}

void LitValeur(const LigneReglage& ligne, const QString& texte, Parametres& parametres) {
  if (const auto* entier = std::get_if<qint32 P::*>(&ligne.Champ)) {
    parametres.*(*entier) = LitEntier(ligne, texte);
  } else if (const auto* octet = std::get_if<quint8 P::*>(&ligne.Champ)) {
    parametres.*(*octet) = static_cast<quint8>(LitEntier(ligne, texte));
  } else if (const auto* drapeau = std::get_if<bool P::*>(&ligne.Champ)) {
    parametres.*(*drapeau) = LitBooleen(texte);
  } else if (const auto* chaine = std::get_if<QString P::*>(&ligne.Champ)) {
    parametres.*(*chaine) = ligne.Forme == Brouille ? DecryptePass(texte) : texte;
  }
}

QString TexteValeur(const LigneReglage& ligne, const Parametres& parametres) {
  if (const auto* entier = std::get_if<qint32 P::*>(&ligne.Champ)) return QString::number(parametres.*(*entier));
  if (const auto* octet = std::get_if<quint8 P::*>(&ligne.Champ)) return QString::number(parametres.*(*octet));
  if (const auto* drapeau = std::get_if<bool P::*>(&ligne.Champ)) {
    return TexteBooleen(parametres.*(*drapeau), ligne.Forme);
  }
  if (const auto* chaine = std::get_if<QString P::*>(&ligne.Champ)) {
    return ligne.Forme == Brouille ? CryptePass(parametres.*(*chaine)) : parametres.*(*chaine);
  }
  return {};
}

}  // namespace vaktor
