#pragma once

#include <QFont>
#include <QString>

/// The faces of the printed report. Sizes in points. Needs a QGuiApplication; main thread.
namespace tessivo::ReportFonts {

QFont text(double size, QFont::Weight weight = QFont::Normal);
/// The italic of the regular face, or the regular face where there is no italic.
QFont italic(double size);
QFont monospaced(double size, QFont::Weight weight);
/// A face that has the glyph, near the text's own look.
QFont symbol(double size, QFont::Weight weight, char32_t glyph);

/// Whether the text is of a script that needs no shaping and no room beyond the face's own.
bool isPlain(QStringView text);
/// The text in stretches of one kind each: plain, plain but not to be told apart in the text face, and not
/// plain. Joined they are the text.
QStringList stretches(const QString& text);

/// The font as it is to be set for this text. Plain Latin text goes unshaped, so that every character of
/// it can be searched and copied in a PDF; scripts that need shaping get it.
QFont fitted(QFont font, const QString& text);

} // namespace tessivo::ReportFonts
