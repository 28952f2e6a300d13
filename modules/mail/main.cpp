// VAKTORmail: sends the mails of the alarm.
#include "modules/common/module_program.h"
#include "modules/mail/mail_module.h"

int main(int argc, char** argv) {
  using namespace vaktor;
  const DescriptionModule description{Compagnon::kMail, QStringLiteral(VAKTOR_VERSION),
                                      QString::fromUtf8("Envoie les mails de l'alarme de Vaktor."),
                                      QStringLiteral("Sends the mails of the alarm of Vaktor.")};
  return ExecuteModule(argc, argv, description,
                       [](const ContexteModule& contexte) { return std::make_unique<ModuleMail>(contexte); });
}
