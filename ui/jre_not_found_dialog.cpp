#include "ui/jre_not_found_dialog.h"

namespace tarn {

// Without the dialog nobody can confirm a folder.
bool ShowJreNotFound(const Settings&, RuntimeChoice&) {
    return false;
}

}  // namespace tarn
