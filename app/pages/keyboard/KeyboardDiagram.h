#pragma once

#include "app/look/Accessible.h"
#include "app/pages/keyboard/KeyboardGeometry.h"
#include "kit/session/KeyboardTest.h"

#include <QWidget>

namespace tessivo {

/// The drawing of the keyboard on its well: one button a key, done keys green, the last key seen outlined.
/// It is told the test's state and repaints only the keys that differ. One stop of the Tab key; the arrow
/// keys go from key to key. Main thread.
class KeyboardDiagram final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    explicit KeyboardDiagram(QWidget* parent = nullptr);

    /// While the capture runs a click does nothing.
    void show(const KeyboardTest& test, bool running, std::optional<KeyCode> flash);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QAccessible::Role spokenRole() const override { return QAccessible::Grouping; }
    QString spokenName() const override;

Q_SIGNALS:
    /// The person clicked a key that has a code and isn't answered below, while no capture runs.
    void tick(tessivo::KeyCode code);

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;

private:
    class Key;

    void setLayoutID(KeyboardLayout::ID id);
    void place();
    void moveFocus(std::size_t from, KeyboardGeometry::Direction direction);
    void takeTabStop(std::size_t key);

    const KeyboardLayout* m_layout = nullptr;
    KeyboardTest::Progress m_progress;
    KeyboardGeometry m_geometry;
    std::vector<Key*> m_keys; ///< in the order of the geometry's places
    bool m_running = false;
};

} // namespace tessivo
