#pragma once

#include <QMessageBox>

#include <cstdint>

class QPushButton;

/// A message of a test that the user confirms, or a question that the user answers. Answers are those of InputRequest.
/// Nothing answers a question but its buttons: it has no default, and none of them has the focus as it opens.
class MessageDialog : public QMessageBox {
  Q_OBJECT

 public:
  /// Of no meaning to a test: the window was closed, or its test cancelled.
  static constexpr std::uint32_t kUnanswered = 0;

  enum class Kind { kMessage, kQuestion };

  /// All texts are plain. `camera` is the name of the camera that the test is about.
  MessageDialog(Kind kind, const QString& title, const QString& text, const QString& camera);

  std::uint32_t answer() const;
  /// The button that gives this answer; null when there is none.
  QPushButton* buttonFor(std::uint32_t answer) const;

 private:
  void keyPressEvent(QKeyEvent* event) override;
  void leaveWithoutDefault();
};
