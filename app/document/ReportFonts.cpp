#include "app/document/ReportFonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QRawFont>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <map>

namespace tessivo::ReportFonts {

namespace {

QString textFamily() {
    static const QString family = [] {
        for (const char* name : {"Inter", "DejaVu Sans"})
            if (QFontDatabase::hasFamily(QString::fromLatin1(name))) return QString::fromLatin1(name);
        return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    }();
    return family;
}

QString fallbackFamily() {
    return QStringLiteral("DejaVu Sans");
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
    const QString family = QFontDatabase::hasFamily(QStringLiteral("JetBrains Mono"))
                               ? QStringLiteral("JetBrains Mono")
                               : QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    return make(family, size, weight);
}

QFont symbol(double size, QFont::Weight weight, char32_t glyph) {
    // Looking into a face costs more than setting a line.
    static std::map<std::pair<char32_t, QFont::Weight>, QString> families;
    const auto [known, isNew] = families.try_emplace({glyph, weight}, textFamily());
    if (isNew) {
        for (const QString& family : {textFamily(), fallbackFamily(), QStringLiteral("Symbola")}) {
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
    if (isPlain(text) || hasRightToLeft(text)) return {text};
    QStringList found;
    // Whole characters as people see them: a letter stays with the accents that combine with it.
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype start = 0;
    bool startIsPlain = true;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype next = finder.toNextBoundary();
        if (next <= at) next = text.size();
        const QStringView character = QStringView(text).sliced(at, next - at);
        const bool plain = isPlain(character);
        if (at == 0) startIsPlain = plain;
        // A blank goes with what it follows.
        if (plain != startIsPlain && character != u" ") {
            found.append(text.sliced(start, at - start));
            start = at;
            startIsPlain = plain;
        }
        at = next;
    }
    found.append(text.sliced(start));
    return found;
}

QFont fitted(QFont font, const QString& text) {
    if (isPlain(text)) {
        font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferNoShaping | QFont::PreferAntialias));
        return font;
    }
    // A slant that its face doesn't have would be drawn as a picture, which nobody can search.
    font.setItalic(false);
    // Shaped, this face keeps its brackets and dashes searchable.
    if (hasRightToLeft(text)) font.setFamilies({fallbackFamily(), textFamily()});
    return font;
}

} // namespace tessivo::ReportFonts
