// SPDX-License-Identifier: GPL-3.0-or-later
// VAKTORftp: puts the live image, the photos of an alarm and the page on a web site.
#include <QRandomGenerator>
#include <csignal>
#include <cstring>

#include "modules/common/module_program.h"
#include "modules/ftp/ftp_module.h"
#include "modules/ftp/ftp_thread.h"
#include "modules/ftp/interruption_watch.h"
#include "modules/ftp/rehearsal.h"
#include "modules/ftp/site_memory.h"
#include "platform/base/program_folders.h"

namespace vaktor {
namespace {

// A person waits in front of the screen: less patience than the live page has.
constexpr int kDelaiEssai = 15;  // seconds

DescriptionModule DonneDescription() {
  return {
      Compagnon::kFtp, QStringLiteral(VAKTOR_VERSION), QString::fromUtf8("Publie la caméra de Vaktor sur un site web."),
      QStringLiteral("Publishes the camera of Vaktor on a web site."),
      QString::fromUtf8(
          "VAKTORftp --try\n"
          "  Lit un objet JSON avec les paramètres sur l'entrée standard, envoie un petit fichier, l'efface et montre\n"
          "  chaque étape.\n"
          "  Reads a JSON object with the settings from standard input, uploads a small file, deletes it and shows\n"
          "  each step.\n"
          "    {\"ftp\":\"\", \"user\":\"\", \"pass\":\"\", \"racine\":\"\", \"langue\":0}\n\n")};
}

OptionsClient DonneOptions() {
  OptionsClient options;
  // Where OpenSSL's own programs look first: for those who run a server with a certificate of their own.
  options.FichierAutorites = qEnvironmentVariable("SSL_CERT_FILE");
  return options;
}

FinRepetition RepetePage(VeilleInterruption& veille, const QByteArray& demande, const EcritureLigne& ecrit) {
  RepetitionFtp* repetition = nullptr;
  OptionsClient options = DonneOptions();
  options.DelaiConnexion = options.DelaiReponse = options.DelaiSilence = kDelaiEssai;
  options.Suivi = [&](const QByteArray& verbe, const QByteArray& ligne) { repetition->Entend(verbe, ligne); };
  ClientFtp client(options);
  PortsRepetition ports;
  ports.Execute = [&](const TravailFtp& travail) {
    const bool nettoie = travail.Genre == GenreTravail::kEfface;  // also after the user has had enough
    return client.Execute(travail, {}, [&veille, nettoie] { return !nettoie && veille.EstDemandee(); });
  };
  ports.Ecrit = ecrit;
  ports.SurFichier = [&](bool la) { veille.ChangeRestes(la); };
  ports.EstInterrompue = [&] { return veille.EstDemandee(); };
  const MemoireSites sites(MemoireSites::Fichier(TrouveDossierEtat(qEnvironmentVariable(kVariableDossier.data()))));
  ports.Rappelle = [&sites](AccesFtp& acces) { sites.Applique(acces); };
  ports.Marque = QString::number(QRandomGenerator::system()->generate64(), 36);
  RepetitionFtp essai(ports);
  repetition = &essai;
  return essai.Joue(demande);
}

int Repete(int argc, char** argv) {
  VeilleInterruption veille;
  std::signal(SIGPIPE, SIG_IGN);  // when nobody reads the steps any more, the file still has to be deleted
  return ExecuteRepetition(argc, argv, [&](const QByteArray& demande, const EcritureLigne& ecrit) {
    return RepetePage(veille, demande, ecrit);
  });
}

}  // namespace
}  // namespace vaktor

int main(int argc, char** argv) {
  using namespace vaktor;
  if (argc == 2 && std::strcmp(argv[1], "--try") == 0) return Repete(1, argv);
  return ExecuteModule(argc, argv, DonneDescription(), [](const ContexteModule& contexte) {
    return std::make_unique<ModuleFtp>(contexte, std::make_unique<OuvrierThread>(DonneOptions()));
  });
}
