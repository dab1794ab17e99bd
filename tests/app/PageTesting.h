#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <ostream>

/// So that a failed comparison can be read.
inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

/// What page tests share: finding controls as a screen reader names them, acting as a person would, and
/// reading what is shown.
namespace tessivo::pagetest {

/// The name a screen reader is given for a widget; empty for one it passes over.
QString accessibleNameOf(QWidget* widget);
QString accessibleValueOf(QWidget* widget);
bool isChecked(QWidget* widget);

/// The first widget under `root` that is shown, is a `T`, and has this accessible name; null if none.
QWidget* findNamed(QWidget* root, const QString& name, const std::function<bool(QWidget*)>& fits);

template <class T>
T* findByName(QWidget* root, const QString& name) {
    return dynamic_cast<T*>(findNamed(root, name, [](QWidget* widget) { return dynamic_cast<T*>(widget); }));
}

/// As above, for a button of an answer row: the one in the group named by its question.
template <class T>
T* findByName(QWidget* root, const QString& group, const QString& name) {
    QWidget* inside = findNamed(root, group, [](QWidget*) { return true; });
    return inside ? findByName<T>(inside, name) : nullptr;
}

/// Left click in the middle; false if there is nothing a person could click.
bool click(QWidget* widget);
bool doubleClick(QWidget* widget);
/// Clicks the control of this accessible name.
bool clickOn(QWidget* root, const QString& name);
/// Gives the focus as the Tab key does, and types.
void type(QWidget* widget, const QString& text);

/// Every text shown under `root`: labels and buttons, from top to bottom.
QStringList shownTexts(QWidget* root);
bool shows(QWidget* root, const QString& text);

/// Shows the widget as a window of this size, laid out and painted once.
void showAt(QWidget& window, const QSize& size);
/// Lets posted events be handled, without waiting.
void settle();

/// What one key press may cost, in milliseconds of processor time: a frame at 60 Hz, and in a build that
/// checks every access as much more as the checks take.
#ifdef __SANITIZE_ADDRESS__
inline constexpr double keyPressLimit = 4 * 16;
#else
inline constexpr double keyPressLimit = 16;
#endif

/// Processor time of this process so far, in milliseconds: other work on the machine isn't the page's.
double processorMilliseconds();

/// While it lives the desktop is light or dark, or has a larger font.
class DesktopLook final {
public:
    explicit DesktopLook(bool dark);
    explicit DesktopLook(double fontPoints);
    ~DesktopLook();
    DesktopLook(const DesktopLook&) = delete;
    DesktopLook& operator=(const DesktopLook&) = delete;

private:
    bool m_font = false;
};

/// Controls under `root` that stick out of their parent or are narrower or lower than they can bear, in
/// words; empty when nothing is clipped.
QStringList clippedControls(QWidget* root);

/// Controls under `root` that take the focus or a click and have no accessible name.
QStringList unnamedControls(QWidget* root);

} // namespace tessivo::pagetest
