#pragma once

#include "app/dialogs/Dialogs.h"
#include "app/model/AppModel.h"

namespace tessivo {

/// What every page is given. All of it outlives the page.
struct PageContext {
    AppModel& model;
    Dialogs& dialogs;
};

} // namespace tessivo
