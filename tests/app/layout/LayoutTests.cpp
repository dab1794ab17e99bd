#include "app/controls/Divider.h"
#include "app/controls/Panel.h"
#include "app/layout/Column.h"
#include "app/layout/SplitRow.h"
#include "app/layout/TileLayout.h"
#include "app/layout/WrapRow.h"
#include "tests/app/PageTesting.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace tessivo::pagetest;

/// Words of a fixed area: so wide at first, and higher where they are narrower.
class Block final : public QWidget {
public:
    explicit Block(int width, int height = 20) : m_hint(width, height) {}
    QSize sizeHint() const override { return m_hint; }
    QSize minimumSizeHint() const override { return {10, m_hint.height()}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override {
        ++asked[width];
        return width >= m_hint.width() ? m_hint.height() : 2 * m_hint.height();
    }

    mutable std::map<int, int> asked; ///< how often for each width

private:
    QSize m_hint;
};

TEST(Layouts, askForAHeightOnceAWidth) {
    QWidget page;
    auto* block = new Block(300);
    auto* inner = new Column;
    inner->add(block);
    (new ColumnLayout(&page))->add(inner);
    showAt(page, {400, 100});
    page.resize(200, 100);
    page.resize(400, 120);
    settle();
    EXPECT_TRUE(block->asked.contains(200) && block->asked.contains(400));
    for (const auto& [width, times] : block->asked)
        EXPECT_EQ(times, 1) << width;
    EXPECT_EQ(block->size(), QSize(400, 20));
    block->updateGeometry();
    settle();
    EXPECT_EQ(block->asked[400], 2) << "what has changed is asked anew";
}

TEST(Column, alignsAndKeepsAMaximum) {
    Column column;
    auto *whole = new Block(50), *held = new Block(50), *centred = new Block(50), *hidden = new Block(50);
    held->setMaximumWidth(120);
    column.add(whole);
    column.add(hidden, 100);
    column.add(held, 4);
    column.add(centred, 6, Qt::AlignHCenter);
    hidden->hide();
    showAt(column, {200, 100});
    EXPECT_EQ(whole->geometry(), QRect(0, 0, 200, 20));
    EXPECT_EQ(held->geometry(), QRect(0, 24, 120, 20));
    EXPECT_EQ(centred->geometry(), QRect(75, 50, 50, 20));
}

TEST(WrapRow, wrapsAsWholeControlsWithTheirLinesCentred) {
    WrapRow row(nullptr, 10, 5);
    auto *first = new Block(100, 20), *high = new Block(100, 40), *last = new Block(100, 20);
    row.add(first);
    row.add(high, 20);
    row.add(last);
    row.center();
    showAt(row, {240, 80});
    EXPECT_EQ(first->geometry(), QRect(10, 10, 100, 20));
    EXPECT_EQ(high->geometry(), QRect(130, 0, 100, 40));
    EXPECT_EQ(last->geometry(), QRect(70, 45, 100, 20));
    row.setLayoutDirection(Qt::RightToLeft);
    settle();
    EXPECT_EQ(first->x(), 130);
}

TEST(SplitRow, putsTheTrailingPartUnderWhereTheyDoNotFit) {
    auto *words = new Block(200, 20), *button = new Block(60, 30);
    SplitRow row(words, button);
    showAt(row, {400, 60});
    EXPECT_EQ(words->geometry(), QRect(0, 20, 324, 20)) << "in the middle of what is higher than it needs";
    EXPECT_EQ(button->geometry(), QRect(340, 15, 60, 30));
    row.layout()->setAlignment(button, Qt::AlignBottom);
    row.resize(196, 200);
    settle();
    EXPECT_EQ(row.heightForWidth(196), 40);
    EXPECT_EQ(button->geometry().bottom(), words->geometry().bottom());
    row.resize(195, 72);
    settle();
    EXPECT_EQ(row.heightForWidth(195), 82) << "the words keep 120 beside it";
    EXPECT_EQ(button->x(), 0);
    button->hide();
    EXPECT_EQ(row.heightForWidth(195), 40);
}

TEST(TileLayout, makesCellsOfARowEquallyHigh) {
    QWidget page;
    auto* tiles = new TileLayout(&page, 100, 10, 0, 4);
    auto *low = new Block(50, 20), *high = new Block(50, 40), *next = new Block(50, 20);
    for (Block* each : {low, high, next})
        tiles->add(each);
    showAt(page, {221, 100});
    EXPECT_EQ(low->geometry(), QRect(0, 0, 106, 40));
    EXPECT_EQ(high->geometry(), QRect(116, 0, 105, 40));
    EXPECT_EQ(next->geometry(), QRect(0, 44, 106, 20));
}

TEST(Panel, aHiddenRowTakesItsDividerAlong) {
    Panel list(Panel::Kind::list);
    auto *first = new Block(50), *second = new Block(50);
    list.addRow(first);
    list.addRow(second, 12);
    showAt(list, {200, 60});
    auto* divider = list.findChild<Divider*>();
    ASSERT_TRUE(divider);
    EXPECT_EQ(list.heightForWidth(200), 41);
    second->hide();
    EXPECT_TRUE(divider->isHidden());
    EXPECT_EQ(list.heightForWidth(200), 20);
    second->show();
    EXPECT_FALSE(divider->isHidden());
}

} // namespace
} // namespace tessivo
