#pragma once

#include "app/controls/TextLabel.h"

namespace tessivo {

/// One line about what came of a rewording. The way to screen readers drops alerts, but it tells that a
/// notification has appeared, and they speak it.
class OutcomeLine final : public TextLabel {
    Q_OBJECT

public:
    explicit OutcomeLine(QWidget* parent = nullptr)
        : TextLabel({}, TextRole::callout, ColorRole::text2, parent) {}

    QAccessible::Role spokenRole() const override { return QAccessible::Notification; }
};

} // namespace tessivo
