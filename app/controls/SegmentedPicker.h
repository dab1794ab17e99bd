#pragma once

#include "app/look/Accessible.h"

#include <QWidget>

namespace tessivo {

/// A few choices side by side, one of them chosen. One stop of the Tab key; arrows choose. Read as a group of
/// radio buttons named by `accessibleName`.
class SegmentedPicker final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    SegmentedPicker(const QString& name, const QStringList& choices, QWidget* parent = nullptr);

    int current() const { return m_current; }
    void setCurrent(int index);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

    QAccessible::Role spokenRole() const override { return QAccessible::Grouping; }

Q_SIGNALS:
    /// The person chose another one.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;

private:
    class Segment;
    bool isStacked(int width) const;

    QList<Segment*> m_segments;
    int m_current = 0;
};

} // namespace tessivo
