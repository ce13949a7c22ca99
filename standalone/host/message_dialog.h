#pragma once

#include <QDialog>

#include <cstdint>

class QHBoxLayout;
class QPushButton;

/// A message of a test that the user confirms, or a question that the user answers. Answers are those of InputRequest.
class MessageDialog : public QDialog {
  Q_OBJECT

 public:
  /// Of no meaning to a test: the window was closed, or the message refused.
  static constexpr std::uint32_t kUnanswered = 0;

  enum class Kind { kMessage, kQuestion };

  MessageDialog(Kind kind, const QString& title, const QString& text);

  std::uint32_t answer() const { return givenAnswer; }
  /// The button that gives this answer; null when there is none.
  QPushButton* buttonFor(std::uint32_t answer) const;

 private:
  void addButton(QHBoxLayout& row, const QString& text, std::uint32_t answer, bool isDefault);

  std::uint32_t givenAnswer = kUnanswered;
};
