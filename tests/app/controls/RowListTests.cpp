#include "app/controls/RowList.h"

#include "tests/app/PageTesting.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace tessivo::pagetest;

QString text(const char* words) {
    return QString::fromUtf8(words);
}

TEST(RowList, isOneTabStopWithArrows) {
    RowList list(text("Pages"));
    for (const char* title : {"This Mac", "Keyboard", "Report"}) {
        auto* row = new SidebarRow(text(title), text("keyboard"));
        if (*title == 'K') row->setStatus(TestStatus::works);
        list.addRow(row);
    }
    QObject::connect(&list, &RowList::chosen, [&](SidebarRow* row) { list.setCurrent(row); });
    list.setCurrent(list.rows().at(0));
    showAt(list, {230, 200});
    list.rows().at(0)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(accessibleNameOf(list.current()), text("Keyboard, Works"));
    EXPECT_TRUE(list.current()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    EXPECT_EQ(list.current(), list.rows().at(2));
    EXPECT_EQ(list.rows().at(0)->focusPolicy(), Qt::NoFocus);
    list.rows().at(1)->hide();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    EXPECT_EQ(list.current(), list.rows().at(0)) << "a hidden row is stepped over";
    list.setCurrent(nullptr);
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(list.rows().at(0))->state().selected);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(list.current()) << "with none chosen an arrow chooses";
}

TEST(RowList, itsTabStopIsNeverAHiddenRow) {
    RowList list(text("Pages"));
    for (const char* title : {"This Mac", "Keyboard", "Report"})
        list.addRow(new SidebarRow(text(title), text("keyboard")));
    showAt(list, {230, 200});
    const auto stops = [&] {
        QStringList titles;
        for (const SidebarRow* row : list.rows())
            if (row->focusPolicy() & Qt::TabFocus) titles << row->title();
        return titles.join(QStringLiteral(", "));
    };
    EXPECT_EQ(stops(), text("This Mac"));
    list.rows().at(0)->hide();
    EXPECT_EQ(stops(), text("Keyboard"));
    list.setCurrent(list.rows().at(2));
    EXPECT_EQ(stops(), text("Report"));
    list.setCurrent(nullptr);
    list.rows().at(0)->show();
    EXPECT_EQ(stops(), text("This Mac"));
}

} // namespace
} // namespace tessivo
