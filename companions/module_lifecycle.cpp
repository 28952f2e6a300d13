#include "companions/module_lifecycle.h"

#include "base/failure.h"
#include "base/language.h"
#include "companions/contract/command_words.h"

namespace vaktor {

namespace {

constexpr int kErrantsMax = 64;  // a process that will not die must not hold the start up for ever

QString DecritAbsence(const QString& programme, qint32 langue) {
  return ChoisitLangue(langue,
                       QStringLiteral("Le programme %1 est introuvable ou ne peut pas être lancé. Réinstallez Vaktor."),
                       QStringLiteral("The program %1 is missing or cannot be started. Please install Vaktor again."))
      .arg(programme);
}

}  // namespace

bool ModulesCompagnons::TerminePid(const ProcessusVu& vu) {
  if (vu.Pid == 0) return false;
  return Processus_.TermineProcessus(vu);
}

std::optional<bool> ModulesCompagnons::TerminePremier(const QString& nom) {
  const QList<ProcessusVu> table = Processus_.PrendInstantane();
  for (const ProcessusVu& vu : table)
    if (vu.Nom.contains(nom, Qt::CaseInsensitive) || vu.NomAppele.contains(nom, Qt::CaseInsensitive))
      return TerminePid(vu);
  return std::nullopt;
}

QString ModulesCompagnons::TueProcessus(const QString& nom) {
  TerminePremier(nom);
  return {};
}

void ModulesCompagnons::LanceModules() {
  for (const Compagnon compagnon : kCompagnons) {
    // One process goes at each call. Repeated, because a start leaves one instance and no second stray behind it. One
    // that cannot be ended is passed over, and the new one started all the same.
    int errants = 0;
    while (errants < kErrantsMax && TerminePremier(DonneIdentite(compagnon).Programme).value_or(false)) ++errants;
  }
  for (const Compagnon compagnon : kCompagnons) {
    const QString programme = DonneIdentite(compagnon).Programme;
    if (!Processus_.LanceProgramme(Dossiers_.Executables + QLatin1Char('/') + programme))
      throw Echec(kFichierIntrouvable, DecritAbsence(programme, Reglages_.LangueCourante));
  }
}

}  // namespace vaktor
