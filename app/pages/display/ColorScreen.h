#pragma once

#include "app/pages/display/ColorRun.h"
#include "platform/KeyEvents.h"
#include "platform/Scheduler.h"

#include <QObject>
#include <functional>

class QScreen;

namespace tessivo {

class Desktop;

/// Fills a whole screen with one colour after another. Closed or showing; a run ends past the last colour,
/// with Esc, when its window is closed from outside, or when its screen is pulled out. Main thread.
class ColorScreen final : public QObject {
    Q_OBJECT
public:
    using OnShow = std::function<void(const std::string& color)>;

    /// All outlive the screen.
    ColorScreen(KeyEvents& keys, Desktop& desktop, Scheduler& scheduler, QObject* parent = nullptr);
    ~ColorScreen() override;

    bool isShowing() const { return m_window != nullptr; }
    /// Begins with the first colour, over the screen's whole frame. `onShow` is told each colour as it is
    /// shown. Ends a run that shows already.
    void show(QScreen& screen, OnShow onShow);
    void close();

private:
    class Window;

    void listen();
    void handle(KeyMark mark, KeyCode code);
    void advance(int step);
    void showColor();

    KeyEvents& m_keys;
    Desktop& m_desktop;
    Scheduler& m_scheduler;
    ColorRun m_run;
    OnShow m_onShow;
    Window* m_window = nullptr; // deletes itself once it is let go
    const QScreen* m_screen = nullptr;
    std::unique_ptr<Scheduled> m_hintTask;
};

} // namespace tessivo
