#pragma once

/// As a member of a class whose table alone counts.
struct QZXing {
  explicit QZXing(void*) {}
};
