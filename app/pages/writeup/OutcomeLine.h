#pragma once

#include "app/controls/TextLabel.h"

namespace tessivo {

/// One line about what came of a rewording. The desktop's bridge passes on no alert event, but that a
/// notification has come into sight, which a screen reader then speaks.
class OutcomeLine final : public TextLabel {
    Q_OBJECT

public:
    explicit OutcomeLine(QWidget* parent = nullptr)
        : TextLabel({}, TextRole::callout, ColorRole::text2, parent) {}

    QAccessible::Role spokenRole() const override { return QAccessible::Notification; }
};

} // namespace tessivo
