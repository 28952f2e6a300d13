// SPDX-License-Identifier: GPL-3.0-or-later
// The capture driver's memory: read as a whole, checked line by line, written as a whole.
#include "platform/capture/choice/capture_memory.h"

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QSaveFile>
#include <QUrl>
#include <cerrno>
#include <cstring>
#include <functional>
#include <utility>

namespace vaktor {
namespace {

constexpr qint64 kTailleMax = 1 << 20;  // far more than anybody has cameras: beyond it the file is not ours

struct Contenu {
  QString Source;
  QMap<QString, FormatCamera> Formats;
  QMap<QString, EntreeCamera> Entrees;
  QString Empechement = {};
  bool Abimee = false;
};

QByteArray CodeTexte(const QString& texte) { return QUrl::toPercentEncoding(texte, " /:@?&+,;!()#", "%=[]"); }
QString DecodeTexte(const QString& texte) { return QUrl::fromPercentEncoding(texte.toUtf8()); }

constexpr qsizetype kCodageMax = 64;  // as it is written

QString CodeCodage(const QString& codage) {
  return codage.isEmpty() ? QStringLiteral("-") : QString::fromLatin1(QUrl::toPercentEncoding(codage));
}

QString CodeFormat(const FormatCamera& f) {
  const QString codage = CodeCodage(f.Codage);
  // At once: the percent signs of a coding would be taken for places.
  return QStringLiteral("%1 %2x%3 %4/%5")
      .arg(codage, QString::number(f.Largeur), QString::number(f.Hauteur), QString::number(f.CadenceNum),
           QString::number(f.CadenceDen));
}

std::optional<FormatCamera> DecodeFormat(const QString& texte) {
  static const QRegularExpression kForme(QStringLiteral(R"(^(\S{1,64}) (\d{1,5})x(\d{1,5}) (\d{1,9})/(\d{1,9})$)"));
  const QRegularExpressionMatch m = kForme.match(texte);
  if (!m.hasMatch()) return std::nullopt;
  FormatCamera f;
  if (m.captured(1) != QLatin1String("-")) f.Codage = DecodeTexte(m.captured(1));
  f.Largeur = m.captured(2).toInt();
  f.Hauteur = m.captured(3).toInt();
  f.CadenceNum = m.captured(4).toInt();
  f.CadenceDen = m.captured(5).toInt();
  // Written again it may be longer than it was read, and would be no line of ours any more.
  if (f.CadenceDen == 0 || CodeCodage(f.Codage).size() > kCodageMax) return std::nullopt;
  return f;
}

QString CodePlace(const std::optional<qint32>& place) { return place ? QString::number(*place) : QStringLiteral("-"); }

QString CodeEntree(const EntreeCamera& e) { return CodePlace(e.Entree) + QLatin1Char(' ') + CodePlace(e.Norme); }

std::optional<EntreeCamera> DecodeEntree(const QString& texte) {
  static const QRegularExpression kForme(QStringLiteral(R"(^(\d{1,4}|-) (\d{1,4}|-)$)"));
  const QRegularExpressionMatch m = kForme.match(texte);
  if (!m.hasMatch()) return std::nullopt;
  EntreeCamera e;
  if (m.captured(1) != QLatin1String("-")) e.Entree = m.captured(1).toInt();
  if (m.captured(2) != QLatin1String("-")) e.Norme = m.captured(2).toInt();
  return e;
}

/// Takes one line in. False: no line of ours.
bool AjouteLigne(const QString& ligne, QString& section, Contenu& contenu) {
  if (ligne.isEmpty()) return true;
  if (ligne.contains(QChar::Null) || ligne.contains(QChar::ReplacementCharacter)) return false;
  if (ligne == QLatin1String("[Source]") || ligne == QLatin1String("[Formats]") || ligne == QLatin1String("[Inputs]")) {
    section = ligne;
    return true;
  }
  if (section == QLatin1String("[Source]")) {
    contenu.Source = DecodeTexte(ligne);
    return true;
  }
  const qsizetype egal = ligne.indexOf(QLatin1Char('='));
  if (section.isEmpty() || egal <= 0) return false;
  if (section == QLatin1String("[Inputs]")) {
    const std::optional<EntreeCamera> entree = DecodeEntree(ligne.mid(egal + 1));
    if (entree) contenu.Entrees.insert(DecodeTexte(ligne.left(egal)), *entree);
    return entree.has_value();
  }
  const std::optional<FormatCamera> format = DecodeFormat(ligne.mid(egal + 1));
  if (format) contenu.Formats.insert(DecodeTexte(ligne.left(egal)), *format);
  return format.has_value();
}

Contenu LitContenu(const QString& fichier) {
  if (::access(QFile::encodeName(fichier).constData(), F_OK) != 0 && (errno == ENOENT || errno == ENOTDIR)) return {};
  Contenu contenu;
  QFile f(fichier);
  const QByteArray octets = f.open(QIODevice::ReadOnly) ? f.read(kTailleMax + 1) : QByteArray();
  if (f.error() != QFileDevice::NoError) {
    contenu.Empechement = fichier + QStringLiteral(": ") + f.errorString();
    return contenu;
  }
  contenu.Abimee = octets.size() > kTailleMax;
  if (contenu.Abimee) return contenu;
  QString section;
  const QStringList lignes = QString::fromUtf8(octets).split(QLatin1Char('\n'));
  for (const QString& ligne : lignes)
    if (!AjouteLigne(ligne, section, contenu)) contenu.Abimee = true;
  return contenu;
}

bool MetDeCote(const QString& fichier) {
  const QString cote = fichier + QStringLiteral(".damaged");
  QFile::remove(cote);
  return QFile::copy(fichier, cote) && QFile::setPermissions(cote, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

bool EcritContenu(const QString& fichier, const Contenu& contenu) {
  if (!contenu.Empechement.isEmpty() || (contenu.Abimee && !MetDeCote(fichier))) return false;
  QByteArray octets = "[Source]\n";
  if (!contenu.Source.isEmpty()) octets += CodeTexte(contenu.Source) + '\n';
  octets += "[Formats]\n";
  for (auto it = contenu.Formats.cbegin(); it != contenu.Formats.cend(); ++it)
    octets += CodeTexte(it.key()) + '=' + CodeFormat(it.value()).toUtf8() + '\n';
  if (!contenu.Entrees.isEmpty()) octets += "[Inputs]\n";
  for (auto it = contenu.Entrees.cbegin(); it != contenu.Entrees.cend(); ++it)
    octets += CodeTexte(it.key()) + '=' + CodeEntree(it.value()).toUtf8() + '\n';

  if (!QDir().mkpath(QFileInfo(fichier).absolutePath())) return false;
  QSaveFile f(fichier);
  if (!f.open(QIODevice::WriteOnly)) return false;
  // Before the first byte: a file that was there with wider rights would hand them on to the new one.
  if (!f.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)) return false;
  return f.write(octets) == octets.size() && f.commit();
}

// The window's thread asks too, in the middle of a start: it is not to stand still for a home that a server has.
Contenu Demande(const TravauxEnFile& travaux, const QString& fichier) {
  const std::optional<Contenu> lu = travaux.Attend<Contenu>([fichier] { return LitContenu(fichier); });
  if (lu) return *lu;
  Contenu muet;
  muet.Empechement = fichier + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(ETIMEDOUT));
  return muet;
}

// Read and written in one turn: a change that came in between would be lost.
bool Change(const TravauxEnFile& travaux, const QString& fichier, std::function<void(Contenu&)> change) {
  const auto travail = [fichier, change = std::move(change)] {
    Contenu contenu = LitContenu(fichier);
    change(contenu);
    return EcritContenu(fichier, contenu);
  };
  return travaux.Attend<bool>(travail).value_or(false);
}

}  // namespace

MemoireCapture::MemoireCapture(const QString& fichier) : Fichier_(fichier) {}

QString MemoireCapture::Source() const { return Demande(Travaux_, Fichier_).Source; }

QString MemoireCapture::Empechement() const {
  const Contenu contenu = Demande(Travaux_, Fichier_);
  return contenu.Abimee && contenu.Source.isEmpty() ? Fichier_ : contenu.Empechement;
}

bool MemoireCapture::RetientSource(const QString& source) {
  return Change(Travaux_, Fichier_, [source](Contenu& contenu) { contenu.Source = source; });
}

std::optional<FormatCamera> MemoireCapture::Format(const QString& nomStable) const {
  const Contenu contenu = Demande(Travaux_, Fichier_);
  const auto it = contenu.Formats.constFind(nomStable);
  if (it == contenu.Formats.cend()) return std::nullopt;
  return it.value();
}

bool MemoireCapture::RetientFormat(const QString& nomStable, const FormatCamera& format) {
  if (nomStable.isEmpty()) return false;
  return Change(Travaux_, Fichier_,
                [nomStable, format](Contenu& contenu) { contenu.Formats.insert(nomStable, format); });
}

EntreeCamera MemoireCapture::Entree(const QString& nomStable) const {
  return Demande(Travaux_, Fichier_).Entrees.value(nomStable);
}

bool MemoireCapture::RetientEntree(const QString& nomStable, const EntreeCamera& entree) {
  if (nomStable.isEmpty()) return false;
  return Change(Travaux_, Fichier_, [nomStable, entree](Contenu& contenu) {
    if (entree == EntreeCamera())
      contenu.Entrees.remove(nomStable);
    else
      contenu.Entrees.insert(nomStable, entree);
  });
}

}  // namespace vaktor
