#include "standalone/host/window/settings_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include <limits>

#include "standalone/host/window/remembered.h"
#include "standalone/host/window/window_look.h"

namespace {

constexpr int kLongestTimeout = std::numeric_limits<int>::max();

QVariant remember(const char* name) {
  return QSettings().value(QLatin1String(name));
}

}  // namespace

RunSettings rememberedSettings() {
  RunSettings settings;
  bool isNumber = false;
  const uint timeout = remember(remembered::kTimeout).toUInt(&isNumber);
  if (isNumber) settings.timeout = timeout;
  settings.operatorName = remember(remembered::kOperator).toString();
  return settings;
}

QString rememberedReportFolder() {
  return remember(remembered::kReportFolder).toString();
}

SettingsDialog::SettingsDialog(const RunSettings& settings, QWidget* parent) : QDialog(parent) {
  setObjectName("host_settings_dialog");
  setWindowTitle(tr("Settings"));
  auto* form = new QFormLayout;
  form->setRowWrapPolicy(QFormLayout::WrapLongRows);
  language = new QComboBox;
  language->setObjectName("host_language");
  language->setAccessibleName(tr("Language"));
  language->addItem(tr("As Windows"), QString());
  language->addItem(QStringLiteral("English"), QStringLiteral("en"));
  language->addItem(QStringLiteral("Deutsch"), QStringLiteral("de"));
  language->setCurrentIndex(qMax(0, language->findData(remember(remembered::kLanguage).toString())));
  form->addRow(tr("&Language (from the next start)"), language);
  timeout = new QLineEdit(settings.timeout ? QString::number(*settings.timeout) : QString());
  timeout->setObjectName("host_timeout");
  timeout->setValidator(new QIntValidator(0, kLongestTimeout, timeout));
  timeout->setPlaceholderText(tr("As the module has it"));
  form->addRow(tr("&Time of the live picture, in seconds"), timeout);
  form->addRow(tr("Report of every run in"), makeFolderRow());
  operatorName = new QLineEdit(settings.operatorName);
  operatorName->setObjectName("host_operator");
  form->addRow(tr("&Operator"), operatorName);
  serialNumber = new QLineEdit(settings.serialNumber);
  serialNumber->setObjectName("host_serial_number");
  form->addRow(tr("&Serial number of the PC"), serialNumber);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  buttons->button(QDialogButtonBox::Ok)->setText(tr("OK"));
  buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(buttons);
  for (QLabel* label : findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  new WindowLook(*this);
}

QLayout* SettingsDialog::makeFolderRow() {
  auto* layout = new QHBoxLayout;
  auto* shown = new QLabel;
  layout->addWidget(shown, 1);
  const auto choose = [this, shown](const QString& folder) {
    reportFolder = folder;
    shown->setText(folder.isEmpty() ? tr("nowhere") : QDir::toNativeSeparators(folder));
  };
  choose(rememberedReportFolder());
  auto* change = new QPushButton(tr("C&hoose…"));
  change->setAccessibleName(tr("Choose the folder of the reports"));
  connect(change, &QPushButton::clicked, this, [this, choose] {
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder of the reports"), reportFolder);
    if (!folder.isEmpty()) choose(folder);
  });
  layout->addWidget(change);
  auto* none = new QPushButton(tr("&Nowhere"));
  none->setAccessibleName(tr("Save reports nowhere"));
  connect(none, &QPushButton::clicked, this, [choose] { choose({}); });
  layout->addWidget(none);
  return layout;
}

RunSettings SettingsDialog::settings() const {
  RunSettings settings;
  if (timeout->hasAcceptableInput()) settings.timeout = timeout->text().toUInt();
  settings.operatorName = operatorName->text();
  settings.serialNumber = serialNumber->text();
  return settings;
}

void SettingsDialog::accept() {
  QSettings store;
  store.setValue(QLatin1String(remembered::kLanguage), language->currentData());
  store.setValue(QLatin1String(remembered::kTimeout), timeout->hasAcceptableInput() ? timeout->text() : QString());
  store.setValue(QLatin1String(remembered::kReportFolder), reportFolder);
  store.setValue(QLatin1String(remembered::kOperator), operatorName->text());
  QDialog::accept();
}
