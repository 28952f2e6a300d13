// SPDX-License-Identifier: GPL-3.0-or-later
// store_process FILE WHAT: one of
//   generations   saves generation after generation until it is killed; a line of output for each finished save
//   companion     holds the store open; for each line of input reads the file again and prints the value of that key
//   save TEXT     one save of FTP/user; prints "saved" or the failure
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <cstdlib>
#include <iostream>
#include <string>

#include "base/failure.h"
#include "platform/store/file_store.h"
#include "platform/store/store_generations.h"

namespace vaktor {
namespace {

int SauveGenerations(MagasinFichier& magasin) {
  const qint64 depart = LitGeneration(magasin).value_or(0);
  for (qint64 generation = depart + 1;; ++generation) {
    EcritGeneration(magasin, generation);
    std::cout << generation << std::endl;
  }
}

int JoueCompagnon(MagasinFichier& magasin) {
  std::cout << "ready" << std::endl;
  for (std::string ligne; std::getline(std::cin, ligne);) {
    const QString cle = QString::fromStdString(ligne);
    magasin.Relit();
    std::cout << magasin.LitReglage(cle.section(u'/', 0, 0), cle.section(u'/', 1), "MISSING").toStdString()
              << std::endl;
  }
  return EXIT_SUCCESS;
}

int Sauve(MagasinFichier& magasin, const QString& texte) {
  magasin.EcritReglage("FTP", "user", texte);
  magasin.Vide();
  std::cout << "saved" << std::endl;
  return EXIT_SUCCESS;
}

int Joue(const QStringList& mots) {
  MagasinFichier magasin(mots[1]);
  if (mots[2] == "generations") return SauveGenerations(magasin);
  if (mots[2] == "companion") return JoueCompagnon(magasin);
  return Sauve(magasin, mots.value(3));
}

}  // namespace
}  // namespace vaktor

int main(int argc, char** argv) {
  // Root may write everywhere; a test that is run by it would not see what a user sees.
  if (qEnvironmentVariableIsSet("SANS_DROITS") && ::getuid() == 0 && ::setuid(65534) != 0) return EXIT_FAILURE;
  ::umask(0022);
  const QCoreApplication application(argc, argv);
  try {
    return vaktor::Joue(QCoreApplication::arguments());
  } catch (const vaktor::Echec& echec) {
    std::cout << echec.Numero() << ' ' << echec.Description().toStdString() << std::endl;
    return EXIT_FAILURE;
  }
}
