#pragma once

#include "app/look/Theme.h"

#include <QWidget>

namespace tessivo {

class Button;
class SymbolView;
class TextLabel;
class WrapRow;

/// One row of a list of ports: symbol, name, what was seen, and room for buttons; tinted while it waits.
class HardwareRow : public QWidget {
    Q_OBJECT

public:
    explicit HardwareRow(int height, QWidget* parent = nullptr);

    void setSymbol(const QString& symbol, ColorRole color);
    /// A text that comes from a device takes one line and is elided; a text of the page's own wraps.
    enum class TextOf { page, device };
    void setTexts(const QString& name, const QString& text, ColorRole color, TextOf of = TextOf::page);
    /// The least width of the name, so that the texts of all rows begin at one place.
    void setNameWidth(int width);
    /// Marked as the one that waits for a device.
    void setActive(bool active);
    /// Whether the row touches the card's upper and lower edge, whose corners its tint follows.
    void setEdges(bool first, bool last);
    void addButton(Button* button);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SymbolView* m_symbol;
    TextLabel* m_name;
    TextLabel* m_text;
    WrapRow* m_buttons;
    bool m_active = false;
    bool m_first = false;
    bool m_last = false;
};

} // namespace tessivo
