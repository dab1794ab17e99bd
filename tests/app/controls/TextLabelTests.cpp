#include "app/controls/TextLabel.h"

#include "app/controls/SelectableText.h"
#include "app/layout/ColumnLayout.h"
#include "tests/app/PageTesting.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace tessivo::pagetest;

QString text(const char* words) {
    return QString::fromUtf8(words);
}

TEST(TextLabel, breaksItsLinesAtLineFeeds) {
    TextLabel label(text("Loose hinge\nDent"));
    const int line = theme().lineHeight(TextRole::body);
    EXPECT_EQ(label.heightForWidth(400), 2 * line);
    EXPECT_EQ(label.sizeHint(), QSize(TextLabel(text("Loose hinge")).sizeHint().width(), 2 * line));
    label.setMaximumLines(1);
    EXPECT_EQ(label.heightForWidth(400), line);
    showAt(label, {400, line});
    EXPECT_TRUE(label.isElided());
    EXPECT_EQ(label.toolTip(), label.text());
}

TEST(TextLabel, showsMarkupAsTypedAndElidesWithItsWholeText) {
    SelectableText label(text("<b>5 < 6</b> &amp; a \xE2\x80\x8F\xD7\x90\xD7\x91 \xF0\x9F\x8C\x90 tail"));
    EXPECT_EQ(accessibleNameOf(&label), label.text());
    showAt(label, {400, 20});
    label.setFocus();
    QTest::keyClick(&label, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&label, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), label.text());

    TextLabel summary(
        text("Every key works and a good deal more is told here than two short lines can hold at all"),
        TextRole::callout);
    summary.setMaximumLines(2);
    summary.setReservedLines(2);
    showAt(summary, {160, 40});
    EXPECT_TRUE(summary.isElided());
    EXPECT_EQ(summary.toolTip(), summary.text());
    EXPECT_EQ(summary.heightForWidth(160), 36);
    summary.setText(text("Short"));
    EXPECT_FALSE(summary.isElided());
    EXPECT_TRUE(summary.toolTip().isEmpty());
    EXPECT_EQ(summary.heightForWidth(160), 36) << "its room stays";
}

TEST(TextLabel, aLineStandsWhereItIsAlignedWhateverItsWidthWasBefore) {
    const std::pair<Qt::Alignment, double> rows[] = {
        {Qt::AlignLeft, 0}, {Qt::AlignHCenter, 0.5}, {Qt::AlignRight, 1}};
    for (const auto& [alignment, place] : rows) {
        TextLabel label(text("Cameras"));
        label.setAlignment(alignment);
        const int words = label.sizeHint().width();
        for (const int width : {120, 400, 200}) {
            showAt(label, {width, 20});
            const QImage image = label.grab().toImage();
            int first = width, last = 0;
            for (int x = 0; x < width; ++x)
                for (int y = 0; y < image.height(); ++y)
                    if (image.pixelColor(x, y) != image.pixelColor(0, 0)) {
                        first = std::min(first, x);
                        last = std::max(last, x);
                    }
            EXPECT_NEAR((first + last) / 2.0, words / 2.0 + place * (width - words), 2)
                << place << ' ' << width;
        }
    }
}

TEST(TextLabel, aChangingCountStaysStill) {
    TextLabel count(text("11 of 77 keys"));
    count.setTabularDigits(true);
    const QSize size = count.sizeHint();
    count.setText(text("40 of 77 keys"));
    EXPECT_EQ(count.sizeHint(), size);
}

TEST(SelectableText, isSelectedByTheMouseAndCopied) {
    QWidget page;
    auto* column = new ColumnLayout(&page);
    auto* label = new SelectableText(text("Serial number FK2X91TQ7W"));
    column->add(label);
    showAt(page, {400, 20});
    const auto after = [&](const char* words) {
        return QPoint(theme().textWidth(TextRole::body, text(words)), 10);
    };
    QTest::mouseDClick(label, Qt::LeftButton, {}, after("Serial num"));
    QTest::keyClick(label, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), text("number"));
    QTest::mouseRelease(label, Qt::LeftButton);
    QTest::mousePress(label, Qt::LeftButton, {}, after("Serial number "));
    QTest::mouseMove(label, after("Serial number FK2X"));
    QMouseEvent drag(QEvent::MouseMove, after("Serial number FK2X"), after("Serial number FK2X"),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(label, &drag);
    QTest::keyClick(label, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), text("FK2X"));
    label->setText(text("Changed"));
    QTest::keyClick(label, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), text("FK2X")) << "nothing of the new text is selected";
}

} // namespace
} // namespace tessivo
