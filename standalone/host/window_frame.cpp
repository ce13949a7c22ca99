#include "standalone/host/window_frame.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

#include "module/style_manager.h"

using vexa::utils::style_manager::StyleManager;

WindowFrame::WindowFrame(QWidget& window, const QString& title) : QWidget(&window) {
  window.setWindowTitle(title);
  window.setWindowFlag(Qt::FramelessWindowHint);
  window.setAttribute(Qt::WA_TranslucentBackground);
  window.setStyleSheet(StyleManager::instance().Stylesheet());
  setObjectName("border_widget");
  setAttribute(Qt::WA_StyledBackground);

  auto* header = new QWidget;
  header->setObjectName("host_header");
  header->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  header->installEventFilter(this);
  auto* icon = new QLabel;
  icon->setObjectName("host_header_icon");
  auto* label = new QLabel(title);
  label->setObjectName("host_header_label");
  auto* close = new QPushButton;
  close->setObjectName("host_header_close");
  close->setFlat(true);
  close->setCursor(Qt::PointingHandCursor);
  close->setAccessibleName(tr("Close"));
  connect(close, &QPushButton::clicked, &window, &QWidget::close);

  auto* headerLayout = new QHBoxLayout(header);
  headerLayout->addWidget(icon);
  headerLayout->addWidget(label, 1);
  headerLayout->addWidget(close);

  bodyLayout = new QVBoxLayout;
  bodyLayout->setSpacing(0);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->setSpacing(0);
  layout->addWidget(header);
  layout->addLayout(bodyLayout, 1);

  auto* windowLayout = new QVBoxLayout(&window);
  windowLayout->setContentsMargins(0, 0, 0, 0);
  windowLayout->addWidget(this);
}

bool WindowFrame::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
    window()->windowHandle()->startSystemMove();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}
