#include "tests/app/PageTesting.h"

#include "app/controls/TextLabel.h"
#include "app/look/Accessible.h"
#include "app/look/Theme.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QFocusFrame>
#include <QFontDatabase>
#include <QTest>
#include <algorithm>
#include <ctime>

namespace tessivo::pagetest {
namespace {

QAccessibleInterface* interfaceOf(QWidget* widget) {
    return widget ? QAccessible::queryAccessibleInterface(widget) : nullptr;
}

QString describe(QWidget* widget) {
    return QStringLiteral("%1 \"%2\" %3x%4 at %5,%6")
        .arg(QString::fromLatin1(widget->metaObject()->className()), accessibleNameOf(widget))
        .arg(widget->width())
        .arg(widget->height())
        .arg(widget->x())
        .arg(widget->y());
}

} // namespace

QString accessibleNameOf(QWidget* widget) {
    auto* interface = interfaceOf(widget);
    return interface ? interface->text(QAccessible::Name) : QString();
}

QString accessibleValueOf(QWidget* widget) {
    auto* interface = interfaceOf(widget);
    return interface ? interface->text(QAccessible::Value) : QString();
}

bool isChecked(QWidget* widget) {
    auto* interface = interfaceOf(widget);
    return interface && interface->state().checked;
}

QWidget* findNamed(QWidget* root, const QString& name, const std::function<bool(QWidget*)>& fits) {
    if (fits(root) && accessibleNameOf(root) == name) return root;
    for (QWidget* widget : root->findChildren<QWidget*>())
        if (widget->isVisibleTo(root) && fits(widget) && accessibleNameOf(widget) == name) return widget;
    return nullptr;
}

double processorMilliseconds() {
    return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC;
}

bool click(QWidget* widget) {
    if (!widget || !widget->isVisible() || !widget->isEnabled()) return false;
    QTest::mouseClick(widget, Qt::LeftButton);
    settle();
    return true;
}

bool doubleClick(QWidget* widget) {
    if (!widget || !widget->isVisible() || !widget->isEnabled()) return false;
    // As the desktop sends it: the second press comes as a double click, and then its release.
    QTest::mouseClick(widget, Qt::LeftButton);
    QTest::mouseDClick(widget, Qt::LeftButton);
    QTest::mouseRelease(widget, Qt::LeftButton);
    settle();
    return true;
}

bool clickOn(QWidget* root, const QString& name) {
    return click(
        findNamed(root, name, [](QWidget* widget) { return qobject_cast<QAbstractButton*>(widget); }));
}

void type(QWidget* widget, const QString& text) {
    widget->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(widget, text);
    settle();
}

QStringList shownTexts(QWidget* root) {
    QList<QPair<QPoint, QString>> found;
    for (QWidget* widget : root->findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(root)) continue;
        QString text;
        if (const auto* label = dynamic_cast<TextLabel*>(widget)) text = label->text();
        if (const auto* button = qobject_cast<QAbstractButton*>(widget)) text = button->text();
        if (!text.isEmpty()) found.append({widget->mapTo(root, QPoint()), text});
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& one, const auto& other) {
        return std::pair(one.first.y(), one.first.x()) < std::pair(other.first.y(), other.first.x());
    });
    QStringList texts;
    for (const auto& each : found)
        texts.append(each.second);
    return texts;
}

bool shows(QWidget* root, const QString& text) {
    return shownTexts(root).contains(text);
}

void showAt(QWidget& window, const QSize& size) {
    window.resize(size);
    window.show();
    window.activateWindow();
    settle();
    window.grab();
    settle();
}

void settle() {
    for (int i = 0; i < 4; ++i) {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

DesktopLook::DesktopLook(bool dark) {
    QApplication::setPalette(Theme::palette(dark));
    settle();
}

DesktopLook::DesktopLook(double fontPoints) : m_font(true) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSizeF(fontPoints);
    QApplication::setFont(font);
    settle();
}

DesktopLook::~DesktopLook() {
    if (m_font)
        QApplication::setFont(QFontDatabase::systemFont(QFontDatabase::GeneralFont));
    else
        QApplication::setPalette(QPalette());
    settle();
}

QStringList clippedControls(QWidget* root) {
    QStringList found;
    for (QWidget* widget : root->findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(root) || widget->isWindow()) continue;
        if (qobject_cast<QFocusFrame*>(widget)) continue;
        QWidget* parent = widget->parentWidget();
        const auto* area = qobject_cast<QAbstractScrollArea*>(parent->parentWidget());
        const bool scrolled = area && area->viewport() == parent;
        const QRect room = parent->rect();
        const QRect place = widget->geometry();
        const bool out = place.left() < room.left() || place.right() > room.right() ||
                         (!scrolled && (place.top() < room.top() || place.bottom() > room.bottom()));
        const QSize least = widget->minimumSizeHint();
        const bool squeezed =
            !qobject_cast<QAbstractScrollArea*>(widget) && !scrolled &&
            (widget->width() < least.width() || widget->height() < least.height() ||
             (widget->hasHeightForWidth() && widget->height() < widget->heightForWidth(widget->width())));
        if (out || squeezed)
            found.append(describe(widget) + (out ? QStringLiteral(" sticks out of ") + describe(parent)
                                                 : QStringLiteral(" is squeezed")));
    }
    return found;
}

QStringList unnamedControls(QWidget* root) {
    QStringList found;
    for (QWidget* widget : root->findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(root)) continue;
        const bool acts = widget->focusPolicy() & Qt::TabFocus || qobject_cast<QAbstractButton*>(widget);
        if (acts && accessibleNameOf(widget).isEmpty()) found.append(describe(widget));
    }
    return found;
}

} // namespace tessivo::pagetest
