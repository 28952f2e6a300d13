#include "modules/ftp/ftp_module.h"

namespace vaktor {

void ModuleFtp::PrendReglages(const ReglagesModule& /*reglages*/) {}

void ModuleFtp::Enregistre() { Contexte_.Dis(QStringLiteral("*OKO*")); }

void ModuleFtp::ExecuteCommande(const QString& mot) {
  // Not connecting yet is a failure that the user must see, and not a switch that stays on in vain.
  Contexte_.Dis(mot == QLatin1String("Decon") ? QStringLiteral("Decon") : QStringLiteral("ErrCo"));
}

void ModuleFtp::Termine() { Contexte_.Quitte(); }

}  // namespace vaktor
