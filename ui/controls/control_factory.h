// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the controls of the main window: each with its name, its place in pixels and its font in one call.
#pragma once

#include <QColor>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QString>

#include "ui/controls/tick_box.h"

namespace vaktor {

/// Label fonts are Arial of 8.25, 9 and 9.75 points at 96 dots an inch. They are given in pixels, as all places are, so
/// that captions fit whatever density the screen claims.
inline constexpr int kPolicePetite = 11;
inline constexpr int kPoliceMoyenne = 12;
inline constexpr int kPoliceGrande = 13;
inline constexpr QRgb kGrisTexte = qRgb(0x40, 0x40, 0x40);
inline constexpr QRgb kBlancTexte = qRgb(0xff, 0xff, 0xff);

/// "Bouton(3)": the name of one control of an array.
QString NomIndexe(const char* nom, int index);

QLabel* CreeEtiquette(QWidget* parent, const QString& nom, const QRect& place, int police = kPolicePetite,
                      QRgb couleur = kGrisTexte);
/// The caption beside a field or a box: of middle size, and on one line with what stands in the field when both are as
/// high.
QLabel* CreeEtiquetteDeChamp(QWidget* parent, const QString& nom, const QRect& place);
QLineEdit* CreeChamp(QWidget* parent, const QString& nom, const QRect& place);
/// A field for a password: each character shows as "*".
QLineEdit* CreeChampSecret(QWidget* parent, const QString& nom, const QRect& place);
QComboBox* CreeListe(QWidget* parent, const QString& nom, const QRect& place);
/// The font of all check boxes, "MS Sans Serif" of 9.75 points; the system puts its nearest one in its place.
void HabilleCase(QCheckBox& boite);
CaseACocher* CreeCase(QWidget* parent, const QString& nom, const QPoint& place);

/// Changes the colour of a label's text.
void ColoreEtiquette(QLabel& etiquette, QRgb couleur);

}  // namespace vaktor
