// SPDX-License-Identifier: GPL-3.0-or-later
// VueAMenu: a picture with a pop-up menu, for those who have no mouse or do not see it.
#pragma once

#include <QMenu>
#include <QWidget>
#include <functional>

namespace vaktor {

/// Base of both views of the camera. The mouse is a matter of each of them; keys and screen readers open the menu here.
/// User-interface thread.
class VueAMenu : public QWidget {
  Q_OBJECT

 public:
  explicit VueAMenu(QWidget* parent);

  /// The view's name, and what it shows at the moment; `paroles` is called whenever somebody listens.
  void ChangeParoles(const QString& nom, std::function<QString()> paroles);
  QString Paroles() const { return Paroles_ ? Paroles_() : QString(); }
  void AnnonceParoles();  ///< what Paroles says has changed

 Q_SIGNALS:
  /// Asked for by the menu key, by Shift+F10, Enter or Space, or by a screen reader.
  void MenuAuClavier();

 protected:
  void contextMenuEvent(QContextMenuEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;

 private:
  std::function<QString()> Paroles_;
};

/// Opens `menu` over the middle of `vue` with its first entry chosen: arrows and Enter go on from there.
void OuvreAuClavier(QMenu& menu, const QWidget& vue);

}  // namespace vaktor
