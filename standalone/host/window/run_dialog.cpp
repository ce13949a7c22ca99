#include "standalone/host/window/run_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QPixmap>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "standalone/host/run_texts.h"
#include "standalone/host/session/run.h"
#include "standalone/host/window/run_view.h"
#include "standalone/host/window/window_look.h"

namespace {

constexpr QSize kSize(620, 640);
constexpr int kPictureWidth = 520;

QLabel* textLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QLabel* pictureLabel(const Run::Picture& picture) {
  auto* label = new QLabel;
  label->setAccessibleName(pictureText(picture.name));
  QPixmap pixmap;
  pixmap.loadFromData(picture.png);
  const qreal ratio = label->devicePixelRatioF();
  const int width = static_cast<int>(kPictureWidth * ratio);
  if (pixmap.width() > width) pixmap = pixmap.scaledToWidth(width, Qt::SmoothTransformation);
  pixmap.setDevicePixelRatio(ratio);
  label->setPixmap(pixmap);
  return label;
}

}  // namespace

void RunDialog::showSaved(const QString& file) {
  saved->setText(tr("Saved as %1").arg(file));
}

RunDialog::RunDialog(const Run& run, QWidget* parent) : QDialog(parent) {
  setObjectName("host_run_dialog");
  setWindowTitle(tr("Run %1").arg(run.number));
  auto* content = new QWidget;
  content->setObjectName("host_test_content");
  auto* column = new QVBoxLayout(content);
  auto* view = new RunView;
  view->showRun(run);
  column->addWidget(view);
  const QLocale locale;
  column->addWidget(textLabel(tr("From %1 to %2")
                                  .arg(locale.toString(run.start, QLocale::ShortFormat),
                                       locale.toString(run.end.time(), QLocale::ShortFormat))));
  for (const Run::Picture& picture : run.pictures) {
    column->addWidget(textLabel(pictureText(picture.name)));
    column->addWidget(pictureLabel(picture));
  }
  column->addStretch();
  auto* scroll = new QScrollArea;
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setAccessibleName(windowTitle());
  scroll->setWidget(content);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  buttons->button(QDialogButtonBox::Close)->setText(tr("&Close"));
  connect(buttons->addButton(tr("&Save report…"), QDialogButtonBox::ActionRole), &QPushButton::clicked, this,
          &RunDialog::saveWanted);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  saved = textLabel({});
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(scroll, 1);
  layout->addWidget(saved);
  layout->addWidget(buttons);
  resize(kSize);
  new WindowLook(*this);
}
