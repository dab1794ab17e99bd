#pragma once

#include "app/layout/Column.h"
#include "app/pages/PageContext.h"
#include "app/pages/trackpad/TouchGate.h"

namespace tessivo {

class Chip;
class TextLabel;
class TrackpadArea;
class TrackpadSurface;

/// The content of the trackpad page. Fingers and gestures come from the surface and, while the page is
/// shown, from the platform; what the platform tells of other windows too counts only where the surface is
/// open to it.
class TrackpadTestView final : public Column {
    Q_OBJECT
public:
    explicit TrackpadTestView(const PageContext& context, QWidget* parent = nullptr);
    ~TrackpadTestView() override;

    /// The page's instructions.
    static const char* const how;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* makeChips();
    QWidget* makeFoot();
    void stopListening();
    void noteTouches(const std::vector<FingerPosition>& fingers);
    void noteGesture(Gesture gesture);
    void write(const TrackpadTest& test);
    void follow();

    AppModel& m_model;
    TrackpadSurface* m_surface = nullptr;
    TouchGate m_gate;       ///< for what the platform tells
    bool m_listens = false; ///< a page that comes after this one may listen before this one has gone
    TrackpadArea* m_area = nullptr;
    std::vector<Chip*> m_steps; // in the order of TrackpadTest::steps
    Chip* m_force = nullptr;
    Chip* m_pinch = nullptr;
    TextLabel* m_fingers = nullptr;
};

} // namespace tessivo
