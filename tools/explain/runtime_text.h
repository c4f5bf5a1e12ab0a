#pragma once

#include "tools/explain/launch_report.h"
#include "tools/explain/text_page.h"

namespace tarn::tools {

/// The search for a runtime, source by source, and what was found.
void PrintRuntime(const RuntimeReport& runtime, TextPage& page);

}  // namespace tarn::tools
