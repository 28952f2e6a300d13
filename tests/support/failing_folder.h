// SPDX-License-Identifier: GPL-3.0-or-later
// A folder whose disk fails in the middle of being listed, as a card with a bad sector does.
#pragma once

#include <fcntl.h>
#include <linux/fuse.h>
#include <poll.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <QList>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <thread>

namespace vaktor {

/// A FUSE mount with an empty file, or with a folder, for each name; behind them an input/output error instead of the
/// end. It must be mounted where only this process sees it: make a PetitDisque first and ask for it in there. Check
/// EstMonte(), skip with Raison().
class DossierQuiEchoue {
 public:
  DossierQuiEchoue(const QString& dossier, const QList<QByteArray>& noms, bool dossiers = false)
      : Nom_(QFile::encodeName(dossier)), Noms_(noms), Genre_(dossiers ? S_IFDIR : S_IFREG) {
    Lien_ = ::open("/dev/fuse", O_RDWR | O_CLOEXEC | O_NONBLOCK);
    if (Lien_ < 0) return;
    const QByteArray options = "fd=" + QByteArray::number(Lien_) +
                               ",rootmode=40000,user_id=" + QByteArray::number(::getuid()) +
                               ",group_id=" + QByteArray::number(::getgid());
    Monte_ = ::mount("echoue", Nom_.constData(), "fuse", MS_NOSUID | MS_NODEV, options.constData()) == 0;
    Erreur_ = errno;
    if (Monte_) Fil_ = std::thread([this] { Sert(); });
  }
  ~DossierQuiEchoue() {
    Fini_ = true;
    if (Fil_.joinable()) Fil_.join();
    if (Lien_ >= 0) ::close(Lien_);
    if (Monte_) ::umount2(Nom_.constData(), MNT_DETACH);
  }
  DossierQuiEchoue(const DossierQuiEchoue&) = delete;
  DossierQuiEchoue& operator=(const DossierQuiEchoue&) = delete;

  bool EstMonte() const { return Monte_; }
  const char* Raison() const { return Lien_ < 0 ? "no FUSE here" : std::strerror(Erreur_); }

 private:
  void Sert() {
    QByteArray demande(FUSE_MIN_READ_BUFFER * 4, '\0');
    while (!Fini_) {
      pollfd attente{.fd = Lien_, .events = POLLIN, .revents = 0};
      if (::poll(&attente, 1, 20) <= 0) continue;
      const ssize_t lus = ::read(Lien_, demande.data(), static_cast<std::size_t>(demande.size()));
      if (lus < 0 && (errno == EINTR || errno == EAGAIN || errno == ENOENT)) continue;
      if (lus < static_cast<ssize_t>(sizeof(fuse_in_header))) return;
      Repond(demande.constData());
    }
  }

  void Repond(const char* demande) {
    fuse_in_header tete{};
    std::memcpy(&tete, demande, sizeof tete);
    const char* suite = demande + sizeof tete;
    switch (tete.opcode) {
      case FUSE_INIT: {
        fuse_init_out debut{};
        debut.major = FUSE_KERNEL_VERSION;
        debut.minor = FUSE_KERNEL_MINOR_VERSION;
        debut.max_readahead = 4096;
        debut.max_write = 4096;
        return Rend(tete, debut);
      }
      case FUSE_GETATTR: {
        fuse_attr_out attributs{};
        attributs.attr = Attributs(tete.nodeid);
        return Rend(tete, attributs);
      }
      case FUSE_LOOKUP: {
        fuse_entry_out entree{};
        entree.nodeid = 2;
        entree.attr = Attributs(2);
        return Rend(tete, entree);
      }
      case FUSE_OPENDIR:
        return Rend(tete, fuse_open_out{});
      case FUSE_READDIR: {
        fuse_read_in lecture{};
        std::memcpy(&lecture, suite, sizeof lecture);
        return lecture.offset == 0 ? Envoie(tete, 0, Entrees()) : Envoie(tete, -EIO, {});
      }
      case FUSE_RELEASEDIR:
        return Envoie(tete, 0, {});
      case FUSE_FORGET:
      case FUSE_BATCH_FORGET:
      case FUSE_INTERRUPT:
        return;
      default:
        return Envoie(tete, -ENOSYS, {});
    }
  }

  fuse_attr Attributs(quint64 noeud) const {
    fuse_attr attributs{};
    attributs.ino = noeud;
    attributs.mode = (noeud == 1 ? quint32{S_IFDIR} : Genre_) | 0755U;
    attributs.nlink = 1;
    return attributs;
  }

  QByteArray Entrees() const {
    QByteArray octets;
    for (const QByteArray& nom : Noms_) {
      fuse_dirent entree{};
      entree.ino = 2;
      entree.off = static_cast<quint64>(octets.size()) + 1;
      entree.namelen = static_cast<quint32>(nom.size());
      entree.type = Genre_ >> 12;
      octets += QByteArray(reinterpret_cast<const char*>(&entree), FUSE_NAME_OFFSET) + nom;
      octets.resize(static_cast<qsizetype>(FUSE_DIRENT_ALIGN(static_cast<std::size_t>(octets.size()))), '\0');
    }
    return octets;
  }

  template <typename Reponse>
  void Rend(const fuse_in_header& tete, const Reponse& reponse) {
    Envoie(tete, 0, QByteArray(reinterpret_cast<const char*>(&reponse), sizeof reponse));
  }

  void Envoie(const fuse_in_header& tete, int erreur, const QByteArray& corps) {
    const fuse_out_header sortie{
        .len = static_cast<quint32>(sizeof(fuse_out_header)) + static_cast<quint32>(corps.size()),
        .error = erreur,
        .unique = tete.unique};
    const QByteArray octets = QByteArray(reinterpret_cast<const char*>(&sortie), sizeof sortie) + corps;
    if (::write(Lien_, octets.constData(), static_cast<std::size_t>(octets.size())) < 0) Fini_ = true;
  }

  QByteArray Nom_;
  QList<QByteArray> Noms_;
  quint32 Genre_;
  int Lien_ = -1;
  int Erreur_ = 0;
  bool Monte_ = false;
  std::atomic<bool> Fini_ = false;
  std::thread Fil_;
};

}  // namespace vaktor
