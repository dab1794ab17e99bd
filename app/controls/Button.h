#pragma once

#include "app/controls/ClickControl.h"

#include <optional>

class QShortcut;

namespace tessivo {

/// A push button: bordered, prominent (accent fill, one a page), or destructive (red words). Text too long
/// for the width given wraps, so nothing is clipped; a QPushButton's doesn't.
class Button : public ClickControl {
    Q_OBJECT
public:
    enum class Kind { bordered, prominent, destructive };

    explicit Button(const QString& text, const QString& symbol = {}, Kind kind = Kind::bordered,
                    QWidget* parent = nullptr);

    Kind kind() const { return m_kind; }
    QString symbolName() const { return m_symbol; }
    /// Text and symbol at once ("Start" to "Stop"); the width never falls below that of `setWidthTexts`.
    void setLabel(const QString& text, const QString& symbol);
    /// Texts that this button will show in turn: it is as wide as the widest, so nothing jumps.
    void setWidthTexts(const QStringList& texts);
    /// Symbol and text begin at the leading edge, for a column of equally wide buttons.
    void setLeading(bool leading);
    /// Return presses it wherever the focus is on its page, unless what has the focus wants Return itself.
    void setDefaultAction(bool isDefault);
    /// Makes it checkable, tinted so while it is checked, and no wider then.
    void setCheckedTint(ColorRole tint);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;

private:
    int naturalWidth(const QString& text) const;
    int padding() const;
    int leadingPadding() const;
    int symbolRoom() const;
    int widestWord() const;
    struct Fit {
        int left, symbolRoom, room;
        bool wraps;
    };
    Fit fitTo(int width) const;
    int baseHeight() const;
    TextRole textRole() const;

    Kind m_kind;
    QString m_symbol;
    QStringList m_widthTexts;
    bool m_leading = false;
    std::optional<ColorRole> m_tint;
    QList<QShortcut*> m_returnKeys;
};

} // namespace tessivo
