#include "utils/accessibility/high_contrast_style.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <utility>

#include <gmock/gmock.h>

#include "module/style_manager.h"
#include "unit_tests/fakes/fake_host_services.h"
#include "unit_tests/fakes/fake_platform.h"
#include "unit_tests/fakes/fault_rounds.h"
#include "utils/accessibility/accessible_dialog_base.h"
#include "utils/accessibility/recolored_icons.h"
#include "utils/accessibility/style_sheet.h"
#include "utils/event_filters/high_contrast_event_filter.h"
#include "utils/platform/display_scale_table.h"
#include "utils/platform/folder_path.h"
#include "utils/platform/narrator.h"

using namespace vexa::utils::accessibility;
using testing::HasSubstr;
using testing::Not;
using vexa::utils::event_filters::HighContrastEventFilter;
using vexa::utils::platform::DisplayScaleTable;
using vexa::utils::platform::IsNarratorRunning;
using vexa::utils::style_manager::StyleManager;

namespace {

const QByteArray kIcon =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16"><rect width="16" height="16" fill="#123"/></svg>)";

TEST(StyleSheetTest, IsTakenApartWhateverItsAuthorWrote) {
  const std::pair<const char*, const char*> kCases[] = {
      {"A,B:hover{X: 1 ; y :2}", "A {X: 1;y: 2;}B:hover {X: 1;y: 2;}"},
      {"/* A{x:1} */B/**/{/*;*/x:1/*}*/}C{x:\"/* no comment */\"}", "B {x: 1;}C {x: \"/* no comment */\";}"},
      {"A[t=\"a,b{\"]{x:url(a;b,c.svg);y:'};';z:1}", "A[t=\"a,b{\"] {x: url(a;b,c.svg);y: '};';z: 1;}"},
      {"@import url(x);A{x:1}@media x{B{y:1}}C{z:1}", "A {x: 1;}C {z: 1;}"},
      {"A{x;:1;y:;z:1;;}", "A {z: 1;}"},
      {"A{} ,{x:1}}B{x:1", "A {}"},
      {"A{x:'it;y:1\n}B{y:2}", "A {}B {y: 2;}"},
      {"A{x:1{y:2};z:3}", "A {z: 3;}"},
      {"A{x:1}/* open", "A {x: 1;}"},
      {"A{x:\\", ""},
      {"", ""},
  };
  for (const auto& [sheet, expected] : kCases) {
    QString text;
    for (const StyleRule& rule : parseStyleSheet(QLatin1String(sheet))) text += toText(rule);
    EXPECT_EQ(text.remove(QLatin1String("\n  ")).remove(u'\n').toStdString(), expected) << sheet;
  }
}

TEST(RecoloredSvgTest, ChangesEveryFillButNone) {
  const std::pair<const char*, const char*> kCases[] = {
      {R"(<svg fill="red"><g fill='url(#a)'/></svg>)", R"(<svg fill="#0a0b0c"><g fill="#0a0b0c"/></svg>)"},
      {R"(<svg fill="none" stroke="red" data-fill="x"/>)", R"(<svg fill="none" stroke="red" data-fill="x"/>)"},
      {R"(<svg style="fill:red;stroke:red"><a style="stroke-fill:b; fill : b "/></svg>)",
       R"(<svg fill="#0a0b0c" style="fill:#0a0b0c;stroke:red"><a style="stroke-fill:b; fill : #0a0b0c"/></svg>)"},
      {R"(<svg style="fill:none"><a style="fill: none ;x:y"/></svg>)",
       R"(<svg fill="#0a0b0c" style="fill:none"><a style="fill: none ;x:y"/></svg>)"},
      {R"(<s:svg xmlns:s="n"><s:a fill="b">fill="b"&amp;</s:a></s:svg>)",
       R"(<s:svg fill="#0a0b0c" xmlns:s="n"><s:a fill="#0a0b0c">fill=&quot;b&quot;&amp;</s:a></s:svg>)"},
      {R"(<svg fill="red">)", ""},
      {R"(<html fill="red"/>)", ""},
      {"no picture", ""},
      {"", ""},
  };
  for (const auto& [svg, expected] : kCases) {
    const QByteArray recolored = recoloredSvg(svg, QColor(10, 11, 12)).trimmed();
    EXPECT_EQ(recolored.mid(recolored.indexOf("<s")).toStdString(), expected) << svg;
  }
}

class HighContrastStyleTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder.isValid());
    fakePlatform() = {.shade = 90, .programData = folder.path()};
    write("icon.svg", kIcon);
  }

  QString write(const char* name, const QByteArray& content) {
    QFile file(folder.filePath(QLatin1String(name)));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    return file.fileName();
  }
  std::string style(const QString& hostSheet) {
    return highContrastStyleSheet(hostSheet, HighContrastEventFilter(nullptr).ReadSystemColors(), icons).toStdString();
  }
  static QString temporaryFolder() {
    return QString::fromStdWString(vexa::utils::platform::GetFolderPath(vexa::utils::platform::kTemporaryFolder));
  }
  static std::string color(int number) { return fakeSystemColor(number).name().toStdString(); }

  QTemporaryDir folder;
  RecoloredIcons icons{nullptr};
};

TEST_F(HighContrastStyleTest, KeepsAllButColorsAndBordersOfTheHost) {
  const std::string sheet = style(
      "QLabel, QLabel#x:hover { color: red; MIN-WIDTH: 30px; background-repeat: none; qproperty-iconSize: 9px; "
      "background: url(x.png); border-radius: 3px; font: bold;"
      " selection-background-color: red; image: url(x.png); outline: none; padding: 1px 2px; }"
      "QFrame { color: red }");
  const std::string kept =
      " {\n  MIN-WIDTH: 30px;\n  background-repeat: none;\n  qproperty-iconSize: 9px;\n  font: bold;\n  image: "
      "url(x.png);\n  padding: 1px 2px;\n}\n";
  EXPECT_THAT(sheet, testing::StartsWith("QLabel" + kept + "QLabel#x:hover" + kept +
                                         "QWidget#border_widget {\n  background-color: " + color(5) +
                                         ";\n  border: 1px solid " + color(8) + ";\n}\n"));
  EXPECT_THAT(sheet, Not(HasSubstr("red")));

  // A rule that Qt cannot read makes it drop the whole sheet (and warn, which fails the test).
  QPushButton button;
  button.setStyleSheet(QString::fromStdString(sheet));
  button.ensurePolished();
  EXPECT_EQ(button.palette().color(QPalette::ButtonText), fakeSystemColor(18));
}

TEST_F(HighContrastStyleTest, GivesAnIconTheColorOfWhatItStandsOn) {
  const std::pair<const char*, int> kCases[] = {{"QLabel#a_icon", 8},
                                                {"QLabel#a_icon:disabled", 17},
                                                {"QPushButton#a", 18},
                                                {"#camera_barcode_test_header_close", 18},
                                                {"#camera_barcode_test_header_close:hover", 14},
                                                {"QPushButton:pressed", 14},
                                                {"QPushButton:active:focus", 14},
                                                {"QPushButton:disabled", 17}};
  for (const auto& [selector, number] : kCases) {
    const std::string sheet = style(QStringLiteral("%1 { background: url(%2/icon.svg) }").arg(selector, folder.path()));
    const std::string start = std::string(selector) + " {\n  background-image: url(\"";
    ASSERT_THAT(sheet, testing::StartsWith(start));
    QFile icon(QString::fromStdString(sheet.substr(start.size(), sheet.find('"', start.size()) - start.size())));
    ASSERT_TRUE(icon.open(QIODevice::ReadOnly)) << sheet;
    EXPECT_THAT(icon.readAll().toStdString(), HasSubstr("fill=\"" + color(number) + "\"")) << selector;
  }
}

TEST_F(HighContrastStyleTest, AButtonsIconFollowsItsStates) {
  const std::string sheet = style("QPushButton#a { qproperty-icon: url('" + folder.path() + "/icon.svg'); }");
  for (const char* const state : {"", ":hover", ":disabled", ":active:focus"}) {
    EXPECT_THAT(sheet, HasSubstr("QPushButton#a" + std::string(state) + " {\n  icon: url(\""));
  }
}

TEST_F(HighContrastStyleTest, IconsAreFilesThatGoWithTheirOwner) {
  const QString icon = folder.filePath(QStringLiteral("icon.svg"));
  auto owned = std::make_unique<RecoloredIcons>(nullptr);
  const std::string path = owned->path(icon, Qt::red).toStdString();
  EXPECT_THAT(path, testing::AllOf(HasSubstr("/icon_"), testing::EndsWith(".svg")));
  EXPECT_EQ(path, owned->path(icon, Qt::red).toStdString()) << "made once";
  EXPECT_NE(path, owned->path(icon, Qt::blue).toStdString());
  EXPECT_THAT(owned->path(write(".svg", kIcon), Qt::red).toStdString(), HasSubstr("/temp_svg_"));
  EXPECT_EQ(QDir(temporaryFolder()).entryList(QDir::Files).size(), 3);
  owned.reset();
  EXPECT_TRUE(QDir(temporaryFolder()).isEmpty());
}

TEST_F(HighContrastStyleTest, AStepWhoseIconCannotBeMadeGetsABorderOfItsOwn) {
  const auto hasBorder = [this](const QString& icon) {
    const std::string sheet = style(
        QStringLiteral("QLabel#camera_barcode_test_step_one_current { min-width: 30px; image: url(%1); }").arg(icon));
    EXPECT_THAT(sheet, HasSubstr("step_one_current {\n  min-width: 30px;\n"));
    EXPECT_THAT(sheet, HasSubstr("step_one_warning {\n  border: 2px dashed"));
    EXPECT_THAT(sheet, HasSubstr("step_two_waiting {\n  border: 1px solid"));
    return sheet.find("step_one_current {\n  border: 2px solid") != std::string::npos;
  };
  const QString icon = folder.filePath(QStringLiteral("icon.svg"));
  EXPECT_FALSE(hasBorder(icon));
  EXPECT_TRUE(hasBorder(write("bad.svg", "<svg>")));
  EXPECT_TRUE(hasBorder("no.svg"));
  fakePlatform().programData = icon;  // a file: no folder can be made below it
  EXPECT_TRUE(hasBorder(write("other.svg", kIcon)));
}

/// What the system says of the user, his screen and the folder for the icons, and the memory of the module's own code.
TEST_F(HighContrastStyleTest, WhateverFailsADialogDoesWithoutItAndLeavesNothingBehind) {
  const QString host = QStringLiteral("QLabel#a { image: url(%1/icon.svg) }").arg(folder.path());
  using Looks = std::tuple<bool, bool, bool, double>;
  const std::map<std::string, Looks> expected = {{"", {true, true, true, 2}},
                                                 {"awareness", {true, true, true, 2}},
                                                 {"high contrast", {false, true, true, 2}},
                                                 {"screen reader", {true, false, true, 2}},
                                                 {"folder", {true, true, false, 2}},
                                                 {"dpi", {true, true, true, 1}},
                                                 {"others", {true, true, true, 2}},
                                                 // The list of monitors, which is caught.
                                                 {"new", {true, true, true, 1}}};
  FaultRounds rounds;
  rounds.forEach({Fault::kSystem, Fault::kMemory}, [&] {
    resetFakeHostServices();
    fakePlatform() = {.narratorRuns = true, .highContrast = true, .monitorDpi = 192, .programData = folder.path()};
    Looks looks;
    const auto make = [&] {
      const AccessibleDialogBase dialog(nullptr);
      std::get<0>(looks) = dialog.styleSheet() != StyleManager::instance().Stylesheet();
      std::get<1>(looks) = IsNarratorRunning();
      RecoloredIcons own(nullptr);
      const HighContrastEventFilter filter(nullptr);
      std::get<2>(looks) = highContrastStyleSheet(host, filter.ReadSystemColors(), own).contains(u"svg");
      std::get<3>(looks) = DisplayScaleTable().ScaleFactor(0);
    };
    const bool finished = rounds.attempt(make);
    EXPECT_TRUE(finished || rounds.kind == Fault::kMemory);
    // A fault that lasts meets more than one of them.
    if (finished && (!rounds.lasts || rounds.name.empty())) {
      EXPECT_EQ(looks, expected.at(rounds.name));
    }
    EXPECT_TRUE(QDir(temporaryFolder()).isEmpty());
    EXPECT_EQ(fakeHostServices().librariesOpen, 0);
    EXPECT_FALSE(sendNativeMessage("windows_generic_MSG", 794)) << "no filter is left";
    make();
    EXPECT_EQ(looks, expected.at(""));
  });
}

}  // namespace
