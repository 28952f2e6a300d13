// SPDX-License-Identifier: GPL-3.0-or-later
// VAKTORmail: sends the mails of the alarm.
#include <QDateTime>
#include <QRandomGenerator>
#include <algorithm>
#include <cstring>
#include <vector>

#include "modules/common/module_program.h"
#include "modules/mail/mail_module.h"
#include "modules/mail/rehearsal.h"
#include "modules/push/mail_and_push.h"
#include "modules/push/push_rehearsal.h"

namespace vaktor {
namespace {

/// The arguments that are this companion's own, taken out of argv; the others are for ExecuteModule.
struct Arguments {
  std::vector<char*> Autres;
  QString Autorites;
  bool Repetition = false;
};

Arguments TrieArguments(int argc, char** argv) {
  Arguments arguments;
  arguments.Autorites = qEnvironmentVariable("SSL_CERT_FILE");  // as for the page
  for (int i = 0; i < argc; ++i) {
    if (std::strcmp(argv[i], "--ca-file") == 0 && i + 1 < argc)
      arguments.Autorites = QString::fromLocal8Bit(argv[++i]);
    else if (std::strcmp(argv[i], "--try") == 0)
      arguments.Repetition = true;
    else
      arguments.Autres.push_back(argv[i]);
  }
  return arguments;
}

DescriptionModule DonneDescription() {
  return {Compagnon::kMail, QStringLiteral(VAKTOR_VERSION),
          QString::fromUtf8("Envoie les mails de l'alarme de Vaktor."),
          QStringLiteral("Sends the mails of the alarm of Vaktor."),
          QString::fromUtf8(
              "VAKTORmail --try\n"
              "  Lit un objet JSON avec les paramètres sur l'entrée standard, envoie un mail et montre chaque étape.\n"
              "  Reads a JSON object with the settings from standard input, sends one mail and shows each step.\n"
              "    {\"destination\":\"\", \"sujet\":\"\", \"corp\":\"\", \"smtpserveur\":\"\", \"smtpport\":587,\n"
              "     \"smtpfrom\":\"\", \"smtpuser\":\"\", \"pass\":\"\", \"smtpneedlogin\":true, \"langue\":0}\n"
              "  Ou un push / or one push:\n"
              "    {\"pushadresse\":\"\", \"pushentete\":\"\", \"sujet\":\"\", \"langue\":0}\n"
              "--ca-file FILE\n"
              "  Autorités de certification en plus de celles du système (PEM).\n"
              "  Certificate authorities beside those of the system (PEM).\n\n")};
}

std::unique_ptr<ModulePush> CreePush(const ContexteModule& contexte, const QString& autorites, EtatModule& etat) {
  PortsPush ports{.DossierSac = contexte.Dossiers.Etat + QStringLiteral("/push"),
                  .DossierVeille = contexte.Dossiers.CheminVeille(),
                  .Marque = QString::number(QRandomGenerator::system()->generate64(), 36),
                  .Autorites = autorites,
                  .Etat = etat,
                  .Maintenant = [] { return QDateTime::currentMSecsSinceEpoch(); },
                  .OuvrePoste = {}};
  ports.OuvrePoste = [dossier =
                          ports.DossierSac](const FacteurPush::Rapporteur& surRapport) -> std::unique_ptr<PostePush> {
    return std::make_unique<FilPush>(dossier, surRapport);
  };
  return std::make_unique<ModulePush>(contexte, ports);
}

std::unique_ptr<Module> CreeMail(const ContexteModule& contexte, const QString& autorites) {
  PortsMail ports;
  ports.DossierSac = contexte.Dossiers.Etat + QStringLiteral("/courrier");
  ports.DossierVeille = contexte.Dossiers.CheminVeille();
  ports.Marque = QString::number(QRandomGenerator::system()->generate64(), 36);
  ports.Autorites = autorites;
  ports.Maintenant = [] { return QDateTime::currentMSecsSinceEpoch(); };
  ports.OuvrePoste = [fil = ReglagesFil{.Dossier = ports.DossierSac, .Marque = ports.Marque}](
                         const Facteur::Rapporteur& surRapport) -> std::unique_ptr<Poste> {
    return std::make_unique<FilEnvoi>(fil, surRapport);
  };
  return std::make_unique<ModuleMail>(contexte, ports);
}

/// `etatPush` is filled: it has to outlive the module, and needs the folders that are known only now.
std::unique_ptr<Module> CreeModule(const ContexteModule& contexte, const QString& autorites,
                                   std::unique_ptr<EtatModule>& etatPush) {
  etatPush =
      std::make_unique<EtatModule>(contexte.Dossiers.Etat, QStringLiteral("VAKTORpush"), contexte.Temps, NotifieBureau);
  return std::make_unique<ModuleMailEtPush>(CreeMail(contexte, autorites), CreePush(contexte, autorites, *etatPush));
}

}  // namespace
}  // namespace vaktor

int main(int argc, char** argv) {
  using namespace vaktor;
  Arguments arguments = TrieArguments(argc, argv);
  auto nombre = static_cast<int>(arguments.Autres.size());
  arguments.Autres.push_back(nullptr);
  if (arguments.Repetition && nombre == 1) {
    return ExecuteRepetition(nombre, arguments.Autres.data(),
                             [&](const QByteArray& demande, const EcritureLigne& ecrit) {
                               return EstDemandePush(demande) ? RepetePush(demande, arguments.Autorites, ecrit)
                                                              : RepeteEnvoi(demande, arguments.Autorites, ecrit);
                             });
  }
  std::unique_ptr<EtatModule> etatPush;
  return ExecuteModule(nombre, arguments.Autres.data(), DonneDescription(), [&](const ContexteModule& contexte) {
    return CreeModule(contexte, arguments.Autorites, etatPush);
  });
}
