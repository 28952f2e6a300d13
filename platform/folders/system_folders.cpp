// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/folders/system_folders.h"

#include <QDir>
#include <QFile>
#include <QPointer>
#include <new>

#include "platform/base/system_files.h"
#include "platform/folders/folder_access.h"
#include "platform/folders/mounted_volumes.h"

namespace vaktor {
namespace {

using namespace std::chrono_literals;

// A click may ask three times, the load of the form for one, and must not hold up window and detection for two seconds.
constexpr auto kDelaiRegard = 600ms;
constexpr auto kDelaiEcriture = 1500ms;

QByteArray LitTableMontages() {
  QFile table(QStringLiteral("/proc/self/mountinfo"));
  return table.open(QIODevice::ReadOnly) ? table.readAll() : QByteArray();
}

}  // namespace

ArbreDossiersSysteme::ArbreDossiersSysteme() : Relais_(std::make_shared<RelaisBoucle>()) {}

ArbreDossiersSysteme::~ArbreDossiersSysteme() { Relais_->Coupe(); }

// The names of the places stay French, as the form is.
QList<LieuDisque> ArbreDossiersSysteme::ListeLieux() const {
  QList<LieuDisque> lieux{{QStringLiteral("Dossier personnel"), QDir::homePath()}};
  for (const LieuDisque& volume :
       ListeVolumes(LitTableMontages(), [](const QString& p) { return DonneEtiquette(p); })) {
    if (volume.Chemin != lieux.first().Chemin) lieux += volume;
  }
  const LieuDisque racine{QStringLiteral("Racine"), QStringLiteral("/")};
  if (lieux.first().Chemin != racine.Chemin) lieux += racine;
  return lieux;
}

QString ArbreDossiersSysteme::DonneChemin(const QString& stocke) const {
  if (stocke.isEmpty()) return {};
  return QDir::cleanPath(QDir::current().absoluteFilePath(CheminNatif(stocke)));
}

EtatDossier ArbreDossiersSysteme::RegardeDossier(const QString& chemin) const {
  const QByteArray nom = QFile::encodeName(chemin);
  return Travaux_.Attend<EtatDossier>([nom] { return RegardeUnDossier(nom); }, kDelaiRegard)
      .value_or(EtatDossier::kSansReponse);
}

EtatDossier ArbreDossiersSysteme::EssaieEcriture(const QString& chemin) const {
  const QByteArray nom = QFile::encodeName(chemin);
  return Travaux_.Attend<EtatDossier>([nom] { return EssaieUneEcriture(nom); }, kDelaiEcriture)
      .value_or(EtatDossier::kSansReponse);
}

bool ArbreDossiersSysteme::CreeDossier(const QString& stocke) {
  return Travaux_.Attend<bool>([stocke] { return FichiersSysteme().CreeDossier(stocke); }, kDelaiRegard)
      .value_or(false);
}

std::optional<qint64> ArbreDossiersSysteme::EspaceLibre(const QString& chemin) const {
  using Octets = std::optional<qint64>;
  return Travaux_.Attend<Octets>([chemin] { return FichiersSysteme().EspaceLibre(chemin); }, kDelaiRegard)
      .value_or(std::nullopt);
}

void ArbreDossiersSysteme::LitDossiers(const QString& chemin, const QObject* pour, RecoitDossiers recoit) {
  const QByteArray nom = QFile::encodeName(chemin);
  const QPointer<const QObject> temoin(pour);
  const auto rendu = std::make_shared<RecoitDossiers>(std::move(recoit));
  const RecoitDossiers poste = [temoin, rendu, relais = Relais_](const Contenu& contenu) {
    relais->Poste([temoin, rendu, contenu] {
      if (temoin) (*rendu)(contenu);
    });
  };
  const bool lance = Travaux_.Lance([nom, poste] {
    try {
      LitUnDossier(nom, poste);
    } catch (const std::bad_alloc&) {
      poste({.Etat = EtatDossier::kAbsent});  // the reading is over, and whoever waits for it is told so
    }
  });
  if (!lance) poste({.Etat = EtatDossier::kAbsent});  // later, like every answer
}

QString DebutDeDialogue(const QString& voulu) {
  const bool repond = !voulu.isEmpty() && ArbreDossiersSysteme().RegardeDossier(voulu) == EtatDossier::kBon;
  return repond ? voulu : QDir::homePath();
}

}  // namespace vaktor
