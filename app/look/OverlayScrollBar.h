#pragma once

#include <QScrollBar>

class QAbstractScrollArea;

namespace tessivo {

/// The scroll thumb of an area, laid over its right edge so that nothing shifts when it comes. Stands in for
/// the area's own vertical bar, which it hides.
class OverlayScrollBar final : public QScrollBar {
    Q_OBJECT
public:
    explicit OverlayScrollBar(QAbstractScrollArea* area);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();
    void copyRange();
    QAbstractScrollArea* m_area;
};

} // namespace tessivo
