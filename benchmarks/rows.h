#pragma once

class Comparison;

// What is measured, topic by topic. All of it is called on one thread, which is not the user-interface thread; that one
// runs its event loop meanwhile. A function throws std::runtime_error when something cannot be set up.

/// The way of a frame through the capturer and through the tests' loops.
void compareFrames(Comparison& comparison);
/// A camera's start and stop.
void compareCaptures(Comparison& comparison);
/// A scan, with more and more cameras.
void compareDiscovery(Comparison& comparison);
/// The DLL's coming and going.
void compareModule(Comparison& comparison);
/// The dialogs: opening one, and showing a frame.
void compareDialogs(Comparison& comparison);
/// Memory and processor time of a whole capture test.
void compareTestRuns(Comparison& comparison);
