// SPDX-License-Identifier: GPL-3.0-or-later
// A file system in memory that loses what was not flushed, and that can be told to hang, for tests of photos that must
// stay: mounted with FUSE by tests/support/volatile_disk.h.
//
//   volatile_disk FOLDER
//
// Commands come on standard input, a line each, and are answered by a line on standard output once they hold:
//   crash   the power fails and comes back: of each file stays what an fsync of it had brought to the disk, of each
//           folder the names that were there when it was flushed; a name without a flushed file is an empty file
//   hang    no call is answered any more
//   refuse  nothing can be flushed any more: an error of the disk
//   protect nothing can be flushed any more: the disk has failed and can only be read since
//   keep    nothing can be deleted any more, not even by root
//   answer  calls are answered again, also those that waited
// The end of the input unmounts. The kernel keeps nothing of the files, so that a test sees what is in here.
#define FUSE_USE_VERSION 31
#include <fcntl.h>
#include <fuse3/fuse.h>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <iostream>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace {

struct Noeud {
  bool Dossier = false;
  std::string Vivant;   // as every program sees it
  std::string Durable;  // as it would be after a power cut
};
using Table = std::map<std::string, std::shared_ptr<Noeud>>;

struct Disque {
  std::mutex Verrou;
  std::condition_variable Reponse;
  bool Muet = false;
  int Faute = 0;       // what a flush gives, 0 for none
  bool Garde = false;  // what is asked to be deleted stays
  bool Illisible = false;
  Table Vivants;   // by whole path
  Table Durables;  // the names that the flushes of their folders have brought to the disk
};

Disque& Ce() { return *static_cast<Disque*>(fuse_get_context()->private_data); }

/// Every call begins here, and waits here while the disk is silent.
std::unique_lock<std::mutex> Entre() {
  Disque& disque = Ce();
  std::unique_lock garde(disque.Verrou);
  disque.Reponse.wait(garde, [&disque] { return !disque.Muet; });
  return garde;
}

std::shared_ptr<Noeud> Trouve(const char* chemin) {
  const auto trouve = Ce().Vivants.find(chemin);
  return trouve == Ce().Vivants.end() ? nullptr : trouve->second;
}

std::string Parent(const std::string& chemin) {
  const std::string::size_type coupe = chemin.rfind('/');
  return coupe == 0 ? "/" : chemin.substr(0, coupe);
}

// Nothing is remembered by the kernel, neither what names mean nor what they are; and a file that is deleted while it
// is open is gone at once.
void* Regle(fuse_conn_info*, fuse_config* reglages) {
  reglages->attr_timeout = reglages->entry_timeout = reglages->negative_timeout = 0;
  reglages->hard_remove = 1;
  return fuse_get_context()->private_data;
}

int LitEtat(const char* chemin, struct stat* etat, fuse_file_info*) {
  const auto garde = Entre();
  const auto noeud = Trouve(chemin);
  if (!noeud) return -ENOENT;
  *etat = {};
  etat->st_mode = noeud->Dossier ? S_IFDIR | 0777 : S_IFREG | 0666;
  etat->st_nlink = 1;
  etat->st_uid = fuse_get_context()->uid;
  etat->st_gid = fuse_get_context()->gid;
  etat->st_size = static_cast<off_t>(noeud->Vivant.size());
  return 0;
}

int Liste(const char* chemin, void* tampon, fuse_fill_dir_t remplit, off_t, fuse_file_info*, fuse_readdir_flags) {
  const auto garde = Entre();
  for (const auto& [nom, noeud] : Ce().Vivants) {
    if (nom == "/" || Parent(nom) != chemin) continue;
    remplit(tampon, nom.substr(nom.rfind('/') + 1).c_str(), nullptr, 0, static_cast<fuse_fill_dir_flags>(0));
  }
  return 0;
}

int Ajoute(const char* chemin, bool dossier) {
  if (Trouve(chemin)) return -EEXIST;
  if (!Trouve(Parent(chemin).c_str())) return -ENOENT;
  auto noeud = std::make_shared<Noeud>();
  noeud->Dossier = dossier;
  Ce().Vivants[chemin] = noeud;
  return 0;
}

int CreeDossier(const char* chemin, mode_t) {
  const auto garde = Entre();
  return Ajoute(chemin, true);
}

// Without direct_io reads would come from the kernel's memory and outlive the crash.
int Cree(const char* chemin, mode_t, fuse_file_info* fichier) {
  const auto garde = Entre();
  fichier->direct_io = 1;
  return Ajoute(chemin, false);
}

int Ouvre(const char* chemin, fuse_file_info* fichier) {
  const auto garde = Entre();
  fichier->direct_io = 1;
  const auto noeud = Trouve(chemin);
  if (!noeud) return -ENOENT;
  if ((fichier->flags & O_TRUNC) != 0) noeud->Vivant.clear();  // the kernel leaves that to the opening
  return 0;
}

int OuvreDossier(const char* chemin, fuse_file_info*) {
  const auto garde = Entre();
  return Trouve(chemin) ? 0 : -ENOENT;
}

int Lit(const char* chemin, char* tampon, size_t taille, off_t place, fuse_file_info*) {
  const auto garde = Entre();
  const auto noeud = Trouve(chemin);
  if (!noeud) return -ENOENT;
  if (Ce().Illisible) return -EIO;
  const auto debut = std::min(static_cast<size_t>(place), noeud->Vivant.size());
  const size_t lus = std::min(taille, noeud->Vivant.size() - debut);
  std::copy_n(noeud->Vivant.data() + debut, lus, tampon);
  return static_cast<int>(lus);
}

int Ecrit(const char* chemin, const char* octets, size_t taille, off_t place, fuse_file_info*) {
  const auto garde = Entre();
  const auto noeud = Trouve(chemin);
  if (!noeud) return -ENOENT;
  const auto debut = static_cast<size_t>(place);
  if (noeud->Vivant.size() < debut + taille) noeud->Vivant.resize(debut + taille);
  std::memcpy(noeud->Vivant.data() + debut, octets, taille);
  return static_cast<int>(taille);
}

int Coupe(const char* chemin, off_t taille, fuse_file_info*) {
  const auto garde = Entre();
  const auto noeud = Trouve(chemin);
  if (!noeud) return -ENOENT;
  noeud->Vivant.resize(static_cast<size_t>(taille));
  return 0;
}

int Supprime(const char* chemin) {
  const auto garde = Entre();
  if (Ce().Garde) return -EPERM;
  return Ce().Vivants.erase(chemin) == 1 ? 0 : -ENOENT;
}

int Renomme(const char* ancien, const char* nouveau, unsigned int) {
  const auto garde = Entre();
  const auto noeud = Trouve(ancien);
  if (!noeud) return -ENOENT;
  Ce().Vivants.erase(ancien);
  Ce().Vivants[nouveau] = noeud;
  return 0;
}

// It has no modes, as a volume of another system.
int ChangeMode(const char*, mode_t, fuse_file_info*) { return 0; }

int VideFichier(const char* chemin, int, fuse_file_info*) {
  const auto garde = Entre();
  const auto noeud = Trouve(chemin);
  if (!noeud) return -ENOENT;
  if (Ce().Faute != 0) return -Ce().Faute;
  noeud->Durable = noeud->Vivant;
  return 0;
}

int VideDossier(const char* chemin, int, fuse_file_info*) {
  const auto garde = Entre();
  Disque& disque = Ce();
  std::erase_if(disque.Durables, [&](const auto& entree) { return Parent(entree.first) == chemin; });
  for (const auto& entree : disque.Vivants) {
    if (Parent(entree.first) == chemin) disque.Durables.insert(entree);
  }
  return 0;
}

int Mesure(const char*, struct statvfs* etat) {
  const auto garde = Entre();
  *etat = {};
  etat->f_bsize = etat->f_frsize = 4096;
  etat->f_blocks = etat->f_bfree = 1'000'000;
  etat->f_bavail = 900'000;  // the rest is the administrator's
  etat->f_namemax = 255;
  return 0;
}

void Execute(Disque& disque, const std::string& ordre) {
  const std::lock_guard garde(disque.Verrou);
  if (ordre == "crash") {
    disque.Vivants = disque.Durables;
    for (const auto& entree : disque.Vivants) entree.second->Vivant = entree.second->Durable;
  } else {
    disque.Muet = ordre == "hang";
    disque.Garde = ordre == "keep";
    disque.Illisible = ordre == "unreadable";
    disque.Faute = ordre == "refuse" ? EIO : ordre == "protect" ? EROFS : 0;
    disque.Reponse.notify_all();
  }
}

void SuitOrdres(Disque& disque, fuse* systeme) {
  for (std::string ordre; std::getline(std::cin, ordre);) {
    Execute(disque, ordre);
    std::cout << ordre << std::endl;
  }
  Execute(disque, "answer");
  fuse_unmount(systeme);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  Disque disque;
  const auto racine = std::make_shared<Noeud>();
  racine->Dossier = true;
  disque.Vivants["/"] = disque.Durables["/"] = racine;

  fuse_operations operations{};
  operations.init = Regle;
  operations.getattr = LitEtat;
  operations.readdir = Liste;
  operations.mkdir = CreeDossier;
  operations.create = Cree;
  operations.open = Ouvre;
  operations.opendir = OuvreDossier;
  operations.read = Lit;
  operations.write = Ecrit;
  operations.truncate = Coupe;
  operations.unlink = Supprime;
  operations.rename = Renomme;
  operations.chmod = ChangeMode;
  operations.fsync = VideFichier;
  operations.fsyncdir = VideDossier;
  operations.statfs = Mesure;

  char nom[] = "volatile_disk";
  char* options[] = {nom, nullptr};
  fuse_args arguments = FUSE_ARGS_INIT(1, options);
  fuse* systeme = fuse_new(&arguments, &operations, sizeof(operations), &disque);
  fuse_opt_free_args(&arguments);  // it has taken copies
  if (systeme == nullptr || fuse_mount(systeme, argv[1]) != 0) return 1;
  std::cout << "mounted" << std::endl;
  std::thread ordres(SuitOrdres, std::ref(disque), systeme);
  // One call after the other: while one hangs the others wait behind it, as on a disk.
  fuse_loop(systeme);
  ordres.detach();
  fuse_destroy(systeme);
  return 0;
}
