#include <QDialog>
#include <QElapsedTimer>
#include <QEvent>
#include <QImage>
#include <QLine>
#include <QPainter>
#include <QPixmap>

#include <array>
#include <memory>
#include <stdexcept>

#include "benchmarks/comparison.h"
#include "benchmarks/durations.h"
#include "benchmarks/rows.h"
#include "benchmarks/user_interface.h"
#include "module/style_manager.h"
#include "ui/camera_barcode_dialog.h"
#include "ui/camera_barcode_widget_wrapper.h"
#include "ui/camera_dialog.h"
#include "ui/camera_widget_wrapper.h"
#include "ui/ui_camera_barcode_dialog.h"
#include "ui/ui_camera_dialog.h"

namespace {

constexpr QSize kFrame(1920, 1080);
constexpr QSize kShown(1280, 720);
/// On a screen of more than 1600 pixels.
constexpr QSize kBarcodeShown(960, 540);

QImage black(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::black);
  return image;
}

QImage gradient(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) image.setPixel(x, y, qRgb(x % 256, y % 256, (x + y) % 256));
  }
  return image;
}

/// What the step takes on the user-interface thread. What it leaves for the event loop does not count.
double onScreen(const std::function<void()>& step) {
  double milliseconds = 0;
  onUserInterface([&] { milliseconds = millisecondsOf(step); });
  onUserInterface([] {});
  return milliseconds;
}

QImage scaled(const QImage& frame, QSize size) {
  return frame.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

/// Sixteen lines, long and short as the viewfinder's.
std::array<QLine, 16> lines(QPoint center) {
  std::array<QLine, 16> all;
  for (int i = 0; i < 16; ++i) {
    const QPoint begin = center + QPoint(i % 2 == 0 ? -340 : 310, (i - 8) * 15);
    all[static_cast<std::size_t>(i)] = QLine(begin, begin + (i % 4 < 2 ? QPoint(30, 0) : QPoint(0, 30)));
  }
  return all;
}

QImage withLines(QImage image) {
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::gray, 5.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const auto all = lines(image.rect().center());
  painter.drawLines(all.data(), static_cast<int>(all.size()));
  return image;
}

/// Measures LoadFrame of a shown dialog. `prepare` is called with the new dialog; both on the user-interface thread.
template <class Dialog>
void compareLoadFrame(Comparison& comparison, const Row& row, const std::function<void(Dialog&)>& prepare,
                      const std::function<QPixmap(const QImage&)>& bare) {
  if (!comparison.wants(row.work)) return;
  const QImage frame = gradient(kFrame);
  std::unique_ptr<Dialog> dialog;
  QPixmap pixmap;
  onUserInterface([&] {
    dialog = std::make_unique<Dialog>(nullptr, nullptr);
    prepare(*dialog);
    dialog->show();
  });
  comparison.compare(
      row, [&] { return onScreen([&] { dialog->LoadFrame(frame); }); },
      [&] { return onScreen([&] { pixmap = bare(frame); }); });
  onUserInterface([&] {
    dialog.reset();
    pixmap = {};
  });
}

/// Knows whether a window has been painted since it was last shown.
class PaintWatch : public QObject {
 public:
  /// Runs the event loop until it has. Throws std::runtime_error after some seconds.
  void wait() {
    QElapsedTimer timer;
    for (timer.start(); !painted;) {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
      if (timer.elapsed() > 5000) throw std::runtime_error("a dialog is not painted");
    }
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) painted = false;
    if (event->type() == QEvent::Paint) painted = true;
    return false;
  }

 private:
  bool painted = false;
};

template <class Wrapper>
double openModules() {
  double milliseconds = 0;
  onUserInterface([&] {
    PaintWatch watch;
    const auto wrapper = std::make_shared<Wrapper>(kShown, nullptr);
    milliseconds = millisecondsOf([&] {
      static_cast<void>(wrapper->CreateWidget(nullptr, &watch));
      watch.wait();
    });
    wrapper->Close();
    QCoreApplication::processEvents();
  });
  onUserInterface([] {});
  return milliseconds;
}

/// A form in a window of the dialogs' kind, with the host's style sheet.
template <class Form>
struct BareDialog : QDialog {
  BareDialog() {
    setAttribute(Qt::WA_TranslucentBackground);
    setStyleSheet(vexa::utils::style_manager::StyleManager::instance().Stylesheet());
    form.setupUi(this);
    setWindowModality(Qt::ApplicationModal);
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
  }
  Form form;
};

void fill(BareDialog<Ui::CameraDialog>& dialog) {
  dialog.setMaximumSize(kShown);
  dialog.form.camera_capture_test_header_label->setText(QStringLiteral("CAMERA_DIALOG_TITLE"));
  dialog.form.camera_capture_test_lb_image_view->setMaximumSize(kShown);
  dialog.form.camera_capture_test_lb_image_view->setPixmap(QPixmap::fromImage(black(kShown)));
}

void fill(BareDialog<Ui::CameraBarcodeDialog>& dialog) {
  Ui::CameraBarcodeDialog& form = dialog.form;
  dialog.setMaximumSize(kBarcodeShown);
  form.camera_barcode_test_gray_area_top->setMinimumHeight(70);
  form.camera_barcode_test_gray_area_bottom->setMinimumHeight(70);
  form.camera_barcode_test_information_message->setText(QStringLiteral("CAMERA_POINT_BARCODE_MESSAGE"));
  form.camera_barcode_test_information_message->setAlignment(Qt::AlignCenter);
  form.camera_barcode_test_header_label->setText(QStringLiteral("CAMERA_BARCODE_DIALOG_TITLE"));
  form.camera_barcode_test_button_fail->setText(QStringLiteral("FAIL"));
  form.camera_barcode_test_fail_text_label->setText(QStringLiteral("CAMERA_FAIL_LABEL"));
  form.camera_barcode_test_step_one_warning->hide();
  form.camera_barcode_test_step_two_current->hide();
  form.camera_barcode_test_warning_container->hide();
  form.camera_barcode_test_camera_image->setPixmap(QPixmap::fromImage(withLines(scaled(black(kShown), kBarcodeShown))));
}

enum class Showing { kOnce, kTwice };

template <class Form, Showing showing>
double openBare() {
  double milliseconds = 0;
  onUserInterface([&] {
    PaintWatch watch;
    std::unique_ptr<BareDialog<Form>> dialog;
    milliseconds = millisecondsOf([&] {
      dialog = std::make_unique<BareDialog<Form>>();
      dialog->installEventFilter(&watch);
      fill(*dialog);
      if (showing == Showing::kTwice) {
        dialog->setWindowFlags(dialog->windowFlags() | Qt::WindowStaysOnTopHint);
        dialog->open();
        dialog->hide();
        dialog->setWindowFlags(dialog->windowFlags() & ~Qt::WindowStaysOnTopHint);
      }
      dialog->show();
      watch.wait();
    });
    dialog->close();
    dialog.reset();
    QCoreApplication::processEvents();
  });
  onUserInterface([] {});
  return milliseconds;
}

template <class Wrapper, class Form>
void compareOpening(Comparison& comparison, const std::string& work) {
  if (!comparison.wants(work)) return;
  comparison.compare({work, "the same form, shown by Qt alone", 1.20}, openModules<Wrapper>,
                     openBare<Form, Showing::kOnce>);
  comparison.compare({work, "the same, opened, hidden and shown", 0}, openModules<Wrapper>,
                     openBare<Form, Showing::kTwice>);
}

}  // namespace

void compareDialogs(Comparison& comparison) {
  compareLoadFrame<CameraDialog>(
      comparison, {"LoadFrame, capture test's dialog", "Qt's scaling and conversion", 1.05},
      [](CameraDialog& dialog) { dialog.SetImageSize(kShown.width(), kShown.height()); },
      [](const QImage& frame) { return QPixmap::fromImage(scaled(frame, kShown)); });
  compareLoadFrame<CameraBarcodeDialog>(
      comparison, {"LoadFrame, barcode test's dialog", "the same, with sixteen lines drawn", 1.10},
      [](CameraBarcodeDialog&) {},
      [](const QImage& frame) { return QPixmap::fromImage(withLines(scaled(frame, kBarcodeShown))); });

  compareOpening<CameraWidgetWrapper, Ui::CameraDialog>(comparison, "opening the capture test's dialog");
  compareOpening<CameraBarcodeWidgetWrapper, Ui::CameraBarcodeDialog>(comparison, "opening the barcode test's dialog");
}
