#include "app/look/Theme.h"

#include "app/look/Accessible.h"
#include "app/look/FocusShape.h"
#include "app/look/ThemeStyle.h"

#include <QApplication>
#include <QEvent>
#include <QFocusFrame>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QToolTip>

#include <cmath>

namespace tessivo {

static size_t qHash(TextRole role, size_t seed = 0) {
    return ::qHash(int(role), seed);
}

namespace {

constexpr const char* ownerProperty = "tessivoTheme";

struct Shades {
    ColorRole role;
    QRgb light, dark;
};

constexpr Shades colors[] = {
    {ColorRole::sidebar, 0xECEDF1, 0x17181B},
    {ColorRole::window, 0xF6F6F8, 0x1D1E22},
    {ColorRole::card, 0xFFFFFF, 0x27282E},
    {ColorRole::well, 0xE4E5EA, 0x131417},
    {ColorRole::control, 0xFFFFFF, 0x363840},
    {ColorRole::controlHover, 0xF1F2F5, 0x3D3F47},
    {ColorRole::controlPressed, 0xE4E5EA, 0x2E3037},
    {ColorRole::controlBorder, 0xC9CBD3, 0x4B4E58},
    {ColorRole::field, 0xFFFFFF, 0x1E1F23},
    {ColorRole::fieldBorder, 0x868994, 0x767984},
    {ColorRole::track, 0xE9EAEE, 0x1B1C20},
    {ColorRole::segment, 0xFFFFFF, 0x474A54},
    {ColorRole::text1, 0x1A1B1F, 0xECEDF1},
    {ColorRole::text2, 0x555862, 0xB0B3BD},
    {ColorRole::text3, 0x666974, 0x9A9DA8},
    {ColorRole::accent, 0x4250C4, 0xA0AAFF},
    {ColorRole::accentFill, 0x4655D2, 0x5460DB},
    {ColorRole::accentFillHover, 0x3D4BC2, 0x5A66DF},
    {ColorRole::accentFillPressed, 0x3340A8, 0x4852C4},
    {ColorRole::onAccent, 0xFFFFFF, 0xFFFFFF},
    {ColorRole::focus, 0x5B68E6, 0x8E99FF},
    {ColorRole::green, 0x17743B, 0x5CC580},
    {ColorRole::red, 0xBE2419, 0xFF8A80},
    {ColorRole::orange, 0x954A00, 0xF3A650},
    {ColorRole::blue, 0x0A5FAD, 0x7ABAF8},
    {ColorRole::gray, 0x555862, 0xB0B3BD},
    {ColorRole::greenGlyph, 0x188A4A, 0x5CC580},
    {ColorRole::redGlyph, 0xDB3B2E, 0xFF8A80},
    {ColorRole::orangeGlyph, 0xB95F00, 0xF3A650},
    {ColorRole::blueGlyph, 0x1A7AD4, 0x7ABAF8},
    {ColorRole::grayGlyph, 0x6A6D78, 0x9A9DA8},
    {ColorRole::keyCap, 0xFFFFFF, 0x26282D},
    {ColorRole::keyDone, 0x1B7F43, 0x21824A},
    {ColorRole::onKeyDone, 0xFFFFFF, 0xFFFFFF},
    {ColorRole::meter, 0x1F8E4D, 0x4DB873},
    {ColorRole::scrim, 0x16171C, 0x000000},
};

struct Type {
    TextRole role;
    int size, line, weight;
    double spacing = 0;
};

constexpr Type types[] = {
    {TextRole::pageTitle, 26, 34, QFont::Bold, -0.4},
    {TextRole::sheetTitle, 20, 26, QFont::Bold, -0.2},
    {TextRole::sectionHeading, 17, 24, QFont::DemiBold},
    {TextRole::resultSummary, 16, 22, QFont::Medium},
    {TextRole::headline, 14, 20, QFont::DemiBold},
    {TextRole::tally, 14, 20, QFont::Medium},
    {TextRole::body, 13, 20, QFont::Normal},
    {TextRole::control, 13, 16, QFont::Medium},
    {TextRole::controlStrong, 13, 16, QFont::DemiBold},
    {TextRole::callout, 12, 18, QFont::Normal},
    {TextRole::badge, 12, 16, QFont::DemiBold},
    {TextRole::progressCaption, 12, 16, QFont::Normal},
    {TextRole::sidebarSection, 11, 16, QFont::DemiBold},
    {TextRole::sidebarRow, 13, 16, QFont::Normal},
    {TextRole::sidebarRowSelected, 13, 16, QFont::DemiBold},
    {TextRole::monospaced, 13, 20, QFont::Medium},
};

/// Whether every role has its row, in the order of the roles.
template <class Row, size_t count>
constexpr bool isWhole(const Row (&rows)[count], size_t roles) {
    size_t at = 0;
    for (const Row& row : rows)
        if (size_t(row.role) != at++) return false;
    return at == roles;
}
static_assert(isWhole(colors, colorRoleCount) && isWhole(types, textRoleCount));

QColor shade(ColorRole role, bool dark) {
    const Shades& both = colors[size_t(role)];
    return QColor::fromRgb(dark ? both.dark : both.light);
}

/// The desktop fonts in use lie between 9 and 12 points, and the design's sizes serve them all; larger ones
/// ask for larger text.
constexpr double largestUsualPixels = 16;
constexpr double largestScale = 2.5;

} // namespace

Theme::Theme(QApplication& application) : m_application(application) {
    application.setProperty(ownerProperty, QVariant::fromValue<QObject*>(this));
    installAccessibleTraits();
    readFont(application.font());
    application.setStyle(new ThemeStyle);
    readPalette();
    application.installEventFilter(this);
    connect(&application, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (!m_ring) m_ring = new QFocusFrame;
        auto* shape = dynamic_cast<FocusShape*>(now);
        m_ring->setWidget(shape ? shape->focusShapeWidget() : nullptr);
        // It stays hidden around what is yet to be scrolled into sight.
        m_ring->setVisible(m_ring->widget());
    });
}

Theme::~Theme() {
    m_application.removeEventFilter(this);
    delete m_ring;
    m_application.setProperty(ownerProperty, {});
}

const Theme& Theme::current() {
    const auto* theme = static_cast<Theme*>(qApp->property(ownerProperty).value<QObject*>());
    if (!theme) qFatal("A control was made before its Theme");
    return *theme;
}

QColor Theme::color(ColorRole role) const {
    return shade(role, m_dark);
}

QColor Theme::color(ColorRole role, double percent) const {
    QColor color = shade(role, m_dark);
    color.setAlphaF(float(percent / 100));
    return color;
}

int Theme::lineHeight(TextRole role) const {
    return scaled(types[size_t(role)].line);
}

int Theme::textWidth(TextRole role, const QString& text) const {
    const std::pair key(role, text);
    if (const int* known = m_widths.object(key)) return *known;
    const int width = int(std::ceil(QFontMetricsF(font(role)).horizontalAdvance(text)));
    m_widths.insert(key, new int(width));
    return width;
}

int Theme::scaled(double size) const {
    return qRound(size * m_textScale);
}

QPalette Theme::palette(bool dark) {
    const auto is = [dark](ColorRole role) { return shade(role, dark); };
    QColor disabled = is(ColorRole::text1);
    disabled.setAlphaF(0.45f);
    QPalette palette(is(ColorRole::text1), is(ColorRole::control), is(ColorRole::card), is(ColorRole::well),
                     is(ColorRole::controlBorder), is(ColorRole::text1), is(ColorRole::text1),
                     is(ColorRole::field), is(ColorRole::window));
    palette.setColor(QPalette::AlternateBase, is(ColorRole::card));
    palette.setColor(QPalette::ButtonText, is(ColorRole::text1));
    palette.setColor(QPalette::Highlight, is(ColorRole::accentFill));
    palette.setColor(QPalette::HighlightedText, is(ColorRole::onAccent));
    palette.setColor(QPalette::Link, is(ColorRole::accent));
    palette.setColor(QPalette::LinkVisited, is(ColorRole::accent));
    palette.setColor(QPalette::ToolTipBase, is(ColorRole::card));
    palette.setColor(QPalette::ToolTipText, is(ColorRole::text1));
    palette.setColor(QPalette::PlaceholderText, is(ColorRole::text3));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, disabled);
    return palette;
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_application) {
        if (event->type() == QEvent::ApplicationPaletteChange)
            readPalette();
        else if (event->type() == QEvent::ApplicationFontChange)
            readFont(m_application.font());
        else if (event->type() == QEvent::ThemeChange)
            readFont(QFontDatabase::systemFont(QFontDatabase::GeneralFont));
    }
    return QObject::eventFilter(watched, event);
}

void Theme::readPalette() {
    const QPalette palette = m_application.palette();
    const bool dark =
        palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    if (dark == m_dark) return;
    m_dark = dark;
    Q_EMIT changed();
}

void Theme::readFont(const QFont& system) {
    // The application's own font is set below; only another one is news.
    const bool first = !m_system;
    if (!first && (system == font(TextRole::body) || system == m_system)) return;
    m_system = system;
    m_textScale = qBound(1.0, QFontInfo(system).pixelSize() / largestUsualPixels, largestScale);
    makeFonts();
    QApplication::setFont(font(TextRole::body));
    QToolTip::setFont(font(TextRole::callout));
    if (!first) Q_EMIT changed();
}

void Theme::makeFonts() {
    // No family is named that isn't installed: some systems look for it a tenth of a second and more.
    const auto before = [](const char* preferred, QStringList families) {
        if (QFontDatabase::hasFamily(preferred)) families.prepend(preferred);
        return families;
    };
    QStringList families{QFontDatabase::systemFont(QFontDatabase::GeneralFont).family()};
    // A platform hides its own interface font behind a name that starts with a dot; nothing suits it better.
    if (!families.first().startsWith(QLatin1Char('.'))) families = before("Inter", families);
    const QStringList monospaced =
        before("JetBrains Mono", {QFontDatabase::systemFont(QFontDatabase::FixedFont).family()});
    for (size_t i = 0; i < m_fonts.size(); ++i) {
        const Type& look = types[i];
        QFont font(look.role == TextRole::monospaced ? monospaced : families);
        font.setPixelSize(scaled(look.size));
        font.setWeight(QFont::Weight(look.weight));
        font.setHintingPreference(QFont::PreferNoHinting);
        if (look.spacing != 0) font.setLetterSpacing(QFont::AbsoluteSpacing, look.spacing * m_textScale);
        m_fonts[i] = font;
    }
    m_widths.clear();
}

} // namespace tessivo
