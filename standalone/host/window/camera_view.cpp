#include "standalone/host/window/camera_view.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "standalone/host/key_texts.h"

namespace {

QLabel* plainLabel(const char* name, const QString& text = {}) {
  auto* label = new QLabel(text);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

CameraView::CameraView(const QList<TestDescription>& moduleTests) : tests(moduleTests) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  name = plainLabel("host_camera_name");
  layout->addWidget(name);
  properties = new QGridLayout;
  properties->setHorizontalSpacing(18);
  properties->setColumnStretch(1, 1);
  layout->addLayout(properties);
  for (const TestDescription& test : tests) addTest(test);
}

void CameraView::addTest(const TestDescription& test) {
  auto* row = new QHBoxLayout;
  auto* texts = new QVBoxLayout;
  texts->setSpacing(0);
  texts->addWidget(plainLabel("host_section", keyText(test.name)));
  texts->addWidget(plainLabel("host_test_description", keyText(test.description)));
  row->addLayout(texts, 1);
  auto* button = new QPushButton(tr("Run"));
  button->setAccessibleName(tr("Run: %1").arg(keyText(test.name)));
  connect(button, &QPushButton::clicked, this, [this, test] { emit runWanted(test); });
  runButtons.append(button);
  row->addWidget(button, 0, Qt::AlignBottom);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void CameraView::showCamera(const Camera& camera) {
  name->setText(camera.name);
  while (QLayoutItem* item = properties->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  int row = 0;
  for (const Property& property : camera.properties) {
    auto* key = plainLabel("host_property_name", keyText(property.key));
    key->setWordWrap(false);
    properties->addWidget(key, row, 0, Qt::AlignTop);
    auto* value = plainLabel("host_property_value", property.value);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    properties->addWidget(value, row++, 1);
    // Else they would be shown by an event: too late for a picture of the window.
    key->setVisible(true);
    value->setVisible(true);
  }
}

void CameraView::setCanRun(bool canRun) {
  for (qsizetype i = 0; i < tests.size(); ++i) runButtons[i]->setEnabled(canRun && tests[i].isImplemented);
}
