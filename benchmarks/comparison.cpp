#include "benchmarks/comparison.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "benchmarks/durations.h"

namespace {

constexpr int kFewestRounds = 9;
constexpr int kMostRounds = 51;
/// What a row may take, and what a side of a round takes at least, in milliseconds.
constexpr double kRowTime = 4000;
constexpr double kRoundTime = 10;

std::string number(double value) {
  char text[32];
  std::snprintf(text, sizeof(text), value >= 100 ? "%.0f" : value >= 1 ? "%.2f" : "%.4f", value);
  return text;
}

QJsonArray toArray(const Rounds& rounds) {
  QJsonArray array;
  for (const double value : rounds) array.append(value);
  return array;
}

}  // namespace

void alternate(int count, const std::function<void()>& work, const std::function<void()>& comparison) {
  for (int round = 0; round < count; ++round) {
    if (round % 2 == 0) work();
    comparison();
    if (round % 2 == 1) work();
  }
}

bool Comparison::wants(const std::string& work) const {
  return QString::fromStdString(work).contains(only, Qt::CaseInsensitive);
}

void Comparison::compare(const Row& row, const Step& work, const Step& comparison) {
  // What lies around a step, and does not count, takes its time, too.
  double counted = 0;
  const double taken = millisecondsOf([&] { counted = std::min(work(), comparison()); });
  const int repeats = std::clamp(static_cast<int>(std::ceil(kRoundTime / std::max(counted, 0.001))), 1,
                                 std::max(1, static_cast<int>(kRowTime / kFewestRounds / taken)));
  const int rounds = std::clamp(static_cast<int>(kRowTime / taken / repeats), kFewestRounds, kMostRounds) | 1;

  Rounds workRounds;
  Rounds comparisonRounds;
  const auto measured = [repeats](const Step& step) {
    double sum = 0;
    for (int i = 0; i < repeats; ++i) sum += step();
    return sum / repeats;
  };
  alternate(
      rounds, [&] { workRounds.push_back(measured(work)); }, [&] { comparisonRounds.push_back(measured(comparison)); });
  record(row, workRounds, comparisonRounds);
}

void Comparison::record(const Row& row, const Rounds& work, const Rounds& comparison) {
  if (rows.isEmpty()) {
    std::printf("%-46s  %-56s  %-5s  %9s  %9s  %6s  %7s  %s\n", "work", "compared with", "unit", "work", "other",
                "ratio", "at most", "within");
  }
  const double workMedian = medianOf(work);
  const double comparisonMedian = medianOf(comparison);
  const double ratio = workMedian / comparisonMedian;
  const bool isWithin = row.atMost == 0 || ratio <= row.atMost;
  allWithin = allWithin && isWithin;
  std::printf("%-46s  %-56s  %-5s  %9s  %9s  %6.3f  %7s  %s\n", row.work.c_str(), row.comparedWith.c_str(),
              row.unit.c_str(), number(workMedian).c_str(), number(comparisonMedian).c_str(), ratio,
              row.atMost == 0 ? "-" : number(row.atMost).c_str(),
              row.atMost == 0 ? "-"
              : isWithin      ? "yes"
                              : "NO");
  std::fflush(stdout);

  QJsonObject object{{"work", QString::fromStdString(row.work)},
                     {"comparedWith", QString::fromStdString(row.comparedWith)},
                     {"unit", QString::fromStdString(row.unit)},
                     {"workMedian", workMedian},
                     {"comparisonMedian", comparisonMedian},
                     {"ratio", ratio},
                     {"workRounds", toArray(work)},
                     {"comparisonRounds", toArray(comparison)}};
  if (row.atMost != 0) {
    object["atMost"] = row.atMost;
    object["within"] = isWithin;
  }
  rows.append(object);
}

QByteArray Comparison::toJson() const {
  return QJsonDocument(QJsonObject{{"rows", rows}}).toJson();
}
