#pragma once

#include "app/controls/TextLabel.h"

namespace tessivo {

/// A heading over a group of blocks: "Checks by hand".
class SectionHeading final : public TextLabel {
    Q_OBJECT
public:
    explicit SectionHeading(const QString& text, QWidget* parent = nullptr)
        : TextLabel(text, TextRole::sectionHeading, ColorRole::text1, parent) {
        setHeading(true);
    }
};

} // namespace tessivo
