#pragma once

#include <QAccessible>
#include <QStringList>

namespace tessivo {

/// What a widget of our own tells a screen reader besides its name. A QWidget that also derives from this is
/// known to the accessibility bridge by these answers; its name is `accessibleName()`, or `spokenName()`
/// while that is empty.
class AccessibleTraits {
public:
    virtual ~AccessibleTraits() = default;
    virtual QAccessible::Role spokenRole() const = 0;
    virtual QString spokenName() const { return {}; }
    virtual QString spokenValue() const { return {}; }
    /// Adds to the state that follows from the widget itself (focus, disabled, hidden).
    virtual void addSpokenState(QAccessible::State&) const {}
    /// What it can be asked to do besides a press, by the bridge's own names: "Increase".
    virtual QStringList spokenActions() const { return {}; }
    virtual void actOn(const QString&) {}
    /// True where the widget is read as one element and its children are passed over.
    virtual bool isOneElement() const { return false; }
};

/// Tells the bridge that the name, value or state of a widget has changed.
void announceNameChange(QWidget* widget);
void announceValueChange(QWidget* widget);
/// What a person can choose has been chosen, or is no more: its states `checked` and `selected`.
void announceChoice(QWidget* widget);

/// Makes the traits known to the bridge; called once, by Theme.
void installAccessibleTraits();

} // namespace tessivo
