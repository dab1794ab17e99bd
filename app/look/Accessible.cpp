#include "app/look/Accessible.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QWidget>

namespace tessivo {
namespace {

class TraitsInterface final : public QAccessibleWidget {
public:
    TraitsInterface(QWidget* widget, AccessibleTraits* traits)
        : QAccessibleWidget(widget, traits->spokenRole()), m_traits(traits) {}

    QAccessible::Role role() const override { return m_traits->spokenRole(); }

    QString text(QAccessible::Text which) const override {
        if (which == QAccessible::Name) {
            const QString given = widget()->accessibleName();
            return given.isEmpty() ? m_traits->spokenName() : given;
        }
        if (which == QAccessible::Value) return m_traits->spokenValue();
        if (which == QAccessible::Description && widget()->accessibleDescription().isEmpty())
            return widget()->toolTip();
        return QAccessibleWidget::text(which);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (const auto* button = qobject_cast<QAbstractButton*>(widget())) {
            state.pressed = button->isDown();
            state.checkable = button->isCheckable();
            state.checked = button->isChecked();
        }
        m_traits->addSpokenState(state);
        return state;
    }

    int childCount() const override { return m_traits->isOneElement() ? 0 : QAccessibleWidget::childCount(); }
    QAccessibleInterface* child(int index) const override {
        return m_traits->isOneElement() ? nullptr : QAccessibleWidget::child(index);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return m_traits->isOneElement() ? nullptr : QAccessibleWidget::childAt(x, y);
    }

    QStringList actionNames() const override {
        const auto* button = qobject_cast<QAbstractButton*>(widget());
        if (!button)
            return widget()->isEnabled() ? m_traits->spokenActions() + QAccessibleWidget::actionNames()
                                         : QStringList{};
        return button->isEnabled() ? QStringList{pressAction(), setFocusAction()} : QStringList{};
    }
    void doAction(const QString& name) override {
        auto* button = qobject_cast<QAbstractButton*>(widget());
        if (button && name == pressAction())
            button->click();
        else if (m_traits->spokenActions().contains(name))
            m_traits->actOn(name);
        else
            QAccessibleWidget::doAction(name);
    }

private:
    AccessibleTraits* m_traits;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    auto* traits = dynamic_cast<AccessibleTraits*>(object);
    return widget && traits ? new TraitsInterface(widget, traits) : nullptr;
}

void announce(QWidget* widget, QAccessible::Event type) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(widget, type);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void announceNameChange(QWidget* widget) {
    announce(widget, QAccessible::NameChanged);
}

void announceValueChange(QWidget* widget) {
    announce(widget, QAccessible::ValueChanged);
}

void announceChoice(QWidget* widget) {
    if (!QAccessible::isActive()) return;
    QAccessible::State changed;
    changed.checked = changed.selected = true;
    QAccessibleStateChangeEvent event(widget, changed);
    QAccessible::updateAccessibility(&event);
}

void installAccessibleTraits() {
    QAccessible::removeFactory(makeInterface);
    QAccessible::installFactory(makeInterface);
}

} // namespace tessivo
