#include "companions/mail_accounts.h"

#include <limits>

#include "base/failure.h"
#include "companions/smtp_words.h"

namespace vaktor {

namespace {

const QLatin1String kRacine("Software\\Microsoft\\Internet Account Manager");
const QLatin1String kComptes("Software\\Microsoft\\Internet Account Manager\\Accounts");
constexpr int kOctet = 256;

/// An open key, closed also when the reading fails.
class CleOuverte {
 public:
  CleOuverte(RegistreComptes& registre, const QString& chemin) : Registre_(registre), Cle_(registre.OuvreCle(chemin)) {}
  ~CleOuverte() {
    if (Cle_ != 0) Registre_.FermeCle(Cle_);
  }
  CleOuverte(const CleOuverte&) = delete;
  CleOuverte& operator=(const CleOuverte&) = delete;

  explicit operator bool() const { return Cle_ != 0; }
  RegistreComptes::Cle Cle() const { return Cle_; }

 private:
  RegistreComptes& Registre_;
  RegistreComptes::Cle Cle_;
};

// Each step starts on buffers full of blanks; one that fails leaves them so and counts as a step all the same.
QString DonneTampon() { return QString(RegistreComptes::kLongueurMax, u' '); }

}  // namespace

QByteArray ModuleRegistreCompteMail::LitValeurRegistre(const QString& cle, const QString& nom) const {
  const CleOuverte ouverte(Ports_.Registre, cle);
  if (!ouverte) return {};
  QByteArray trouve;
  // The walk goes on behind a match: of two values of one name the later one counts.
  for (quint32 index = 0;; ++index) {
    QString lu = DonneTampon();
    QByteArray donnee(RegistreComptes::kLongueurMax, ' ');
    if (Ports_.Registre.EnumereValeur(ouverte.Cle(), index, lu, donnee) == RegistreComptes::kPlusDElements)
      return trouve;
    if (donnee.isEmpty() || lu.left(RegistreComptes::kLongueurMax) != nom) continue;
    trouve = donnee.left(RegistreComptes::kLongueurMax).left(donnee.size() - 1);
  }
}

ModuleRegistreCompteMail::NomsCles ModuleRegistreCompteMail::LitNomsCles(RegistreComptes::Cle cle) const {
  NomsCles noms;
  for (quint32 index = 0;; ++index) {
    QString nom = DonneTampon();
    if (Ports_.Registre.EnumereCle(cle, index, nom) == RegistreComptes::kPlusDElements) return noms;
    if (index >= noms.size())
      throw Echec(kIndiceHorsPlage, MessageTropDeComptes(Ports_.Reglages.LangueCourante, ComptesMail::kCases));
    noms.at(index) = nom.left(RegistreComptes::kLongueurMax);
  }
}

void ModuleRegistreCompteMail::LitComptesMail(const std::function<void(const QString&)>& ajoute) {
  Ports_.Comptes.NbrComptes = 0;
  NomsCles noms;
  {
    const CleOuverte ouverte(Ports_.Registre, kComptes);
    if (!ouverte) return;
    noms = LitNomsCles(ouverte.Cle());
  }
  Ports_.Comptes.NomCompteDefaut =
      QString::fromUtf8(LitValeurRegistre(kRacine, QStringLiteral("Default Mail Account")));
  for (qsizetype i = 0; i < kClesLues; ++i) {
    const QString& nom = noms.at(static_cast<std::size_t>(i));
    if (nom.isEmpty()) continue;
    const CompteLu lu = LitCompte(nom);
    // The position among the keys: an unusable account before the default one makes it point at another slot. When no
    // key matches, the value of an earlier reading stays.
    if (nom == Ports_.Comptes.NomCompteDefaut) Ports_.Comptes.IndexCompteDefaut = static_cast<qint32>(i);
    RetientCompte(lu, ajoute);
    Ports_.Pompe.PompeMessages();
  }
}

ModuleRegistreCompteMail::CompteLu ModuleRegistreCompteMail::LitCompte(const QString& nomCle) const {
  const QString cle = kComptes + u'\\' + nomCle;
  const auto texte = [&](const char* nom) { return QString::fromUtf8(LitValeurRegistre(cle, QLatin1String(nom))); };
  return {.Serveur = texte("SMTP Server"),
          .Adresse = texte("SMTP Email Address"),
          .Utilisateur = texte("SMTP User Name"),
          .Port = LitValeurRegistre(cle, QStringLiteral("SMTP Port"))};
}

void ModuleRegistreCompteMail::RetientCompte(const CompteLu& lu, const std::function<void(const QString&)>& ajoute) {
  if (lu.Serveur.isEmpty() || lu.Adresse.isEmpty()) return;  // left out; later accounts move up
  ComptesMail& comptes = Ports_.Comptes;
  const auto place = static_cast<std::size_t>(comptes.NbrComptes);
  comptes.CompteServeur.at(place) = lu.Serveur;
  comptes.CompteAdresse.at(place) = lu.Adresse;
  comptes.CompteLogin.at(place) = !lu.Utilisateur.isEmpty();
  comptes.CompteUser.at(place) = lu.Utilisateur;
  comptes.ComptePort.at(place) = DecodePortSmtp(lu.Port, Ports_.Reglages.LangueCourante, lu.Adresse);
  ajoute(lu.Adresse);
  ++comptes.NbrComptes;
}

QString DecodePortSmtp(const QByteArray& brut, qint32 langue, const QString& adresse) {
  if (brut.isEmpty()) return QStringLiteral("25");
  int port = static_cast<quint8>(brut.at(0));
  if (brut.size() > 1) port += static_cast<quint8>(brut.at(1)) * kOctet;
  if (port > std::numeric_limits<qint16>::max()) throw Echec(kDepassement, MessagePortTropGrand(langue, adresse));
  return QString::number(port);
}

void ReprendCompte(const ComptesMail& comptes, qint32 index, Parametres& reglages) {
  const auto place = static_cast<std::size_t>(index);
  reglages.SmtpServeur = comptes.CompteServeur.at(place);
  reglages.SmtpFrom = comptes.CompteAdresse.at(place);
  reglages.SmtpNeedLogin = comptes.CompteLogin.at(place);
  reglages.SmtpUser = comptes.CompteUser.at(place);
  reglages.SmtpPort = comptes.ComptePort.at(place);
}

}  // namespace vaktor
