// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/dialogs/message_strip.h"

#include <QAccessible>

namespace vaktor {
namespace {

// Ink and ground together, so that it can be read under any theme.
const auto kNeutre = QStringLiteral("padding:6px;border:1px solid transparent;");
const auto kReussite =
    QStringLiteral("padding:6px;border:1px solid #9cc8ac;border-radius:4px;background:#e8f5ec;color:#14532d;");
const auto kErreur =
    QStringLiteral("padding:6px;border:1px solid #e2a3a0;border-radius:4px;background:#fdecea;color:#7a1010;");
const auto kAttente =
    QStringLiteral("padding:6px;border:1px solid #b9c3dd;border-radius:4px;background:#eceffa;color:#1f2a5c;");

}  // namespace

BandeauMessage::BandeauMessage(const QString& nom, QWidget* parent) : QLabel(parent) {
  setObjectName(nom);
  setWordWrap(true);
  setTextFormat(Qt::PlainText);
  setMinimumHeight(2 * fontMetrics().lineSpacing() + 14);
  setStyleSheet(kNeutre);
}

void BandeauMessage::MontreReussite(const QString& texte) { Montre(texte, kReussite); }
void BandeauMessage::MontreErreur(const QString& texte) { Montre(texte, kErreur); }
void BandeauMessage::Efface() { Montre(QString(), kNeutre); }

void BandeauMessage::MontreAttente(const QString& texte) {
  Montre(texte, kAttente);
  repaint();
}

void BandeauMessage::Montre(const QString& texte, const QString& style) {
  setText(texte);
  setAccessibleName(texte);
  setStyleSheet(style);
  if (texte.isEmpty()) return;
  QAccessibleEvent annonce(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&annonce);
}

}  // namespace vaktor
