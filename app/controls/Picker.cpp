#include "app/controls/Picker.h"

#include "app/look/Metrics.h"
#include "app/look/Theme.h"

#include <QKeyEvent>
#include <QMenu>
#include <QStyleOption>
#include <QWheelEvent>

namespace tessivo {

Picker::Picker(const QString& name, const QStringList& choices, QWidget* parent) : QComboBox(parent) {
    setAccessibleName(name);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setChoices(choices);
    connect(this, &QComboBox::currentTextChanged, this,
            [this](const QString& text) { setToolTip(sizeHint().width() > width() ? text : QString()); });
}

void Picker::setChoices(const QStringList& choices) {
    QStringList present;
    for (int i = 0; i < count(); ++i)
        present.append(itemText(i));
    if (present == choices) return;
    // An open menu still offers what is no longer there.
    for (QMenu* menu : findChildren<QMenu*>())
        menu->close();
    const int index = currentIndex();
    const QSignalBlocker blocker(this);
    clear();
    addItems(choices);
    setCurrentIndex(index >= 0 && index < count() ? index : 0);
    updateGeometry();
    update();
}

void Picker::setPreferredWidth(int width) {
    m_preferredWidth = width;
    updateGeometry();
}

QSize Picker::sizeHint() const {
    int words = 0;
    for (int i = 0; i < count(); ++i)
        words = std::max(words, theme().textWidth(TextRole::control, itemText(i)));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize natural = style()->sizeFromContents(QStyle::CT_ComboBox, &option, {words, 0}, this);
    return {m_preferredWidth > 0 ? theme().scaled(m_preferredWidth) : natural.width(), natural.height()};
}

QSize Picker::minimumSizeHint() const {
    return {theme().scaled(96), theme().scaled(Height::control)};
}

void Picker::showPopup() {
    if (count() == 0) return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(accessibleName());
    menu->setMinimumWidth(width());
    QAction* chosen = nullptr;
    for (int i = 0; i < count(); ++i) {
        QString text = itemText(i);
        QAction* action = menu->addAction(text.replace(QLatin1Char('&'), QStringLiteral("&&")));
        action->setCheckable(true);
        action->setChecked(i == currentIndex());
        if (action->isChecked()) chosen = action;
        connect(action, &QAction::triggered, this, [this, i] {
            setCurrentIndex(i);
            Q_EMIT activated(i);
            Q_EMIT textActivated(itemText(i));
        });
    }
    connect(menu, &QMenu::aboutToHide, this, [this] { update(); });
    menu->popup(mapToGlobal(QPoint(0, height() + 4)));
    menu->setActiveAction(chosen);
}

void Picker::wheelEvent(QWheelEvent* event) {
    // Scrolling the page must not change a choice that happens to pass under the pointer.
    event->ignore();
}

bool Picker::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            if (event->type() == QEvent::KeyPress) showPopup();
            event->accept();
            return true;
        }
    }
    return QComboBox::event(event);
}

} // namespace tessivo
