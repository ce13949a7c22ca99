#include "standalone/host/message_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "standalone/host/window_frame.h"
#include "ui/input_request.h"

namespace {

constexpr const char* kAnswerProperty = "answer";
constexpr int kTextWidth = 380;

}  // namespace

MessageDialog::MessageDialog(Kind kind, const QString& title, const QString& text) {
  auto* frame = new WindowFrame(*this, title);
  setWindowFlag(Qt::WindowStaysOnTopHint);
  setModal(true);

  auto* icon = new QLabel;
  icon->setObjectName(kind == Kind::kQuestion ? "host_message_icon_question" : "host_message_icon_info");
  auto* label = new QLabel(text);
  label->setObjectName("host_message_text");
  label->setWordWrap(true);
  label->setFixedWidth(kTextWidth);
  auto* content = new QHBoxLayout;
  content->setContentsMargins(20, 22, 24, 22);
  content->setSpacing(16);
  content->addWidget(icon, 0, Qt::AlignTop);
  content->addWidget(label, 1);
  frame->body().addLayout(content, 1);

  auto* footer = new QWidget;
  footer->setObjectName("host_footer");
  auto* row = new QHBoxLayout(footer);
  row->setSpacing(10);
  row->addStretch();
  if (kind == Kind::kQuestion) {
    addButton(*row, tr("Yes"), InputRequest::kYes, true);
    addButton(*row, tr("No"), InputRequest::kNo, false);
  } else {
    addButton(*row, tr("OK"), InputRequest::kConfirmed, true);
    addButton(*row, tr("Cancel"), kUnanswered, false);
  }
  frame->body().addWidget(footer);
  // Only now does the button have this window, whose focus it takes.
  buttonFor(kind == Kind::kQuestion ? InputRequest::kYes : InputRequest::kConfirmed)->setFocus();
}

QPushButton* MessageDialog::buttonFor(std::uint32_t answer) const {
  for (QPushButton* button : findChildren<QPushButton*>()) {
    const QVariant value = button->property(kAnswerProperty);
    if (value.isValid() && value.toUInt() == answer) {
      return button;
    }
  }
  return nullptr;
}

void MessageDialog::addButton(QHBoxLayout& row, const QString& text, std::uint32_t answer, bool isDefault) {
  auto* button = new QPushButton(text);
  button->setObjectName(isDefault ? "host_default_button" : "host_button");
  button->setProperty(kAnswerProperty, answer);
  button->setDefault(isDefault);
  button->setCursor(Qt::PointingHandCursor);
  connect(button, &QPushButton::clicked, this, [this, answer] {
    givenAnswer = answer;
    accept();
  });
  row.addWidget(button);
}
