#pragma once

#include <QCache>
#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>
#include <QPointer>

#include <array>
#include <optional>

class QApplication;
class QFocusFrame;

namespace tessivo {

/// What a colour is for; each has a light and a dark value.
enum class ColorRole {
    sidebar,
    window,
    card,
    well,
    control,
    controlHover,
    controlPressed,
    controlBorder,
    field,
    fieldBorder,
    track,
    segment,
    text1,
    text2,
    text3,
    accent,
    accentFill,
    accentFillHover,
    accentFillPressed,
    onAccent,
    focus,
    green,
    red,
    orange,
    blue,
    gray,
    greenGlyph,
    redGlyph,
    orangeGlyph,
    blueGlyph,
    grayGlyph,
    keyCap,
    keyDone,
    onKeyDone,
    meter,
    scrim,
};
inline constexpr size_t colorRoleCount = size_t(ColorRole::scrim) + 1;

/// What a text is for; gives its font and the height of its line.
enum class TextRole {
    pageTitle,
    sheetTitle,
    sectionHeading,
    resultSummary,
    headline,
    tally,
    body,
    control,
    controlStrong,
    callout,
    badge,
    progressCaption,
    sidebarSection,
    sidebarRow,
    sidebarRowSelected,
    monospaced,
};
inline constexpr size_t textRoleCount = size_t(TextRole::monospaced) + 1;

/// The one source of colours, type and sizes. It follows the desktop while running: dark when the application
/// palette's window is darker than its text, larger when the system font is larger than 12 points. Making it
/// also gives the application its style, focus ring and accessible roles; main owns it, right after
/// QApplication. Main thread.
class Theme final : public QObject {
    Q_OBJECT
public:
    explicit Theme(QApplication& application);
    ~Theme() override;

    /// The theme of the running application.
    static const Theme& current();

    bool isDark() const { return m_dark; }
    QColor color(ColorRole role) const;
    /// The role's colour at `percent` (0 to 100) opacity: `text1@8`.
    QColor color(ColorRole role, double percent) const;

    QFont font(TextRole role) const { return m_fonts[size_t(role)]; }
    int lineHeight(TextRole role) const;
    /// The whole pixels that a line of text takes. Remembered: layouts ask for the same few words again and
    /// again, and shaping them is most of what a layout costs.
    int textWidth(TextRole role, const QString& text) const;

    /// How much larger than designed the text is: 1 to 2.5.
    double textScale() const { return m_textScale; }
    /// A height or symbol size of Metrics.h at this text scale.
    int scaled(double size) const;

    static QPalette palette(bool dark);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Colours or type have changed. Widgets that only paint need not listen: they are repainted anyway.
    void changed();

private:
    static constexpr int mostWidths = 1000;

    void readPalette();
    void readFont(const QFont& system);
    void makeFonts();

    QApplication& m_application;
    bool m_dark = false;
    double m_textScale = 1;
    std::optional<QFont> m_system;
    std::array<QFont, textRoleCount> m_fonts;
    mutable QCache<std::pair<TextRole, QString>, int> m_widths{mostWidths};
    /// Lives in whatever it surrounds, and may go with it.
    QPointer<QFocusFrame> m_ring;
};

/// Short for `Theme::current()`.
inline const Theme& theme() {
    return Theme::current();
}

} // namespace tessivo
