#pragma once

#include <QColor>
#include <QRectF>
#include <QSize>
#include <string>

namespace tessivo {

/// The place in the list of colours during one run over a screen. A pure value.
class ColorRun final {
public:
    /// A colour of `DisplayTest::colors` as it is shown: 0 or 1 for each part, gray 0.5.
    static QColor color(const std::string& name);

    std::size_t index() const { return m_index; }
    const std::string& name() const;

    /// Steps on or back. False if the step leads past the last colour, which ends the run; a step back
    /// from the first colour stays on it.
    bool advance(int step);

private:
    std::size_t m_index = 0;
};

/// Where the hint lies on a screen of this size: centred across, its lower edge at 0.12 of the height from
/// below, never outside the screen.
QRectF hintPlace(QSizeF screen, QSizeF hint);

} // namespace tessivo
