#include "ui/picture_dialog.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include "ui/dialog_text.h"
#include "utils/platform/narrator.h"

namespace {

/// In pixels, of each of the two rings.
constexpr int kRingWidth = 2;

/// Two rings: the outer one differs from the window around it, and one of them from whatever the picture shows.
void drawFocusRing(QWidget& widget) {
  const QPalette palette = QGuiApplication::palette();
  QPainter painter(&widget);
  for (int inset = 0; inset < 2 * kRingWidth; ++inset) {
    painter.setPen(palette.color(inset < kRingWidth ? QPalette::Text : QPalette::Base));
    painter.drawRect(widget.rect().adjusted(inset, inset, -inset - 1, -inset - 1));
  }
}

}  // namespace

PictureDialog::PictureDialog(QWidget* parent, QObject* eventFilter, HiddenWidgets hiddenWidgets)
    : InputDialog(parent, eventFilter), hidden(hiddenWidgets) {}

void PictureDialog::useParts(QWidget* newHeader, QWidget* newCloseButton, QLabel* newView) {
  header = newHeader;
  closeButton = newCloseButton;
  view = newView;
  closeButton->setAccessibleName(dialogText(dialog_keys::kClosePopUp));
  view->setAccessibleName(dialogText(dialog_keys::kCamera));
  view->installEventFilter(this);
}

void PictureDialog::prepareForScreenReader(std::initializer_list<QWidget*> readable) {
  for (QWidget* const widget : readable) widget->setFocusPolicy(Qt::StrongFocus);
  (*readable.begin())->setFocus(Qt::OtherFocusReason);
  closeButton->setAccessibleDescription(dialogText(dialog_keys::kClosePopUp));
  view->setAccessibleDescription(dialogText(dialog_keys::kCamera));
  focusWidgets = strongFocusWidgets(*this);
}

void PictureDialog::storeResult(int answer) {
  if (resultTarget) *resultTarget = answer;
  setResult(answer);
  // No event may follow before the dialog's end.
  if (dialogResultTarget) *dialogResultTarget = answer;
}

QImage PictureDialog::stretched(const QImage& image) const {
  if (image.isNull()) return image;
  return image.scaled(imageWidth, imageHeight, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

void PictureDialog::showPicture(const QImage& picture) {
  view->setPixmap(QPixmap::fromImage(picture));
}

bool PictureDialog::event(QEvent* event) {
  // Before the event, which may be the end of the dialog.
  if (dialogResultTarget) *dialogResultTarget = result();
  return InputDialog::event(event);
}

bool PictureDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Paint || !view->hasFocus()) return InputDialog::eventFilter(watched, event);
  watched->event(event);
  drawFocusRing(*view);
  return true;
}

void PictureDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    onEscape();
    return;
  }
  // Without a screen reader the dialog itself reacts to Escape only. A focused button takes Enter, Space and the arrow
  // keys before they get here.
  if (!vexa::utils::platform::IsNarratorRunning() || focusWidgets.isEmpty()) return;
  stepFocus(focusWidgets, event->key(), hidden);
  QDialog::keyPressEvent(event);
}

void PictureDialog::mousePressEvent(QMouseEvent* event) {
  if (!header->underMouse() || closeButton->underMouse()) return;
  dragging = true;
  dragOffset = event->position().toPoint();
  setCursor(Qt::ClosedHandCursor);
}

void PictureDialog::mouseMoveEvent(QMouseEvent* event) {
  if (dragging) move(event->globalPosition().toPoint() - dragOffset);
}

// Deliberate: only a release over the header ends the drag. Until then the window follows the mouse.
void PictureDialog::mouseReleaseEvent(QMouseEvent*) {
  if (!header->underMouse()) return;
  dragging = false;
  unsetCursor();
}

void PictureDialog::resizeEvent(QResizeEvent*) {}
