#pragma once

#include "app/look/Accessible.h"
#include "app/look/Theme.h"

#include <QWidget>

namespace tessivo {

/// A symbol in a colour, as large as `size` at text scale 1: the picture beside a title or a row. It is
/// hidden from screen readers unless it has an accessible name. Without a symbol nothing is drawn, but the
/// room stays.
class SymbolView : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    SymbolView(const QString& name, int size, ColorRole color, QWidget* parent = nullptr);

    void setSymbol(const QString& name, ColorRole color);
    QString symbolName() const { return m_name; }
    QSize sizeHint() const override { return QSize(1, 1) * theme().scaled(m_size); }
    QSize minimumSizeHint() const override { return sizeHint(); }

    QAccessible::Role spokenRole() const override { return QAccessible::Graphic; }
    void addSpokenState(QAccessible::State& state) const override {
        state.invisible = accessibleName().isEmpty();
    }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QString m_name;
    int m_size;
    ColorRole m_color;
};

} // namespace tessivo
