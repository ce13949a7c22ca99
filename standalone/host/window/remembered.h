#pragma once

/// The names under which QSettings keeps what the user chose.
namespace remembered {

inline constexpr char kLanguage[] = "language";
inline constexpr char kGeometry[] = "window/geometry";
inline constexpr char kTimeout[] = "timeout";
inline constexpr char kReportFolder[] = "reportFolder";
inline constexpr char kOperator[] = "operator";

}  // namespace remembered
