#pragma once

#include <QString>

struct Run;

// What a run says to people, in the user's language. User-interface thread.

/// "Passed" and so on.
QString verdictText(const Run& run);
/// Why the run ended as it did, in one sentence; empty where the verdict says it all.
QString causeText(const Run& run);
/// What the running test does at the moment: "Opening the camera…".
QString stepText(const Run& run);
/// "Integrated Camera: Camera Capture Test".
QString titleText(const Run& run);
/// What can be done about a message of a test, by its key; empty where nothing is known.
QString adviceText(const QString& message);
/// What a picture of a run shows, by its name: "The message before the test".
QString pictureText(const QString& name);
