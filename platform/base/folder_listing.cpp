// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/folder_listing.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vaktor {
namespace {

struct FermeDossier {
  void operator()(DIR* dossier) const { ::closedir(dossier); }
};

// Bytes all the way to the sorted list: QDir, and QString before the sorting, take several times as long.
struct Noms {
  std::vector<std::string> Textes;
  std::vector<std::string> Cles;  // the same names in the form by which they are matched and sorted
  int Erreur = 0;
};

bool EstAscii(std::string_view texte) {
  return std::all_of(texte.begin(), texte.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string Replie(std::string_view texte) {
  if (!EstAscii(texte)) {
    const QByteArray nom(texte.data(), static_cast<qsizetype>(texte.size()));
    return QFile::decodeName(nom).toCaseFolded().toStdString();
  }
  std::string cle(texte);
  for (char& c : cle) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return cle;
}

// The pieces between the stars, one after the other; the first stands at the beginning and the last at the end.
bool Correspond(std::string_view nom, const std::vector<std::string>& morceaux) {
  const std::string& premier = morceaux.front();
  const std::string& dernier = morceaux.back();
  if (morceaux.size() == 1) return nom == premier;
  if (nom.size() < premier.size() + dernier.size() || !nom.starts_with(premier) || !nom.ends_with(dernier)) {
    return false;
  }
  nom = nom.substr(premier.size(), nom.size() - premier.size() - dernier.size());
  for (std::size_t i = 1; i + 1 < morceaux.size(); ++i) {
    const std::size_t place = nom.find(morceaux[i]);
    if (place == std::string_view::npos) return false;
    nom.remove_prefix(place + morceaux[i].size());
  }
  return true;
}

std::vector<std::string> Coupe(const QString& motif) {
  std::vector<std::string> morceaux;
  for (const QString& morceau : motif.split(u'*')) morceaux.push_back(Replie(morceau.toStdString()));
  return morceaux;
}

/// A file, or a link to one. Only a link, or a file system that does not tell, costs a look at the file itself.
bool EstFichier(int dossier, const dirent& entree) {
  if (entree.d_type == DT_REG) return true;
  if (entree.d_type != DT_LNK && entree.d_type != DT_UNKNOWN) return false;
  struct stat etat {};
  return ::fstatat(dossier, entree.d_name, &etat, 0) == 0 && S_ISREG(etat.st_mode);
}

/// The end of a folder and an error look alike but for errno.
const dirent* LitEntree(DIR& dossier, const std::atomic<bool>& abandon) {
  errno = abandon ? ECANCELED : 0;
  return abandon ? nullptr : ::readdir(&dossier);
}

Noms LitNoms(DIR& dossier, const std::vector<std::string>& morceaux, const std::atomic<bool>& abandon) {
  Noms noms;
  while (const dirent* entree = LitEntree(dossier, abandon)) {
    if (entree->d_name[0] == '.' || !EstFichier(::dirfd(&dossier), *entree)) continue;
    std::string cle = Replie(entree->d_name);
    if (!Correspond(cle, morceaux)) continue;
    noms.Textes.emplace_back(entree->d_name);
    noms.Cles.push_back(std::move(cle));
  }
  noms.Erreur = errno;
  return noms;
}

QStringList Trie(const Noms& noms) {
  std::vector<std::pair<std::string_view, std::size_t>> ordre;
  ordre.reserve(noms.Cles.size());
  for (std::size_t i = 0; i < noms.Cles.size(); ++i) ordre.emplace_back(noms.Cles[i], i);
  std::sort(ordre.begin(), ordre.end(), [&noms](const auto& a, const auto& b) {
    const int rang = a.first.compare(b.first);
    return rang != 0 ? rang < 0 : noms.Textes[a.second] < noms.Textes[b.second];
  });
  QStringList liste;
  liste.reserve(static_cast<qsizetype>(ordre.size()));
  for (const auto& [cle, rang] : ordre) {
    const std::string& texte = noms.Textes[rang];
    liste.append(QFile::decodeName(QByteArray::fromRawData(texte.data(), static_cast<qsizetype>(texte.size()))));
  }
  return liste;
}

}  // namespace

DossierListe ListeDossier(const QByteArray& dossier, const QString& motif, const std::atomic<bool>& abandon) {
  const std::unique_ptr<DIR, FermeDossier> lu(::opendir(dossier.constData()));
  if (!lu) return {.Erreur = errno};
  const Noms noms = LitNoms(*lu, Coupe(motif), abandon);
  return {.Noms = Trie(noms), .Erreur = noms.Erreur, .Commence = true};
}

}  // namespace vaktor
