#pragma once

#include "app/controls/Capsule.h"

namespace tessivo {

/// A step in a row of steps, met or not: "Click". Its value for a screen reader is "seen" or "not yet".
class Chip final : public Capsule {
    Q_OBJECT
public:
    /// `pendingSymbol` is drawn until it is met: "circle", or "circle.dotted" for an extra.
    explicit Chip(const QString& text, const QString& pendingSymbol = QStringLiteral("circle"),
                  QWidget* parent = nullptr);

    void setMet(bool met);
    QString spokenValue() const override;

private:
    QString m_text, m_pending;
    bool m_met = false;
};

} // namespace tessivo
