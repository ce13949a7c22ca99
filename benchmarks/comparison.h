#pragma once

#include <QJsonArray>
#include <QString>

#include <functional>
#include <string>
#include <vector>

/// What is measured, and beside what.
struct Row {
  std::string work;
  std::string comparedWith;
  /// The work may take so many times what the comparison takes; 0: the ratio is only said.
  double atMost = 0;
  std::string unit = "ms";
};

/// Does something once and returns how much of it counts, mostly milliseconds.
using Step = std::function<double()>;

/// What one side of a row came to, round by round.
using Rounds = std::vector<double>;

/// Does both `count` times, in turn; which of them comes first changes with each round.
void alternate(int count, const std::function<void()>& work, const std::function<void()>& comparison);

/// Measures rows and prints each as soon as it is known. Used by one thread.
class Comparison {
 public:
  /// Only rows whose work holds `word`, in upper or lower case, are wanted; all of them when it is empty.
  explicit Comparison(const QString& word) : only(word) {}

  [[nodiscard]] bool wants(const std::string& work) const;
  /// Measures both sides at least 9 times in turn, short steps several times a round, after one time that does not
  /// count. Whatever else the machine does meets both sides alike.
  void compare(const Row& row, const Step& work, const Step& comparison);
  /// Takes a row over that was measured elsewhere.
  void record(const Row& row, const Rounds& work, const Rounds& comparison);

  [[nodiscard]] bool isEmpty() const { return rows.isEmpty(); }
  [[nodiscard]] bool isAllWithin() const { return allWithin; }
  /// All rows with the figures of every round.
  [[nodiscard]] QByteArray toJson() const;

 private:
  const QString only;
  QJsonArray rows;
  bool allWithin = true;
};
