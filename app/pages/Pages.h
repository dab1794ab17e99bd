#pragma once

#include "app/pages/PageContext.h"

#include <QWidget>

namespace tessivo {

/// The view of a page, made when the page is opened and deleted when it is left: nothing of a page runs
/// while it isn't shown. The caller owns it.
QWidget* makePage(Page page, const PageContext& context, QWidget* parent);

} // namespace tessivo
