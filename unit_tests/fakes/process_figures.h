#pragma once

/// What the process holds. A counter of the system that Wine leaves at 0 has another beside it, or in its place.
struct ProcessFigures {
  long long privateKilobytes = 0;
  long long handles = 0;
  long long gdiObjects = 0;
  long long userObjects = 0;
  long long threads = 0;
};

ProcessFigures processFigures();
