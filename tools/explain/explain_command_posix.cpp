#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/explain/explain_command.h"

namespace tarn::tools {

void Explain(const ExplainRequest& request, const Console& /*console*/) {
    throw Failure(PathOf(request.program),
                  "a launch can only be explained on the Windows machine where it takes place; run "
                  "tarn.exe explain there");
}

}  // namespace tarn::tools
