// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/telling/mail_drop.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <cerrno>
#include <cstdio>

#include "base/photo_format.h"
#include "platform/store/bounded_file.h"

namespace vaktor {

namespace {

constexpr qint64 kNoteMax = 64;
constexpr quint8 kQualite = 80;  // as a photo for a mail: a few tens of kilobytes

QByteArray Compose(const CourrielVeille& courriel) {
  QJsonObject objet{
      {QStringLiteral("version"), 1},
      {QStringLiteral("kind"), courriel.Fin ? QStringLiteral("end") : QStringLiteral("begin")},
      {QStringLiteral("condition"), courriel.Mot},
      {QStringLiteral("since"), courriel.Depuis.toString(Qt::ISODate)},
  };
  for (const Langue langue : kLangues) {
    objet.insert(QStringLiteral("subject_") + kCodesLangues.Dit(langue), courriel.Sujet.Dit(langue));
    objet.insert(kCodesLangues.Dit(langue), courriel.Texte.Dit(langue));
  }
  if (courriel.Fin) objet.insert(QStringLiteral("until"), courriel.Jusqua.toString(Qt::ISODate));
  return QJsonDocument(objet).toJson();
}

bool EcritEtFerme(int descripteur, const QByteArray& octets) {
  qsizetype fait = 0;
  while (fait < octets.size()) {
    const ssize_t ecrit =
        ::write(descripteur, octets.constData() + fait, static_cast<std::size_t>(octets.size() - fait));
    if (ecrit < 0 && errno == EINTR) continue;
    if (ecrit <= 0) break;
    fait += ecrit;
  }
  const bool entier = fait == octets.size() && ::fsync(descripteur) == 0;
  return ::close(descripteur) == 0 && entier;
}

// Under a name that no reader takes first, so that none finds half a file, also after a power cut.
bool EcritEntier(const QByteArray& dossier, const QByteArray& nom, const QByteArray& octets) {
  const QByteArray provisoire = dossier + "/." + nom + ".part";
  const QByteArray definitif = dossier + '/' + nom;
  const int descripteur = ::open(provisoire.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (descripteur < 0) return false;
  if (EcritEtFerme(descripteur, octets) && std::rename(provisoire.constData(), definitif.constData()) == 0) return true;
  ::unlink(provisoire.constData());
  return false;
}

// The mode is set and not only asked for: the folder may be there with another, or the mask of the process be wide.
bool PrepareDossier(const QByteArray& dossier) {
  if (::mkdir(dossier.constData(), 0700) != 0 && errno != EEXIST) return false;
  return ::chmod(dossier.constData(), 0700) == 0;
}

// A kill, or a power cut, leaves half a file behind that nobody looks at again. A day is longer than any writing.
void BalaieRestes(const QByteArray& dossier) {
  const QDateTime hier = QDateTime::currentDateTimeUtc().addDays(-1);
  const QDir lieu(QFile::decodeName(dossier));
  for (const QFileInfo& reste : lieu.entryInfoList({QStringLiteral(".*-*.part")}, QDir::Files | QDir::Hidden)) {
    if (reste.lastModified().toUTC() < hier) QFile::remove(reste.filePath());
  }
}

void SynchroniseDossier(const QByteArray& dossier) {
  const int descripteur = ::open(dossier.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descripteur < 0) return;
  ::fsync(descripteur);  // file systems that cannot do this for a folder have nothing to lose
  ::close(descripteur);
}

/// What is to be noted of a mail once it lies there.
struct NoteJour {
  QByteArray Nom;
  QByteArray Jour;  // empty for nothing
};

bool EcritCourriel(const QByteArray& dossier, const QByteArray& souche, const QByteArray& json, const QByteArray& jpeg,
                   const NoteJour& note) {
  if (!PrepareDossier(dossier)) return false;
  BalaieRestes(dossier);
  // A mail without its picture is better than none: a disk that is nearly full may still take the words.
  const bool image = !jpeg.isEmpty() && EcritEntier(dossier, souche + kFinPhoto.latin1(), jpeg);
  if (EcritEntier(dossier, souche + ".json", json)) {
    // Behind it: better one mail twice than none.
    if (!note.Jour.isEmpty()) EcritEntier(dossier, note.Nom, note.Jour);
    SynchroniseDossier(dossier);
    return true;
  }
  if (image) ::unlink((dossier + '/' + souche + kFinPhoto.latin1()).constData());
  return false;
}

QByteArray NommeNote(const QString& mot) { return '.' + mot.toLatin1(); }

QDate LitJour(const QByteArray& chemin) {
  QByteArray octets;
  if (LitFichierBorne(QFile::decodeName(chemin), kNoteMax, octets) != 0) return {};
  return QDate::fromString(QString::fromLatin1(octets), Qt::ISODate);
}

}  // namespace

QByteArray DepotCourrielsFichiers::Encode(const QImage& image) {
  QByteArrayView octets;
  if (image.isNull() || Encodeur_.Demarre() != StatutJpeg::kReussi) return {};
  if (Encodeur_.Encode(image, kQualite, octets) != StatutJpeg::kReussi) return {};
  return octets.toByteArray();  // the encoder's memory is good until its next call only
}

void DepotCourrielsFichiers::ChercheDernierJour(const QString& mot, std::function<void(const QDate& jour)> recoit) {
  if (Question_.Attend()) return;
  Question_.Pose([chemin = QFile::encodeName(Dossier_) + '/' + NommeNote(mot)] { return LitJour(chemin); }, QDate(),
                 std::move(recoit));
}

void DepotCourrielsFichiers::Depose(const CourrielVeille& courriel, const QImage& image, Fini fini) {
  const QByteArray souche =
      QByteArray::number(QDateTime::currentMSecsSinceEpoch()) + '-' + QByteArray::number(++Numero_);
  const NoteJour note{NommeNote(courriel.Mot), courriel.Jour.toString(Qt::ISODate).toLatin1()};
  const auto reponse = std::make_shared<Fini>(std::move(fini));
  const bool lance = Travaux_.Lance([dossier = QFile::encodeName(Dossier_), souche, json = Compose(courriel),
                                     jpeg = Encode(image), note, relais = Relais_, reponse] {
    bool ecrit = false;
    try {
      ecrit = EcritCourriel(dossier, souche, json, jpeg, note);
    } catch (const std::exception&) {  // want of memory: tried again like a full disk
    }
    relais->Poste([reponse, ecrit] { (*reponse)(ecrit); });
  });
  if (!lance) Relais_->Poste([reponse] { (*reponse)(false); });
}

}  // namespace vaktor
