#include "standalone/host/window/run_view.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QStyle>
#include <QVBoxLayout>

#include "standalone/host/key_texts.h"
#include "standalone/host/run_texts.h"
#include "standalone/host/session/run.h"
#include "standalone/host/window/host_list.h"

namespace {

constexpr int kIconSize = 32;

QLabel* addLabel(QLayout& layout, const char* name) {
  auto* label = new QLabel;
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  layout.addWidget(label);
  return label;
}

}  // namespace

const char* stateName(const Run& run) {
  if (!run.result) return "running";
  return run.result == kTestPassed ? "passed" : run.result == kTestFailed ? "failed" : "other";
}

QIcon stateIcon(const Run& run) {
  return QIcon(QStringLiteral(":/module_host/icons/%1.svg").arg(QLatin1String(stateName(run))));
}

RunView::RunView() {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  title = addLabel(*layout, "host_test_name");
  auto* state = new QWidget;
  state->setObjectName("host_state");
  state->setAttribute(Qt::WA_StyledBackground);
  layout->addWidget(state);
  auto* row = new QHBoxLayout(state);
  icon = new QLabel;
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* texts = new QVBoxLayout;
  row->addLayout(texts, 1);
  verdict = addLabel(*texts, "host_verdict");
  cause = addLabel(*texts, "host_cause");
  progress = new QProgressBar;
  progress->setObjectName("host_progress");
  progress->setAccessibleName(tr("Progress"));
  layout->addWidget(progress);
  messages = new HostList<QListWidget>;
  messages->setObjectName("host_messages");
  messages->setAccessibleName(tr("Messages"));
  messages->setWordWrap(true);
  messages->setTextElideMode(Qt::ElideNone);
  layout->addWidget(messages, 1);
}

void RunView::showRun(const Run& run) {
  title->setText(titleText(run));
  showState(run);
  progress->setVisible(!run.result);
  progress->setValue(run.progress.isEmpty() ? 0 : run.progress.back().percent);
  showMessages(run);
}

void RunView::showState(const Run& run) {
  icon->setPixmap(stateIcon(run).pixmap(kIconSize));
  verdict->setText(run.result ? verdictText(run) : stepText(run));
  cause->setText(run.result ? causeText(run) : QString());
  cause->setVisible(!cause->text().isEmpty());
  QWidget* state = verdict->parentWidget();
  state->setProperty("state", QLatin1String(stateName(run)));
  // A style sheet looks at a property only when the widget is polished.
  for (QWidget* widget : {state, static_cast<QWidget*>(verdict), static_cast<QWidget*>(cause)}) {
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
  }
}

void RunView::showMessages(const Run& run) {
  QStringList lines;
  for (const QString& key : run.messages) {
    const QString advice = adviceText(key);
    lines.append(advice.isEmpty() ? keyText(key) : keyText(key) + QLatin1Char('\n') + advice);
  }
  messages->clear();
  messages->addItems(lines);
  messages->scrollToBottom();
  messages->setVisible(!lines.isEmpty());
}
