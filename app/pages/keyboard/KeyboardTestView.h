#pragma once

#include "app/pages/PageContext.h"
#include "app/pages/frame/LiveContent.h"
#include "app/pages/keyboard/KeyCapture.h"

#include <map>

namespace tessivo {

class AnswerButtons;
class Button;
class KeyboardDiagram;
class Picker;
class TextLabel;

/// The content of the keyboard page: the capture and its controls, the diagram, the checks by hand. A
/// capture ends when the page is hidden or goes.
class KeyboardTestView final : public LiveContent {
    Q_OBJECT
public:
    explicit KeyboardTestView(const PageContext& context, QWidget* parent = nullptr);
    ~KeyboardTestView() override;

    /// The page's instructions.
    static const char* const how;

private:
    void disappear() override { m_capture.stop(); }
    QWidget* makeControls();
    QWidget* makeRunningLine();
    QWidget* makeHandChecks();
    void startOrStop();
    void press(KeyCode code);
    void runHasChanged();
    void follow();
    void showKeys();

    AppModel& m_model;
    KeyCapture m_capture;
    Button* m_start = nullptr;
    Picker* m_layout = nullptr;
    TextLabel* m_count = nullptr;
    Button* m_clear = nullptr;
    QWidget* m_runningLine = nullptr;
    KeyboardDiagram* m_diagram = nullptr;
    TextLabel* m_alsoPressed = nullptr;
    std::map<std::string, AnswerButtons*> m_answers; ///< by the check's id
};

} // namespace tessivo
