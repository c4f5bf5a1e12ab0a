#pragma once

/// Shows an empty window the size of the benchmark's splash picture, from a thread of its own that
/// lives as long as the process: the reference for the cost of the launcher's splash.
void ShowEmptyWindow();
