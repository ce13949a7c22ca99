#pragma once

#include <functional>

/// Runs `work` on a thread of its own, for which nobody ever waits: what it waits for cannot hold the caller up. The
/// code of the caller's DLL stays loaded until it is done; the end of the program cuts it short.
void runDetached(std::function<void()> work);
