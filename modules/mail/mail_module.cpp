#include "modules/mail/mail_module.h"

namespace vaktor {

// The sending itself is joined in a later change; until then an intrusion is only noted.
void ModuleMail::PrendReglages(const ReglagesModule&) {}

void ModuleMail::ExecuteCommande(const QString& mot) { Contexte_.Journal.Note(QStringLiteral("not sent yet: ") + mot); }

void ModuleMail::Termine() { Contexte_.Quitte(); }

}  // namespace vaktor
