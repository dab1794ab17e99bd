#pragma once

#include "app/layout/Column.h"

#include <QHideEvent>
#include <QShowEvent>

namespace tessivo {

/// The content of a page that does something while it is open: plays, listens, looks again and again. A
/// window that is only minimised keeps its page open.
class LiveContent : public Column {
protected:
    using Column::Column;

    virtual void appear() {}
    virtual void disappear() {}

    void showEvent(QShowEvent* event) override {
        Column::showEvent(event);
        if (!event->spontaneous()) appear();
    }
    void hideEvent(QHideEvent* event) override {
        if (!event->spontaneous()) disappear();
        Column::hideEvent(event);
    }
};

} // namespace tessivo
