#include "app/controls/GrowingTextField.h"

#include "tests/app/PageTesting.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace tessivo::pagetest;

QString text(const char* words) {
    return QString::fromUtf8(words);
}

QString longText() {
    QString words;
    while (words.size() < 100'000)
        words += text("scratched corner \xD7\xA9\xD7\xA8\xD7\x99\xD7\x98\xD7\x94, dent "
                      "\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x94\xA7 ");
    return words;
}

TEST(GrowingTextField, keepsTextAsTyped) {
    GrowingTextField field(text("Describe it here."));
    showAt(field, {400, 40});
    const QString odd[] = {
        text("   "),
        text("one\ntwo\n\n"),
        text("a\xC2\xA0"
             "b\tc"),
        text("\x01\x02\x1F"),
        text("\xE2\x80\x8F\xD7\x90"),
        QString(5000, QLatin1Char('x')),
        QString(3000, QLatin1Char('\n')),
        longText(),
    };
    for (const QString& each : odd) {
        field.setText(each);
        EXPECT_EQ(field.text(), each);
    }
    int told = 0;
    QObject::connect(&field, &GrowingTextField::textEdited, [&] { ++told; });
    field.setText(text("by program"));
    EXPECT_EQ(told, 0);
    type(&field, text("! "));
    EXPECT_EQ(field.text(), text("! by program"));
    EXPECT_EQ(told, 2);
    field.setText(field.text());
    EXPECT_EQ(field.textCursor().position(), 2) << "what it says already leaves the cursor where it is";
}

TEST(GrowingTextField, growsToFiveLinesAndThenScrolls) {
    GrowingTextField field;
    const int heights[] = {32, 52, 72, 92, 112, 112, 112};
    showAt(field, {400, 40});
    for (const int height : heights) {
        EXPECT_EQ(field.sizeHint().height(), height);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    EXPECT_EQ(field.text(), QString(7, QLatin1Char('\n')));
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_LT(field.text().size(), 7);
    field.setText(QString(60, QLatin1Char('w')) + QString(60, QLatin1Char(' ')) +
                  QString(60, QLatin1Char('w')));
    EXPECT_GT(field.sizeHint().height(), 32) << "a long line wraps";
}

TEST(GrowingTextField, editsAcrossTheBordersOfItsBlocksAsIfThereWereNone) {
    const QString whole = longText();
    GrowingTextField field;
    showAt(field, {600, 112});
    field.setText(whole);
    QString expected = whole;
    const int border =
        field.document()->begin().length() - 1; // as many characters lie before the first border
    QTextCursor cursor = field.textCursor();
    cursor.setPosition(border + 1);
    field.setTextCursor(cursor);
    QTest::keyClick(&field, Qt::Key_Backspace);
    expected.remove(border - 1, 1);
    EXPECT_EQ(field.text(), expected);
    cursor = field.textCursor();
    QTest::keyClick(&field, Qt::Key_Delete);
    expected.remove(border - 1, 1);
    EXPECT_EQ(field.text(), expected);

    field.selectAll();
    QTest::keyClick(&field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), expected) << "no border is copied";
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(field.text(), QString());
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.text(), expected) << "pasting 100,000 characters keeps each";
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QString());

    // A paragraph typed or pasted in pieces is split as it grows.
    for (int i = 0; i < 30; ++i) {
        QApplication::clipboard()->setText(QString(150, QLatin1Char('y')));
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(field.text(), QString(4500, QLatin1Char('y')));
    for (QTextBlock block = field.document()->begin(); block.isValid(); block = block.next())
        EXPECT_LE(block.length(), 2001);
}

} // namespace
} // namespace tessivo
