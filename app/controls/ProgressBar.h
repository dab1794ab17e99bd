#pragma once

#include "app/look/Metrics.h"
#include "app/look/Theme.h"

#include <QProgressBar>

namespace tessivo {

/// How much is done, as a thin bar without words. (A QProgressBar alone is never lower than a line of text.)
class ProgressBar final : public QProgressBar {
    Q_OBJECT
public:
    explicit ProgressBar(QWidget* parent = nullptr) : QProgressBar(parent) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        setTextVisible(false);
    }

    /// The total may be 0, which shows an empty bar.
    void setProgress(int value, int total) {
        // Without a range it would run to and fro.
        setRange(0, std::max(total, 1));
        setValue(value);
    }
    QSize sizeHint() const override { return {160, theme().scaled(Height::progress)}; }
    QSize minimumSizeHint() const override { return {40, sizeHint().height()}; }
};

} // namespace tessivo
