#pragma once

/// What a host does before it loads the JVM: nothing, or, in the host that the launcher's splash is
/// measured against, the least that puts a window on the screen, in a thread of its own.
void PrepareHost();
