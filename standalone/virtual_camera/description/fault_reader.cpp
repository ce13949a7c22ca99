#include "standalone/virtual_camera/description/fault_reader.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

using Word = JsonObjectReader::Word<FaultKind>;

constexpr std::array kFaultWords{Word{"no-open", FaultKind::kNoOpen},
                                 Word{"slow-open", FaultKind::kSlowOpen},
                                 Word{"busy", FaultKind::kBusy},
                                 Word{"not-rgb32", FaultKind::kNotRgb32},
                                 Word{"read-refused", FaultKind::kReadRefused},
                                 Word{"first-read-fails", FaultKind::kFirstReadFails},
                                 Word{"slow-stop", FaultKind::kSlowStop},
                                 Word{"stall", FaultKind::kStall},
                                 Word{"tick", FaultKind::kTick},
                                 Word{"dropped", FaultKind::kDropped},
                                 Word{"jitter", FaultKind::kJitter},
                                 Word{"black", FaultKind::kBlack},
                                 Word{"covered", FaultKind::kCovered},
                                 Word{"frozen", FaultKind::kFrozen},
                                 Word{"short", FaultKind::kShort},
                                 Word{"unlockable", FaultKind::kUnlockable},
                                 Word{"end-of-stream", FaultKind::kEndOfStream},
                                 Word{"removed", FaultKind::kRemoved},
                                 Word{"returns", FaultKind::kReturns},
                                 Word{"other-removed", FaultKind::kOtherRemoved},
                                 Word{"invalidated", FaultKind::kInvalidated},
                                 Word{"error", FaultKind::kError},
                                 Word{"size-change", FaultKind::kSizeChange}};

constexpr NumberRange kLengthRange{64, 4096};
constexpr NumberRange kTimeRange{0, 86400};
constexpr NumberRange kSlownessRange{0, 60};
constexpr NumberRange kTimesRange{1, 1000};
constexpr NumberRange kShareRange{0, 1};
constexpr NumberRange kLatenessRange{0, 1};
constexpr NumberRange kSeedRange{0, std::numeric_limits<int>::max()};
constexpr qsizetype kMostFaults = 1000;

Fault readFault(const JsonObjectReader& reader) {
  Fault fault;
  fault.kind = reader.word("kind", wordsOf(kFaultWords));
  switch (fault.kind) {
    case FaultKind::kNoOpen:
    case FaultKind::kNotRgb32:
    case FaultKind::kReadRefused:
    case FaultKind::kFirstReadFails:
      reader.allowOnly({"kind"});
      return fault;
    case FaultKind::kSlowOpen:
    case FaultKind::kSlowStop:
      reader.allowOnly({"kind", "seconds"});
      fault.duration = reader.number("seconds", kSlownessRange);
      return fault;
    case FaultKind::kBusy:
      reader.allowOnly({"kind", "times"});
      fault.times = reader.integer("times", kTimesRange);
      return fault;
    case FaultKind::kStall:
    case FaultKind::kBlack:
    case FaultKind::kCovered:
    case FaultKind::kFrozen:
      reader.allowOnly({"kind", "at", "seconds"});
      break;
    case FaultKind::kDropped:
      reader.allowOnly({"kind", "at", "seconds", "share", "seed"});
      fault.share = reader.number("share", kShareRange);
      break;
    case FaultKind::kJitter:
      reader.allowOnly({"kind", "at", "seconds", "most", "seed"});
      fault.lateness = reader.number("most", kLatenessRange);
      break;
    case FaultKind::kShort:
      reader.allowOnly({"kind", "at", "seconds", "share"});
      fault.share = reader.number("share", kShareRange);
      break;
    case FaultKind::kSizeChange:
      reader.allowOnly({"kind", "at", "width", "height"});
      fault.size = readFrameSize(reader);
      break;
    case FaultKind::kTick:
    case FaultKind::kUnlockable:
    case FaultKind::kEndOfStream:
    case FaultKind::kRemoved:
    case FaultKind::kReturns:
    case FaultKind::kOtherRemoved:
    case FaultKind::kInvalidated:
    case FaultKind::kError:
      reader.allowOnly({"kind", "at"});
      break;
  }
  fault.at = reader.number("at", kTimeRange);
  fault.duration = reader.number("seconds", kTimeRange, fault.duration);
  if (reader.has("seed")) fault.seed = reader.integer("seed", kSeedRange);
  return fault;
}

// A camera that is plugged in can be unplugged, and the other way round.
void checkPlugging(const std::vector<Fault>& faults, const QString& place) {
  bool pluggedIn = true;
  for (const Fault& fault : faults) {
    const bool returns = fault.kind == FaultKind::kReturns;
    if (!returns && fault.kind != FaultKind::kRemoved) continue;
    if (returns == pluggedIn) {
      throw JsonContentError(QStringLiteral("%1 says \"%2\" at %3, when the camera is %4")
                                 .arg(place, returns ? QStringLiteral("returns") : QStringLiteral("removed"))
                                 .arg(fault.at)
                                 .arg(pluggedIn ? QStringLiteral("plugged in") : QStringLiteral("unplugged")));
    }
    pluggedIn = returns;
  }
}

}  // namespace

QSize readFrameSize(const JsonObjectReader& reader) {
  return {reader.integer("width", kLengthRange), reader.integer("height", kLengthRange)};
}

std::vector<Fault> readFaults(const JsonObjectReader& camera) {
  const QString place = camera.pathOf("faults");
  const QJsonArray list = camera.list("faults", false);
  if (list.size() > kMostFaults) {
    throw JsonContentError(
        QStringLiteral("%1 holds %2 faults; allowed are at most %3").arg(place).arg(list.size()).arg(kMostFaults));
  }
  std::vector<Fault> faults;
  for (qsizetype i = 0; i < list.size(); ++i) {
    faults.push_back(readFault({list.at(i), QStringLiteral("%1[%2]").arg(place).arg(i)}));
  }
  std::ranges::stable_sort(faults, {}, &Fault::at);
  checkPlugging(faults, place);
  return faults;
}
