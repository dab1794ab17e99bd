#pragma once

#include "app/pages/hardware/HardwareRow.h"
#include "kit/session/PortChecklist.h"

namespace tessivo {

/// A slot of the port checklist with its two buttons.
class PortRow final : public HardwareRow {
    Q_OBJECT

public:
    explicit PortRow(QWidget* parent = nullptr);

    void setSlot(const PortSlot& slot, bool active);

Q_SIGNALS:
    void testThis();
    void nothingShowsUp();

private:
    Button* m_nothing;
    Button* m_test;
};

} // namespace tessivo
