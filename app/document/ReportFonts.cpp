#include "app/document/ReportFonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QRawFont>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <map>

namespace tessivo::ReportFonts {

namespace {

/// The first of these families that is installed, else the system's own: looking for one that isn't there
/// takes some systems a tenth of a second and more.
QString installed(std::initializer_list<const char*> names, QFontDatabase::SystemFont otherwise) {
    for (const char* name : names)
        if (QFontDatabase::hasFamily(QString::fromLatin1(name))) return QString::fromLatin1(name);
    return QFontDatabase::systemFont(otherwise).family();
}

QString textFamily() {
    static const QString family = installed({"Inter", "DejaVu Sans"}, QFontDatabase::GeneralFont);
    return family;
}

/// What has the signs and letters that the text face lacks.
QString fallbackFamily() {
    static const QString family = installed({"DejaVu Sans", "Menlo"}, QFontDatabase::GeneralFont);
    return family;
}

QFont make(const QString& family, double size, QFont::Weight weight) {
    QFont font;
    // A fallback that covers what the text face doesn't, before the system's own choice.
    font.setFamilies({family, fallbackFamily()});
    font.setPointSizeF(size);
    font.setWeight(weight);
    // Hinted advances would make the lines break differently at each resolution.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(true);
    return font;
}

/// What the text face has a glyph for that a PDF would tell back as another character: it keeps glyphs, and
/// names each by the lowest character that has it. Some faces draw a closing quote and a modifier letter
/// with one glyph. Quotes go together, so that a pair stays of one look.
const QString& sharedGlyphs() {
    static const QString found = [] {
        constexpr char16_t end = 0x2716; // behind the last that is plain
        QString all(end, QChar(u' '));
        for (char16_t u = u'!'; u < end; ++u)
            all[u] = QChar(u);
        const auto glyphs =
            QRawFont::fromFont(make(textFamily(), 12, QFont::Normal)).glyphIndexesForString(all);
        const QString quotes = QStringLiteral("‘’“”");
        QString shared;
        std::map<quint32, QChar> lowest;
        for (qsizetype i = 0; i < glyphs.size() && glyphs.size() == all.size(); ++i)
            if (const QChar c = all.at(i); c != u' ' && c != QChar::Nbsp && c != QChar::SoftHyphen &&
                                           glyphs[i] != 0 && !lowest.try_emplace(glyphs[i], c).second)
                shared.append(c);
        const bool anyQuote = std::ranges::any_of(quotes, [&](QChar c) { return shared.contains(c); });
        return anyQuote ? shared + quotes : shared;
    }();
    return found;
}

enum class Kind { plain, shared, foreign };

Kind kindOf(QStringView character) {
    if (!isPlain(character)) return Kind::foreign;
    const bool shared = std::ranges::any_of(
        character, [](QChar c) { return c.unicode() > 0x7F && sharedGlyphs().contains(c); });
    return shared ? Kind::shared : Kind::plain;
}

bool hasRightToLeft(const QString& text) {
    return std::ranges::any_of(
        text, [](QChar c) { return c.direction() == QChar::DirR || c.direction() == QChar::DirAL; });
}

} // namespace

QFont text(double size, QFont::Weight weight) {
    return make(textFamily(), size, weight);
}

QFont italic(double size) {
    static const bool hasItalic =
        std::ranges::any_of(QFontDatabase::styles(textFamily()),
                            [](const QString& style) { return QFontDatabase::italic(textFamily(), style); });
    QFont font = text(size);
    font.setItalic(hasItalic);
    return font;
}

QFont monospaced(double size, QFont::Weight weight) {
    static const QString family = installed({"JetBrains Mono"}, QFontDatabase::FixedFont);
    return make(family, size, weight);
}

QFont symbol(double size, QFont::Weight weight, char32_t glyph) {
    // Looking into a face costs more than setting a line.
    static std::map<std::pair<char32_t, QFont::Weight>, QString> families;
    const auto [known, isNew] = families.try_emplace({glyph, weight}, textFamily());
    if (isNew) {
        for (const QString& family : {textFamily(), fallbackFamily(), QStringLiteral("Symbola"),
                                      QStringLiteral("Apple Symbols"), QStringLiteral("Zapf Dingbats")}) {
            if (!QFontDatabase::hasFamily(family)) continue;
            QFont font = make(family, size, weight);
            font.setFamilies({family});
            if (!QRawFont::fromFont(font).supportsCharacter(glyph)) continue;
            known->second = family;
            break;
        }
    }
    return make(known->second, size, weight);
}

bool isPlain(QStringView text) {
    // Up to Latin Extended-B, the general punctuation and the report's own glyphs.
    return std::ranges::all_of(text, [](QChar c) {
        const char16_t u = c.unicode();
        return u < 0x0250 || (u >= 0x2010 && u <= 0x2028) || u == 0x203A || (u >= 0x2610 && u <= 0x2612) ||
               (u >= 0x2713 && u <= 0x2715);
    });
}

QStringList stretches(const QString& text) {
    // Between words that run to the left, brackets are mirrored, which shaping alone does.
    if (kindOf(text) == Kind::plain || hasRightToLeft(text)) return {text};
    QStringList found;
    // Whole characters as people see them: a letter stays with the accents that combine with it.
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype start = 0;
    Kind startKind = Kind::plain;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype next = finder.toNextBoundary();
        if (next <= at) next = text.size();
        const QStringView character = QStringView(text).sliced(at, next - at);
        const Kind kind = kindOf(character);
        if (at == 0) startKind = kind;
        // A blank goes with what it follows.
        if (kind != startKind && character != u" ") {
            found.append(text.sliced(start, at - start));
            start = at;
            startKind = kind;
        }
        at = next;
    }
    found.append(text.sliced(start));
    return found;
}

QFont fitted(QFont font, const QString& text) {
    if (const Kind kind = kindOf(text); kind != Kind::foreign) {
        font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferNoShaping | QFont::PreferAntialias));
        if (kind == Kind::plain) return font;
        font.setFamilies({fallbackFamily(), textFamily()});
        font.setItalic(false);
        return font;
    }
    // A slant that its face doesn't have would be drawn as a picture, which nobody can search.
    font.setItalic(false);
    // Shaped, this face keeps its brackets and dashes searchable.
    if (hasRightToLeft(text)) font.setFamilies({fallbackFamily(), textFamily()});
    return font;
}

} // namespace tessivo::ReportFonts
