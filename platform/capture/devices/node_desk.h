// SPDX-License-Identifier: GPL-3.0-or-later
// Questions to device nodes that may never answer. A driver that hangs holds whoever opens its node, and nothing can
// call that thread back: so each node is asked by a thread of its own, and whoever wants to know waits only so long.
#pragma once

#include <QStringList>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace vaktor {

/// One desk for each node, where questions are answered one after the other. Used by one thread; on that of the windows
/// the wait lets them live (live_wait.h). What is asked runs on another thread and may outlive the desks: it must hold
/// all that it touches.
class GuichetsNoeuds {
 public:
  GuichetsNoeuds();
  ~GuichetsNoeuds();
  GuichetsNoeuds(const GuichetsNoeuds&) = delete;
  GuichetsNoeuds& operator=(const GuichetsNoeuds&) = delete;

  /// Empty: no answer within the time, or the node still owes an earlier one; then it is not asked again.
  template <class T>
  std::optional<T> Demande(const QString& noeud, std::function<T()> question, std::chrono::milliseconds limite) {
    auto reponse = std::make_shared<T>();
    const auto pose = [reponse, question = std::move(question)] { *reponse = question(); };
    if (!Pose({{noeud, pose}}, limite).value(0)) return std::nullopt;
    return std::move(*reponse);
  }
  /// The same question to many nodes at once, all within one time; by their order.
  template <class T>
  QList<std::optional<T>> DemandeATous(const QStringList& noeuds, const std::function<T(const QString&)>& question,
                                       std::chrono::milliseconds limite) {
    QList<std::shared_ptr<T>> places;
    QList<Question> questions;
    for (const QString& noeud : noeuds) {
      places.append(std::make_shared<T>());
      questions.append({noeud, [place = places.last(), question, noeud] { *place = question(noeud); }});
    }
    const QList<bool> venues = Pose(questions, limite);
    QList<std::optional<T>> reponses;
    for (qsizetype i = 0; i < venues.size(); ++i)
      reponses.append(venues[i] ? std::optional<T>(std::move(*places[i])) : std::nullopt);
    return reponses;
  }
  /// Nodes that owe an answer at this moment.
  QStringList Muets() const;

 private:
  class Guichet;
  struct Question {
    QString Noeud;
    std::function<void()> Pose;
  };

  QList<bool> Pose(const QList<Question>& questions, std::chrono::milliseconds limite);

  std::map<QString, std::shared_ptr<Guichet>> Guichets_;
};

}  // namespace vaktor
