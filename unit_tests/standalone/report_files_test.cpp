#include "standalone/host/reports/report_files.h"

#ifdef __linux__
#include <sys/resource.h>

#include <csignal>
#endif

#include <gmock/gmock.h>

#include "standalone/host/host_error.h"
#include "standalone/host/reports/html_report.h"
#include "standalone/host/reports/run_json.h"
#include "standalone/host/session/session.h"
#include "unit_tests/standalone/fake_module.h"
#include "unit_tests/standalone/report_fixture.h"

using testing::HasSubstr;
using testing::Not;

namespace {

class ReportFilesTest : public ReportsTest {
 protected:
  /// A run on a camera that is gone, which is not performed.
  void run() {
    session.start({{fullRun().camera, fullRun().test}});
    session.waitUntilIdle();
  }
  QStringList files() const { return place.entryList(QDir::Files | QDir::Hidden); }
  ReportWishes wishes() const { return {path("r.json"), path("r.html"), path("r.xml"), path("each")}; }

  FakeModule module;
  Session session{module.interface(), {}, {}, nullptr};
};

TEST_F(ReportFilesTest, EveryRunIsWrittenDownAndCanBeReadAgain) {
  const ReportFiles reports(session, wishes());
  EXPECT_THAT(content("r.html").toStdString(), HasSubstr("No test has run yet."));
  EXPECT_THAT(content("r.xml").toStdString(), HasSubstr("tests=\"0\""));
  for (int count = 1; count <= 2; ++count) {
    run();
    EXPECT_EQ(readRuns(path("r.json")).size(), count);
    EXPECT_EQ(content("r.html").count("<article"), count);
    EXPECT_EQ(content("r.xml").count("<testcase"), count);
    EXPECT_EQ(QDir(path("each")).entryList({"*_capture_*_not-performed*.html"}).size(), count);
    EXPECT_EQ(QDir(path("each")).entryList({"*_capture_*_not-performed*.json"}).size(), count);
  }
  EXPECT_FALSE(reports.hasFailed());

  convertReport(path("r.json"), {path("c.json"), path("c.html"), path("c.xml"), {}});
  for (const QString suffix : {"json", "html", "xml"}) EXPECT_EQ(content("c." + suffix), content("r." + suffix));
}

TEST_F(ReportFilesTest, ALongRowOfRunsIsWrittenWholeInTheEnd) {
  const ReportFiles reports(session, wishes());
  QObject::connect(&session, &Session::runFinished, [this](const Record& run) {
    EXPECT_TRUE(run.number > 10 || content("r.html").count("<article") == run.number);
  });
  session.start(QList<Job>(30, {fullRun().camera, fullRun().test}));
  session.waitUntilIdle();
  EXPECT_EQ(readRuns(path("r.json")).size(), 30);
  EXPECT_EQ(content("r.html").count("<article"), 30);
  EXPECT_EQ(content("r.xml").count("<testcase"), 30);
}

TEST_F(ReportFilesTest, NoFileIsOverwrittenAndNoneIsLeftForNothing) {
  write("r.xml", "mine");
  EXPECT_THROW(ReportFiles(session, wishes()), HostError);
  EXPECT_EQ(files(), QStringList("r.xml"));
  EXPECT_EQ(content("r.xml"), "mine");
  const QString record = write("record.json", jsonLine(fullRun(), nullptr));
  EXPECT_THROW(convertReport(record, wishes()), HostError);
  EXPECT_THROW(convertReport(record, {record, {}, {}, {}}), HostError);
  EXPECT_THROW(writeReport(record, "x"), HostError);
  EXPECT_EQ(files(), QStringList({"r.xml", "record.json"}));
  EXPECT_EQ(readRuns(record).size(), 1);
  writeReport(path("new.txt"), "new");
  EXPECT_EQ(content("new.txt"), "new");
}

#ifdef __linux__
TEST_F(ReportFilesTest, AFullDiskIsToldAndLeavesWhatWasThere) {
  ReportFiles reports(session, wishes());
  run();
  const QByteArray json = content("r.json");
  const QByteArray html = content("r.html");
  std::vector<std::string> told;
  QObject::connect(&reports, &ReportFiles::failed, [&](const QString& text) { told.push_back(text.toStdString()); });

  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit full{static_cast<rlim_t>(json.size() + 10), before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  run();
  setrlimit(RLIMIT_FSIZE, &before);

  EXPECT_TRUE(reports.hasFailed());
  EXPECT_THAT(told, testing::ElementsAre(HasSubstr("r.json could not be written: File too large"), HasSubstr("each"),
                                         HasSubstr("r.html could not be written: File too large"),
                                         HasSubstr("r.xml could not be written: File too large")));
  EXPECT_EQ(files(), QStringList({"r.html", "r.json", "r.xml"})) << "and nothing that is left of the attempt";
  EXPECT_EQ(content("r.json"), json);
  EXPECT_EQ(content("r.html"), html);
  run();
  EXPECT_EQ(readRuns(path("r.json")).size(), 2);
}
#endif

}  // namespace
